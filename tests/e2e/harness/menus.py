"""The menu bar and context menus."""

import re
from dataclasses import dataclass
from typing import Any

from .atspi import Atspi
from .nodes import (MENU_ITEM_ROLES, children_of, describe, has_state, is_checked, is_enabled,
                    is_showing, matches, name_of, plain, role_of)
from .waiting import HarnessError, poll, wait_for


@dataclass
class MenuItem:
    caption: str
    enabled: bool
    checked: bool
    has_submenu: bool
    node: Any


def _items_of(menu):
    """The entries of an open menu, without the separating lines."""
    items = []
    for node in children_of(menu):
        role = role_of(node)
        # A separator with a caption is a heading.
        if (role in MENU_ITEM_ROLES + ("menu",) or role == "separator" and name_of(node)) \
                and is_showing(node):
            items.append(MenuItem(plain(name_of(node)), is_enabled(node), is_checked(node),
                                  bool(children_of(node)), node))
    return items


def _entries_below(entry):
    """The entries of the menu that an entry opens; none while it is closed.

    Qt puts the popup between the two: menu item, popup menu, menu item.
    """
    items = _items_of(entry)
    for child in children_of(entry):
        if role_of(child) in ("popup menu", "menu") and is_showing(child):
            items += _items_of(child)
    return items


def _access_key(entry):
    """The letter behind Alt, which AT-SPI gives as "Alt+F"; None if not known.

    Of an entry with a shortcut Qt tells that instead.
    """
    binding = Atspi.Action.get_key_binding(entry, 0) or ""
    match = re.search(r"^Alt\+(\S)$", binding)
    return match.group(1).lower() if match else None


class MenuBar:
    """The menu bar of a program."""

    def __init__(self, program):
        self._program = program

    def choose(self, *path, by):
        """Chooses the entry at the end of a path of captions: choose("File", "Open").

        `by` is "mouse" or "keys"; keys means Alt and the menu's access key,
        then the entries' access keys, or the arrow keys where an entry's
        access key is not known.
        """
        entry = self._open(path[0], by)
        for caption in path[1:]:
            parent, entry = entry, self._entry(entry, caption)
            if by == "mouse":
                self._program.click(entry)
            else:
                self._choose_by_key(entry, parent)

    def items(self, *path):
        """Opens a menu, lists its entries, closes it again."""
        entry = self._open(path[0], "mouse")
        for caption in path[1:]:
            entry = self._entry(entry, caption)
            self._program.click(entry)
        items = wait_for(lambda: _entries_below(entry),
                         lambda: f"menu {path} does not open\n{self._program.dump()}")
        for _ in path:
            self._program.key("Escape")
        wait_for(lambda: not _entries_below(entry), f"menu {path} does not close")
        return items

    def _open(self, caption, by):
        bar = self._program.find("menu bar")
        entry = self._program.find(MENU_ITEM_ROLES + ("menu",), caption, bar)
        if by == "mouse":
            self._program.click(entry)
        else:
            key = _access_key(entry)
            if key is None:
                raise HarnessError(f"{describe(entry)} has no access key")
            self._press_alt_and(key, lambda: _entries_below(entry))
        return entry

    def _press_alt_and(self, key, opens):
        """Presses Alt and a letter until the menu is open and stays so.

        Qt hands each key on by way of the accessibility bus, but takes an
        access key at once. An Alt that comes after its letter shuts the menu
        again, on a busy machine as often as not: it gets time to arrive.
        """
        program = self._program
        for _ in range(5):
            program.desktop.xdotool("keydown", "alt")
            try:
                for _ in range(3):
                    program.window()  # asks the program, by the same bus
                program.desktop.xdotool("key", key)
            finally:
                program.desktop.xdotool("keyup", "alt")
            if poll(opens, 1) and not poll(lambda: not opens(), 0.3):
                return
            program.key("Escape")
        raise HarnessError(f"Alt and {key!r} open no menu\n{program.dump()}")

    def _entry(self, parent, caption):
        def find():
            return next((item for item in _entries_below(parent)
                         if matches(item.caption, caption)), None)

        item = wait_for(find, lambda: f"no entry {caption!r} in the open menu "
                        f"{name_of(parent)!r}, which has "
                        f"{[entry.caption for entry in _entries_below(parent)]}\n")
        if not item.enabled:
            raise HarnessError(f"menu entry {caption!r} is disabled")
        return item.node

    def _choose_by_key(self, entry, parent):
        """Chooses an entry of the open menu of `parent` without the mouse."""
        key = _access_key(entry)
        if key:
            self._program.key(key)
        else:
            def selected():
                return [has_state(item.node, "focused") for item in _entries_below(parent)]

            for _ in _entries_below(parent):
                if has_state(entry, "focused"):
                    break
                before = selected()
                self._program.key("Down")
                poll(lambda before=before: selected() != before, 1)
            wait_for(lambda: has_state(entry, "focused"),
                     lambda: f"the arrow keys do not reach {describe(entry)}\n"
                     f"{self._program.dump()}")
            self._program.key("Enter")
        wait_for(lambda: _entries_below(entry) or not _entries_below(parent),
                 lambda: f"{describe(entry)} is not chosen by its key; do several entries "
                 f"share {key!r}?\n{self._program.dump()}")


def open_popup(program, timeout):
    """The context menu that is open, waited for.

    Qt leaves popup windows out of the application's list of windows, so a
    context menu cannot be found by walking the tree; it is known from the
    events that its appearance has caused.
    """
    def last_open():
        for node in reversed(program.desktop.shown_popups):
            if is_showing(node) and _items_of(node):
                return node
        return None

    return Popup(program, wait_for(last_open, "no context menu has opened", timeout))


class Popup:
    """An open context menu."""

    def __init__(self, program, node):
        self.program = program
        self.node = node

    def items(self):
        return _items_of(self.node)

    def captions(self):
        return [item.caption for item in self.items()]

    def choose(self, caption):
        item = next((item for item in self.items() if matches(item.caption, caption)), None)
        if item is None:
            raise HarnessError(f"no entry {caption!r} among {self.captions()}")
        if not item.enabled:
            raise HarnessError(f"entry {caption!r} is disabled")
        self.program.click(item.node)

    def dismiss(self):
        self.program.key("Escape")
        self.program.wait_gone(self.node)
