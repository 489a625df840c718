"""A running program and what it has on the screen."""

import re
import signal
import tempfile

from gi.repository import GLib

from . import atspi, nodes
from .atspi import Atspi
from .boxes import FileDialog, MessageBox
from .desktop import home_variables
from .menus import MenuBar, open_popup
from .nodes import (DIALOG_ROLES, OUTER_PARENT_ROLES, OUTER_ROLES, TEXT_ROLES, children_of,
                    describe, has_state, is_active, is_showing, labels_of, matches,
                    name_of, plain, role_of, text_of, walk)
from .processes import spawn, stop_process
from .waiting import DEFAULT_TIMEOUT, HarnessError, wait_for

START_TIMEOUT = 20.0


class Program:
    """A running program and what it has on the screen.

    As a context manager it demands that the program has ended by itself, with
    no crash, when the block is left: a test that does not care calls
    `terminate` as its last act.
    """

    def __init__(self, desktop, argv, home=None, env=None):
        """Starts `argv` and waits until it answers.

        Its home folder is new and empty unless `home` gives one; it is also
        the current folder.  `env` adds to the environment.
        """
        self.desktop = desktop
        self.argv = [str(argument) for argument in argv]
        self.home = home or desktop.new_home()
        environment = {**desktop.environment, **home_variables(self.home),
                       "QT_ACCESSIBILITY": "1", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
                       **desktop.session_variables, **(env or {})}
        self._death_was_wanted = False
        desktop.shown_popups.clear()
        descriptor, self._stderr_path = tempfile.mkstemp(dir=desktop.directory,
                                                         prefix="stderr-")
        with open(descriptor, "wb") as file:
            self._process = spawn(self.argv, environment, signal.SIGKILL, cwd=self.home,
                                   stdout=file, stderr=file)
        try:
            wait_for(lambda: self.application() is not None or not self.is_running(),
                     lambda: f"{self.argv[0]} did not register for accessibility\n"
                     + self.stderr_text(), START_TIMEOUT)
            if not self.is_running():
                raise HarnessError(f"{self.argv[0]} ended at once with status "
                                   f"{self.exit_status}\n{self.stderr_text()}")
        except BaseException:
            self.kill()
            raise

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        if kind is None:
            self.finish()
        else:
            self.kill()

    def finish(self):
        """Kills the program; complains if it was still there, had crashed, or had ended well
        and yet written something into the terminal."""
        left_running = self.is_running()
        self.kill()
        if left_running:
            raise HarnessError(f"{self.argv[0]} was left running")
        if self.exit_status < 0 and not self._death_was_wanted:
            name = signal.Signals(-self.exit_status).name
            raise HarnessError(f"{self.argv[0]} died of {name}\n{self.stderr_text()}")
        if self.exit_status == 0 and self.stderr_text():
            raise HarnessError(f"{self.argv[0]} wrote:\n{self.stderr_text()}")

    # -- the process ---------------------------------------------------------

    @property
    def pid(self):
        return self._process.pid

    @property
    def exit_status(self):
        """None while running; negative for the signal that killed it."""
        return self._process.poll()

    def is_running(self):
        return self.exit_status is None

    def wait_exit(self, timeout=DEFAULT_TIMEOUT):
        """Waits for the end of the program; returns its exit status."""
        wait_for(lambda: not self.is_running(),
                 lambda: f"{self.argv[0]} does not end; it shows:\n" + self.dump(), timeout)
        return self.exit_status

    def send_signal(self, number):
        self._process.send_signal(number)

    def terminate(self, timeout=DEFAULT_TIMEOUT):
        """SIGTERM, then waits; returns the exit status."""
        self.send_signal(signal.SIGTERM)
        return self.wait_exit(timeout)

    def kill(self):
        """Ends the program by force, if it is still there."""
        if self.is_running():
            self._process.kill()
        stop_process(self._process)

    def kill_at_once(self):
        """SIGKILL, for a test that wants the program to end without a last word."""
        self._death_was_wanted = True
        self.send_signal(signal.SIGKILL)
        self.wait_exit()

    def stderr_text(self):
        """What the program has written to stderr (and stdout) so far."""
        with open(self._stderr_path, encoding="utf-8", errors="replace") as file:
            return file.read()

    # -- finding -------------------------------------------------------------

    def application(self):
        """The root of the program's accessibility tree, or None."""
        root = atspi.registry()
        for node in children_of(root):
            try:
                if node.get_process_id() == self.pid:
                    node.clear_cache()
                    node.set_cache_mask(Atspi.Cache.NONE)
                    # It registers before its first window is made.
                    return node if node.get_child_count() > 0 else None
            except GLib.Error:
                pass
        return None

    def dump(self, node=None, showing=True):
        node = node or self.application()
        return nodes.dump(node, showing) if node is not None else "(no application)"

    def find_all(self, role=None, name=None, parent=None, showing=True, where=None):
        """Everything that matches right now.

        `role` is a role name or several, `name` the exact caption (mnemonic
        marks do not count) or a compiled regular expression, `where` a
        function of the node for all other wishes.
        """
        roles = (role,) if isinstance(role, str) else role
        root = parent or self.application()
        if root is None:
            return []
        outer = roles is not None and set(roles) <= set(OUTER_ROLES)
        return [node for node in walk(root, showing, OUTER_PARENT_ROLES if outer else None)
                if (roles is None or role_of(node) in roles)
                and (name is None or matches(name_of(node), name))
                and (where is None or where(node))]

    def find(self, role=None, name=None, parent=None, showing=True, timeout=DEFAULT_TIMEOUT,
             where=None):
        """The first match, waited for; complains with the tree if there is none."""
        def first():
            matches = self.find_all(role, name, parent, showing, where)
            return matches[0] if matches else None

        def complaint():
            wanted = " ".join(str(part) for part in (
                role or "anything",
                "" if name is None else f"named {getattr(name, 'pattern', name)!r}") if part)
            if not self.is_running():
                return (f"{wanted} not found: the program has ended with status "
                        f"{self.exit_status}\n{self.stderr_text()}")
            return f"{wanted} not found in:\n{self.dump(parent)}\n"

        return wait_for(first, complaint, timeout)

    def window(self, title=None, timeout=DEFAULT_TIMEOUT):
        """A window by its title, a child window too; without title, the main one."""
        return self.find("frame", title, timeout=timeout)

    def dialog(self, title, timeout=DEFAULT_TIMEOUT, active=True):
        """An open dialog; waits, unless told otherwise, until it has the focus."""
        node = self.find(DIALOG_ROLES, title, timeout=timeout)
        if active:
            self.wait_active(node)
        return node

    def dialogs(self):
        """The titles of all dialogs and message boxes on the screen."""
        return [plain(name_of(node)) for node in self.find_all(DIALOG_ROLES)]

    def wait_active(self, window, timeout=DEFAULT_TIMEOUT):
        """Waits until a window has the keyboard."""
        wait_for(lambda: is_active(window),
                 lambda: f"{describe(window)} does not become active\n{self.dump()}", timeout)

    def wait_gone(self, node, timeout=DEFAULT_TIMEOUT):
        """Waits until something is no longer on the screen."""
        wait_for(lambda: not self.is_running() or not is_showing(node),
                 lambda: f"{describe(node)} stays on the screen\n{self.dump()}", timeout)

    def message_box(self, title, timeout=DEFAULT_TIMEOUT):
        return MessageBox(self, self.dialog(title, timeout))

    def file_dialog(self, title, timeout=DEFAULT_TIMEOUT):
        return FileDialog(self, self.dialog(title, timeout))

    def button(self, parent, caption, timeout=DEFAULT_TIMEOUT):
        return self.find(("push button", "toggle button"), caption, parent, timeout=timeout)

    def checkbox(self, parent, caption, timeout=DEFAULT_TIMEOUT):
        return self.find("check box", caption, parent, timeout=timeout)

    def label(self, parent, text, timeout=DEFAULT_TIMEOUT):
        return self.find("label", text, parent, timeout=timeout)

    def text_field(self, parent, name, timeout=DEFAULT_TIMEOUT):
        """A text field by its accessible name, or by its label's text.

        Whether a label's colon is part of the name does not matter.
        """
        if isinstance(name, str):
            name = re.compile("^" + re.escape(plain(name).rstrip(":")) + ":?$")
        return self.find(TEXT_ROLES, name, parent, timeout=timeout)

    def combo_box(self, parent, label, timeout=DEFAULT_TIMEOUT):
        """A combo box by its label's text: its own name is what it has chosen."""
        wanted = re.compile("^" + re.escape(plain(label).rstrip(":")) + ":?$")
        return self.find("combo box", parent=parent, timeout=timeout,
                         where=lambda node: any(matches(text, wanted)
                                                for text in labels_of(node)))

    # -- acting --------------------------------------------------------------

    def _resting_place(self, node):
        """Where a node is, once it no longer moves."""
        seen = [None]

        def at_rest():
            try:
                place = self.desktop.place_of(node)
            except GLib.Error:
                return None
            previous, seen[0] = seen[0], place
            return place if place == previous and place[2] > 0 and place[3] > 0 else None

        return wait_for(at_rest, lambda: f"{describe(node)} has no place on the screen")

    def centre_of(self, node):
        x, y, width, height = self._resting_place(node)
        x, y = x + width // 2, y + height // 2
        if not (0 <= x < self.desktop.size[0] and 0 <= y < self.desktop.size[1]):
            raise HarnessError(f"{describe(node)} is off the screen, at {x},{y}")
        return x, y

    def click(self, node, button=1):
        """Clicks the middle of a node with the mouse."""
        self.desktop.click_at(*self.centre_of(node), button)

    def key(self, *combinations):
        self.desktop.key(*combinations)

    def type_text(self, text):
        self.desktop.type_text(text)

    def set_text(self, node, text):
        """Replaces what a text field holds, by typing."""
        self.focus(node)
        self.key("Ctrl+A")
        if text:
            self.type_text(text)
        else:
            self.key("Delete")
        wait_for(lambda: text_of(node) == text,
                 lambda: f"typed {text!r}, but the field holds {text_of(node)!r}")

    def focus(self, node):
        """Gives a node the keyboard by a click."""
        if not has_state(node, "focused"):
            self.click(node)
        wait_for(lambda: has_state(node, "focused"),
                 lambda: f"{describe(node)} does not take the focus\n{self.dump()}")

    def x_window(self, window):
        """The X window of a window or dialog, for screenshots and its frame."""
        place = self._resting_place(window)
        # By its place: Qt may add the program's name to the title that the
        # window manager gets.
        for candidate in self.desktop.xdotool("search", "--all", "--onlyvisible", "--pid",
                                              self.pid, "--name", "").split():
            answer = self.desktop.run_tool("xwininfo", "-id", candidate).stdout
            numbers = re.findall(r"(?:Absolute upper-left [XY]|Width|Height): +(-?\d+)", answer)
            if tuple(map(int, numbers)) == place:
                return candidate
        raise HarnessError(f"no X window for {describe(window)} at {place}")

    def close_box(self, window):
        """Clicks the close box in the frame that the window manager has drawn."""
        x, y, width, _ = self._resting_place(window)
        answer = self.desktop.run_tool("xprop", "-id", self.x_window(window),
                                   "_NET_FRAME_EXTENTS").stdout
        match = re.search(r"= (\d+), (\d+), (\d+), (\d+)", answer)
        if not match:
            raise HarnessError(f"{describe(window)} has no frame: {answer}")
        top = int(match.group(3))
        # A square at the right end of the title bar.
        self.desktop.click_at(x + width - top // 2, y - top // 2)

    def screenshot(self, path, window=None):
        """A picture of one window, or of the whole screen."""
        return self.desktop.screenshot(path, self.x_window(window) if window else "root")

    # -- menus ---------------------------------------------------------------

    def menu(self, *path, by="mouse"):
        """Chooses an entry of the menu bar: menu("File", "Open"); see `MenuBar.choose`."""
        MenuBar(self).choose(*path, by=by)

    def menu_items(self, *path):
        """The entries of a menu of the menu bar."""
        return MenuBar(self).items(*path)

    def popup(self, timeout=DEFAULT_TIMEOUT):
        """The context menu that is open."""
        return open_popup(self, timeout)
