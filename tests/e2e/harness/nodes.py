"""What the accessibility tree says about a thing on the screen.

A node is a plain Atspi.Accessible.  It may vanish at any moment, which
libatspi reports as a GLib.Error; these functions answer then as for
something that is not there.
"""

import re

from gi.repository import GLib

from .atspi import Atspi

# Qt does not distinguish a message box from any other dialog in all versions.
DIALOG_ROLES = ("dialog", "alert", "file chooser", "color chooser", "font chooser")
TEXT_ROLES = ("text", "entry", "password text", "spin button")
# What lies in windows only: looked for without a look at everything else, as
# every question to the program takes its time.
OUTER_ROLES = ("frame", "menu bar", "tool bar", "status bar", *DIALOG_ROLES)
OUTER_PARENT_ROLES = ("application", "frame", "layered pane", *DIALOG_ROLES)
MENU_ITEM_ROLES = ("menu item", "check menu item", "radio menu item")

# Item views answer with one child a cell; nobody reads that many.
MAX_CHILDREN = 300


def plain(text):
    """A caption as a person reads it: without mnemonic marks and shortcut."""
    text = (text or "").split("\t")[0]
    return re.sub(r"&(.)", r"\1", text)


def name_of(node):
    try:
        return node.get_name() or ""
    except GLib.Error:
        return ""


def description_of(node):
    """The accessible description; Qt gives the tool tip when there is no other."""
    try:
        return node.get_description() or ""
    except GLib.Error:
        return ""


def role_of(node):
    try:
        role = node.get_role_name()
    except GLib.Error:
        return ""
    # at-spi2-core 2.50 shortened this name.
    return "push button" if role == "button" else role


def parent_of(node):
    try:
        return node.get_parent()
    except GLib.Error:
        return None


def children_of(node):
    children = []
    try:
        for index in range(min(node.get_child_count(), MAX_CHILDREN)):
            child = node.get_child_at_index(index)
            if child is not None:
                children.append(child)
    except GLib.Error:
        pass
    return children


def has_state(node, state):
    """`state` is one of Atspi.StateType, or its name in lower case."""
    if isinstance(state, str):
        state = getattr(Atspi.StateType, state.upper())
    try:
        return node.get_state_set().contains(state)
    except GLib.Error:
        return False


def is_showing(node):
    return has_state(node, "showing")


def is_enabled(node):
    return has_state(node, "enabled")


def is_checked(node):
    return has_state(node, "checked")


def is_active(node):
    return has_state(node, "active")


def is_read_only(node):
    # Qt 6.4 calls a read-only field editable all the same.
    return has_state(node, "read_only") or not has_state(node, "editable")


def text_of(node):
    """What a text field holds; the name of everything that is no text field."""
    try:
        if role_of(node) != "label" and "Text" in node.get_interfaces():
            return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))
    except GLib.Error:
        return ""
    return name_of(node)


def page_text_of(node):
    """What a page for reading holds, to which Qt gives the role of a label."""
    try:
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))
    except GLib.Error:
        return ""


def value_and_maximum_of(node):
    """How far a progress bar or a slider is, and how far it can go."""
    return Atspi.Value.get_current_value(node), Atspi.Value.get_maximum_value(node)


def labels_of(node):
    """The texts of the labels that belong to a node (in Qt: whose buddy it is)."""
    texts = [name_of(node)]
    try:
        for relation in node.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                texts += [name_of(relation.get_target(index))
                          for index in range(relation.get_n_targets())]
    except GLib.Error:
        pass
    return texts


def extents_of(node):
    """(x, y, width, height) on the screen."""
    box = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def walk(node, showing=True, parent_roles=None):
    """The nodes below `node`, parents before children.

    Hidden branches are left out if `showing`; menus that are not open, pages
    that are not in front.  With `parent_roles`, what lies in nodes of other
    roles is left out too.
    """
    for child in children_of(node):
        if showing and not is_showing(child):
            continue
        yield child
        if parent_roles is None or role_of(child) in parent_roles:
            yield from walk(child, showing, parent_roles)


def describe(node):
    states = [state for state in ("active", "focused", "checked") if has_state(node, state)]
    if not is_enabled(node):
        states.append("disabled")
    if not is_showing(node):
        states.append("hidden")
    text = text_of(node)
    line = f"{role_of(node)} {name_of(node)!r}"
    if text != name_of(node):
        line += f" text={text!r}"
    if description_of(node):
        line += f" description={description_of(node)!r}"
    return line + (f" [{' '.join(states)}]" if states else "")


def dump(node, showing=True, indent=0):
    """The tree below `node` as text, for error messages and for looking around."""
    lines = ["  " * indent + describe(node)]
    for child in children_of(node):
        if not showing or is_showing(child):
            lines.append(dump(child, showing, indent + 1))
    return "\n".join(lines)


def matches(value, wanted):
    """Compares a caption with a string (equal) or a compiled pattern (search)."""
    if isinstance(wanted, re.Pattern):
        return wanted.search(plain(value)) is not None
    return plain(value) == plain(wanted)
