"""End-to-end harness: drives a real Qt program the way a person does.

A `Desktop` is a private X display with its own session bus, accessibility bus
and window manager.  A `Program` is an executable started on it.  What is on
the screen is looked up through AT-SPI, the accessibility interface; the hands
are xdotool's, so that every click and key press goes through the X server, the
window manager and Qt's own event handling.

    desktop = Desktop().start()
    with Program(desktop, ["/path/to/quor"]) as quor:
        quor.menu("File", "New")
        dialog = quor.dialog("New")
        quor.set_text(quor.text_field(dialog, "Name:"), "Maria")
        quor.click(quor.button(dialog, "Ok"))

libatspi looks its bus up once and keeps it for the life of the process.  The
desktop must therefore be started before anything touches Atspi (which is why
the import is in `Desktop.start`), and there can be one desktop a process only.
Tests run as one process a file, with the desktop started in setUpModule.

Nothing here waits for a fixed time and hopes: everything is polled for until
it is true, for a bounded time.
"""

import atexit
import ctypes
import os
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from dataclasses import dataclass
from typing import Any

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

Atspi: Any = None  # imported by Desktop.start, see the module's text above

DEFAULT_TIMEOUT = 5.0
POLL_INTERVAL = 0.03

# Two clicks on the same spot within this time would be taken for a double
# click; Qt's own limit is 0.4 s.
DOUBLE_CLICK_TIME = 0.45
DOUBLE_CLICK_DISTANCE = 12

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


class HarnessError(AssertionError):
    """What was expected on the screen did not happen."""


# --------------------------------------------------------------------------
# Waiting
# --------------------------------------------------------------------------

def pump_events():
    """Delivers pending AT-SPI events; libatspi hands them to GLib's main loop."""
    if Atspi is None:
        return
    context = GLib.MainContext.default()
    while context.pending():
        context.iteration(False)


def poll(condition, timeout=DEFAULT_TIMEOUT):
    """Calls `condition` until it returns something true; returns its last answer."""
    deadline = time.monotonic() + timeout
    while True:
        pump_events()
        answer = condition()
        if answer or time.monotonic() >= deadline:
            return answer
        time.sleep(POLL_INTERVAL)


def wait_for(condition, what, timeout=DEFAULT_TIMEOUT):
    """Like `poll`, but complains when the condition stays false.

    `what` is the complaint, or a function that makes it up.
    """
    answer = poll(condition, timeout)
    if not answer:
        text = what() if callable(what) else what
        raise HarnessError(f"{text} (waited {timeout:g} s)")
    return answer


# --------------------------------------------------------------------------
# Processes
# --------------------------------------------------------------------------

_libc = ctypes.CDLL(None, use_errno=True)
_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36


def _spawn(argv, environment, signal_at_our_death, **options):
    """Starts a process in a group of its own.

    It gets the signal when this process is killed: a test run that ends by
    force must not leave anything behind.
    """
    def bind_to_parent():
        _libc.prctl(_PR_SET_PDEATHSIG, signal_at_our_death)

    return subprocess.Popen(argv, env=environment, stdin=subprocess.DEVNULL,
                            start_new_session=True, preexec_fn=bind_to_parent, **options)


def _stop_process(process, grace=3.0):
    """Ends a process started by `_spawn`, with its whole process group."""
    def signal_group(number):
        try:
            os.killpg(process.pid, number)
        except (ProcessLookupError, PermissionError):
            pass

    if process.poll() is None:
        signal_group(signal.SIGTERM)
        try:
            process.wait(grace)
        except subprocess.TimeoutExpired:
            signal_group(signal.SIGKILL)
            process.wait(grace)
    signal_group(signal.SIGKILL)  # whatever remains of its group


def _processes_with(marker):
    """Ids of the live processes whose environment contains `marker`."""
    found = []
    for entry in os.listdir("/proc"):
        if not entry.isdigit() or int(entry) == os.getpid():
            continue
        try:
            with open(f"/proc/{entry}/environ", "rb") as file:
                if marker in file.read().split(b"\0"):
                    found.append(int(entry))
        except OSError:
            pass  # gone meanwhile, or somebody else's
    return found


def _reap(pid):
    """Collects the exit status of an adopted orphan; True when there is none left."""
    try:
        return os.waitpid(pid, os.WNOHANG)[0] == pid
    except ChildProcessError:
        return True


# --------------------------------------------------------------------------
# Desktop
# --------------------------------------------------------------------------

# Only what a test needs, so that no key press or click is caught by a binding
# of the window manager that the program under test does not expect.
_OPENBOX_CONFIGURATION = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <theme>
    <name>Clearlooks</name><titleLayout>LC</titleLayout>
    <animateIconify>no</animateIconify>
  </theme>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
  </keyboard>
  <mouse>
    <context name="Titlebar">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
    <context name="Close">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
      <mousebind button="Left" action="Click"><action name="Close"/></mousebind>
    </context>
    <context name="Client">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
      <mousebind button="Right" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
    </context>
  </mouse>
</openbox_config>
"""

# No service directories: nothing of the machine's own session (portals,
# settings daemons) can be activated on this bus.
_SESSION_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir={directory}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# What can be typed on the Italian layout without further ado, as part of a
# character class.
_ON_THE_KEYBOARD = r" -~àèéìòùç§°£€"

_BUS_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher",
                  "/usr/lib/at-spi2-core/at-spi-bus-launcher")

# Variables of the surrounding session that change how a program looks or
# behaves, or that lead it out of the private desktop.
_FOREIGN_VARIABLES = re.compile(
    r"(QT_|XDG_|LC_|GTK_|KDE_|GNOME_|DBUS_|AT_SPI_|WAYLAND_|XKB_|XMODIFIERS|XAUTHORITY"
    r"|LANG$|LANGUAGE$|DESKTOP_SESSION$|DISPLAY$|SESSION_MANAGER$|NO_AT_BRIDGE$)")


class Desktop:
    """A private X display with buses and a window manager.

    Everything it starts is ended by `stop`, which also runs at exit.
    """

    _started_in_this_process = False

    def __init__(self, size=(1280, 1024), depth=24, locale="C.UTF-8"):
        self.size = size
        self.depth = depth
        self.locale = locale
        self.directory = None
        self.environment = {}
        self.display = None
        self._servers = []
        self._saved_environment = {}
        self._homes = 0
        self._listener = None
        self._shown_popups = []
        self._last_click = (0.0, -1000, -1000)

    def __enter__(self):
        return self.start()

    def __exit__(self, *exception):
        self.stop()

    # -- life ----------------------------------------------------------------

    def start(self):
        if Desktop._started_in_this_process:
            raise RuntimeError("only one Desktop can be started in a process")
        Desktop._started_in_this_process = True
        # Services started by the buses become our children when their parent
        # ends, so that `stop` can collect them.
        _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1)
        self.directory = tempfile.mkdtemp(prefix="quor-e2e-")
        atexit.register(self.stop)
        # A polite end runs through the clean-up code, as Ctrl+C does.
        if signal.getsignal(signal.SIGTERM) == signal.SIG_DFL:
            signal.signal(signal.SIGTERM, signal.default_int_handler)
        try:
            self._start_servers()
            self._start_atspi()
        except BaseException:
            self.stop()
            raise
        return self

    def _start_servers(self):
        runtime = self._make_directory("run")
        self._log = open(self.path("servers.log"), "wb")
        # The runtime directory is unique, which makes it the mark by which
        # `stop` recognises every process of this desktop.
        environment = {name: value for name, value in os.environ.items()
                       if not _FOREIGN_VARIABLES.match(name)}
        environment.update(LC_ALL=self.locale, XDG_RUNTIME_DIR=runtime,
                           GSETTINGS_BACKEND="memory")
        environment.update(self._home_variables(self.new_home()))
        self.environment = environment

        self.display = environment["DISPLAY"] = self._start_x_server()
        # A character that the keyboard lacks costs a change of its layout for
        # every single press, which programs follow with a delay.  The letters
        # of Italian texts, at least, are to have keys of their own.
        result = self._run("setxkbmap", "it")
        if result.returncode != 0:
            raise HarnessError(f"setxkbmap: {result.stderr}")

        address = self._start_session_bus()
        environment["DBUS_SESSION_BUS_ADDRESS"] = address

        launcher = next((path for path in _BUS_LAUNCHERS if os.path.exists(path)), None)
        if launcher is None:
            raise HarnessError("at-spi-bus-launcher is missing (package at-spi2-core)")
        self._serve([launcher, "--launch-immediately"])
        wait_for(lambda: self._accessibility_bus_answers(address),
                 lambda: "the accessibility bus does not answer\n" + self.log_text())

        configuration = self.path("openbox.xml")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(_OPENBOX_CONFIGURATION)
        self._serve(["openbox", "--sm-disable", "--config-file", configuration])
        wait_for(lambda: self._run("xdotool", "get_num_desktops").returncode == 0,
                 lambda: "the window manager does not answer\n" + self.log_text())

    def _serve(self, argv, **options):
        options.setdefault("stdout", self._log)
        # SIGTERM, because the bus launcher must end its own bus and Xvfb remove
        # its lock file.
        process = _spawn(argv, self.environment, signal.SIGTERM, stderr=self._log, **options)
        self._servers.append(process)
        return process

    def _start_x_server(self):
        width, height = self.size
        reading, writing = os.pipe()
        try:
            self._serve(["Xvfb", "-displayfd", str(writing), "-nolisten", "tcp", "-noreset",
                         "-dpi", "96", "-screen", "0", f"{width}x{height}x{self.depth}"],
                        pass_fds=(writing,))
        finally:
            os.close(writing)
        return ":" + self._read_line(reading, "Xvfb's display number")

    def _start_session_bus(self):
        configuration = self.path("session-bus.conf")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(_SESSION_BUS_CONFIGURATION.format(
                directory=self.environment["XDG_RUNTIME_DIR"]))
        process = self._serve(["dbus-daemon", "--config-file", configuration, "--nofork",
                               "--nopidfile", "--print-address"], stdout=subprocess.PIPE)
        with process.stdout as pipe:
            return self._read_line(os.dup(pipe.fileno()), "the session bus address")

    def _read_line(self, descriptor, what):
        """Reads the one line that a server announces itself with."""
        with open(descriptor, "rb", buffering=0) as pipe:
            line = b""
            deadline = time.monotonic() + 10
            while not line.endswith(b"\n"):
                left = max(0, deadline - time.monotonic())
                chunk = pipe.read(4096) if select.select([pipe], [], [], left)[0] else b""
                if not chunk:
                    raise HarnessError(f"{what} did not come\n" + self.log_text())
                line += chunk
        return line.decode().strip()

    @staticmethod
    def _accessibility_bus_answers(address):
        try:
            connection = Gio.DBusConnection.new_for_address_sync(
                address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
                | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
            connection.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                 "GetAddress", None, None, Gio.DBusCallFlags.NONE, 1000, None)
            connection.close_sync(None)
        except GLib.Error:
            return False
        return True

    def _start_atspi(self):
        global Atspi
        for name in [name for name in os.environ if _FOREIGN_VARIABLES.match(name)]:
            self._saved_environment[name] = os.environ.pop(name)
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[name] = self.environment[name]
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi as atspi
        Atspi = atspi
        Atspi.init()
        Atspi.set_timeout(3000, 3000)
        # Qt sends an event only if somebody has asked for it, and a popup menu
        # can be found in no other way (see Program.popup).
        self._listener = Atspi.EventListener.new(self._on_event, None)
        self._listener.register("object:state-changed:showing")
        self._listener.register("object:state-changed:focused")
        # Nothing that the tree answers is to be remembered: a program under
        # test changes it at every moment.
        wait_for(self._registry, "the AT-SPI registry does not answer")

    @staticmethod
    def _registry():
        root = Atspi.get_desktop(0)
        if root is not None:
            root.set_cache_mask(Atspi.Cache.NONE)
        return root

    def _on_event(self, event, _data):
        source = event.source
        for node in (source, parent_of(source)):
            if node is not None and role_of(node) in ("popup menu", "menu"):
                self._shown_popups.append(node)
                del self._shown_popups[:-20]

    def stop(self):
        """Ends everything that was started and removes the temporary files."""
        if self.directory is None:
            return
        global Atspi
        directory, self.directory = self.directory, None
        marker = b"XDG_RUNTIME_DIR=" + os.path.join(directory, "run").encode()
        self._shown_popups.clear()
        if self._listener is not None:
            try:
                self._listener.deregister("object:state-changed:showing")
                self._listener.deregister("object:state-changed:focused")
            except GLib.Error:
                pass
            self._listener = None
        if Atspi is not None:
            Atspi.exit()
            Atspi = None
        # Besides the servers, what the buses had activated, and programs of a
        # test that went wrong.  Noted while alive: the dead have no environment.
        servers = {process.pid for process in self._servers}
        leftovers = set(_processes_with(marker)) - servers
        for process in reversed(self._servers):
            _stop_process(process)
        self._servers.clear()

        def all_gone(number):
            alive = _processes_with(marker)
            leftovers.update(alive)
            for pid in alive:
                try:
                    os.kill(pid, number)
                except ProcessLookupError:
                    pass
            leftovers.difference_update([pid for pid in leftovers if _reap(pid)])
            return not leftovers

        if not poll(lambda: all_gone(signal.SIGTERM), 1.5):
            poll(lambda: all_gone(signal.SIGKILL), 3)
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ.pop(name, None)
        os.environ.update(self._saved_environment)
        self._log.close()
        shutil.rmtree(directory, ignore_errors=True)

    # -- files ---------------------------------------------------------------

    def path(self, name):
        """The path of a file of this name in the desktop's temporary folder."""
        return os.path.join(self.directory, name)

    def _make_directory(self, name):
        directory = self.path(name)
        os.makedirs(directory, mode=0o700)
        return directory

    def new_home(self):
        """A new empty home folder: no settings, no recent files."""
        self._homes += 1
        return self._make_directory(f"home{self._homes}")

    @staticmethod
    def _home_variables(home):
        return {"HOME": home,
                "XDG_CONFIG_HOME": os.path.join(home, ".config"),
                "XDG_DATA_HOME": os.path.join(home, ".local/share"),
                "XDG_STATE_HOME": os.path.join(home, ".local/state"),
                "XDG_CACHE_HOME": os.path.join(home, ".cache")}

    def log_text(self):
        """What the servers have written so far."""
        self._log.flush()
        with open(self._log.name, encoding="utf-8", errors="replace") as file:
            return file.read()

    # -- hands ---------------------------------------------------------------

    def _run(self, *argv):
        # xdotool turns its arguments into key presses by the locale's encoding.
        return subprocess.run(argv, env={**self.environment, "LC_ALL": "C.UTF-8"},
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, timeout=30)

    def xdotool(self, *arguments):
        result = self._run("xdotool", *map(str, arguments))
        if result.returncode != 0:
            raise HarnessError(f"xdotool {' '.join(map(str, arguments))}: {result.stderr}")
        return result.stdout.strip()

    def click_at(self, x, y, button=1):
        """One click at a place of the screen, never half of a double click."""
        self._outwait_double_click(x, y)
        # Coming from somewhere else makes sure that the pointer really moves:
        # menus ignore a click without a movement before.
        self.xdotool("mousemove", x - 3, y - 2, "mousemove", x, y, "click", button)
        self._last_click = (time.monotonic(), x, y)

    def double_click_at(self, x, y):
        self._outwait_double_click(x, y)
        self.xdotool("mousemove", x - 3, y - 2, "mousemove", x, y,
                     "click", "--repeat", 2, "--delay", 40, 1)
        self._last_click = (time.monotonic(), x, y)

    def move_to(self, x, y):
        self.xdotool("mousemove", x - 3, y - 2, "mousemove", x, y)

    def _outwait_double_click(self, x, y):
        when, last_x, last_y = self._last_click
        if max(abs(x - last_x), abs(y - last_y)) < DOUBLE_CLICK_DISTANCE:
            poll(lambda: time.monotonic() - when > DOUBLE_CLICK_TIME)

    _KEY_NAMES = {"control": "ctrl", "enter": "Return", "return": "Return", "esc": "Escape",
                  "escape": "Escape", "del": "Delete", "delete": "Delete", "ins": "Insert",
                  "pgup": "Prior", "pageup": "Prior", "pgdown": "Next", "pagedown": "Next",
                  "backspace": "BackSpace", "tab": "Tab", "home": "Home", "end": "End",
                  "up": "Up", "down": "Down", "left": "Left", "right": "Right",
                  "ctrl": "ctrl", "alt": "alt", "shift": "shift", "space": "space"}

    def key(self, *combinations):
        """Presses key combinations written the usual way: "Alt+F4", "Ctrl+A"."""
        for combination in combinations:
            parts = [self._KEY_NAMES.get(part.lower(), part)
                     for part in combination.split("+")]
            # "Ctrl+A" is the key that bears an A, not a capital letter.
            if len(parts) > 1 and len(parts[-1]) == 1:
                parts[-1] = parts[-1].lower()
            self.xdotool("key", "+".join(parts))

    def type_text(self, text):
        """Types into whatever has the focus."""
        for common, rare in re.findall(f"([{_ON_THE_KEYBOARD}]+)|(.)", text, re.DOTALL):
            if common:
                self.xdotool("type", "--delay", 8, "--", common)
            elif rare in "\n\t":
                self.key({"\n": "Return", "\t": "Tab"}[rare])
            else:
                self._type_rare(rare)

    def _type_rare(self, character):
        # xdotool puts other characters on a spare key, one after the other,
        # and the program must read each one before the next.  The X server
        # gives such a key the small letter too, unasked.
        shift = character.isupper()
        try:
            if shift:
                self.xdotool("keydown", "shift")
            self.xdotool("type", "--delay", 150, "--", character)
        finally:
            if shift:
                self.xdotool("keyup", "shift")

    def screenshot(self, path, window="root"):
        """Takes a picture of the screen or of an X window.

        Returns False where ImageMagick is not installed: a picture of a
        failure helps people who look for its cause, but is not needed.
        """
        if shutil.which("import") is None:
            return False
        return self._run("import", "-window", str(window), str(path)).returncode == 0

    def pixels(self, x, y, width, height):
        """The colours of a part of the screen: rows of (red, green, blue), 0..255.

        Needs ImageMagick.
        """
        result = subprocess.run(
            ["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage",
             "-depth", "8", "rgb:-"], env=self.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=30)
        if len(result.stdout) != 3 * width * height:
            raise HarnessError(f"import: {result.stderr.decode(errors='replace')}")
        samples = iter(result.stdout)
        flat = list(zip(samples, samples, samples))
        return [flat[row * width:(row + 1) * width] for row in range(height)]


# --------------------------------------------------------------------------
# Nodes of the accessibility tree
# --------------------------------------------------------------------------
#
# A node is a plain Atspi.Accessible.  It may vanish at any moment, which
# libatspi reports as a GLib.Error; these functions answer then as for
# something that is not there.

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


def _matches(value, wanted):
    """Compares a caption with a string (equal) or a compiled pattern (search)."""
    if isinstance(wanted, re.Pattern):
        return wanted.search(plain(value)) is not None
    return plain(value) == plain(wanted)


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


# --------------------------------------------------------------------------
# Program
# --------------------------------------------------------------------------

class Program:
    """A running program and what it has on the screen.

    As a context manager it demands that the program has ended by itself, with
    no crash, when the block is left: a test that does not care calls
    `terminate` as its last act.
    """

    def __init__(self, desktop, argv, env=None, home=None, timeout=20):
        """Starts `argv` and waits until it answers.

        Its home folder is new and empty unless `home` gives one; it is also
        the current folder.  `env` adds to the environment, a value of None
        takes a variable away.
        """
        self.desktop = desktop
        self.argv = [str(argument) for argument in argv]
        self.home = home or desktop.new_home()
        environment = {**desktop.environment, **desktop._home_variables(self.home),
                       "QT_ACCESSIBILITY": "1", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
                       "QT_QPA_PLATFORM": "xcb"}
        for name, value in (env or {}).items():
            if value is None:
                environment.pop(name, None)
            else:
                environment[name] = str(value)
        self._death_was_wanted = False
        desktop._shown_popups.clear()
        descriptor, self._stderr_path = tempfile.mkstemp(dir=desktop.directory,
                                                         prefix="stderr-")
        with open(descriptor, "wb") as file:
            self._process = _spawn(self.argv, environment, signal.SIGKILL, cwd=self.home,
                                   stdout=file, stderr=file)
        try:
            wait_for(lambda: self.application() is not None or not self.is_running(),
                     lambda: f"{self.argv[0]} did not register for accessibility\n"
                     + self.stderr_text(), timeout)
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
        """Kills the program; complains if it was still there, or had crashed."""
        left_running = self.is_running()
        self.kill()
        if left_running:
            raise HarnessError(f"{self.argv[0]} was left running")
        if self.exit_status < 0 and not self._death_was_wanted:
            name = signal.Signals(-self.exit_status).name
            raise HarnessError(f"{self.argv[0]} died of {name}\n{self.stderr_text()}")

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
        _stop_process(self._process)

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
        root = self.desktop._registry()
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
        return dump(node, showing) if node is not None else "(no application)"

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
                and (name is None or _matches(name_of(node), name))
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

    def radio_button(self, parent, caption, timeout=DEFAULT_TIMEOUT):
        return self.find("radio button", caption, parent, timeout=timeout)

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
                         where=lambda node: any(_matches(text, wanted)
                                                for text in labels_of(node)))

    # -- acting --------------------------------------------------------------

    def _resting_place(self, node):
        """Where a node is, once it no longer moves."""
        seen = [None]

        def at_rest():
            try:
                place = extents_of(node)
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

    def double_click(self, node):
        self.desktop.double_click_at(*self.centre_of(node))

    def activate(self, node, action=0):
        """Does what the node offers for assistive tools, without the mouse."""
        if not Atspi.Action.do_action(node, action):
            raise HarnessError(f"{describe(node)} refuses its action")

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
            answer = self.desktop._run("xwininfo", "-id", candidate).stdout
            numbers = re.findall(r"(?:Absolute upper-left [XY]|Width|Height): +(-?\d+)", answer)
            if tuple(map(int, numbers)) == place:
                return candidate
        raise HarnessError(f"no X window for {describe(window)} at {place}")

    def close_box(self, window):
        """Clicks the close box in the frame that the window manager has drawn."""
        x, y, width, _ = self._resting_place(window)
        answer = self.desktop._run("xprop", "-id", self.x_window(window),
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
        """Chooses an entry of the menu bar: menu("File", "Open").

        `by` is "mouse" or "keys"; keys means Alt and the menu's access key,
        then the entries' access keys, or the arrow keys where an entry's
        access key is not known.
        """
        entry = self._open_menu(path[0], by)
        for caption in path[1:]:
            parent, entry = entry, self._menu_entry(entry, caption)
            if by == "mouse":
                self.click(entry)
            else:
                self._choose_by_key(entry, parent)

    def menu_items(self, *path):
        """Opens a menu of the menu bar, lists its entries, closes it again."""
        entry = self._open_menu(path[0], "mouse")
        for caption in path[1:]:
            entry = self._menu_entry(entry, caption)
            self.click(entry)
        items = wait_for(lambda: self._entries_below(entry),
                         lambda: f"menu {path} does not open\n{self.dump()}")
        for _ in path:
            self.key("Escape")
        wait_for(lambda: not self._entries_below(entry), f"menu {path} does not close")
        return items

    def _open_menu(self, caption, by):
        bar = self.find("menu bar")
        entry = self.find(MENU_ITEM_ROLES + ("menu",), caption, bar)
        if by == "mouse":
            self.click(entry)
        else:
            key = self._access_key(entry)
            if key is None:
                raise HarnessError(f"{describe(entry)} has no access key")
            self._press_alt_and(key, lambda: self._entries_below(entry))
        return entry

    def _press_alt_and(self, key, opens):
        """Presses Alt and a letter until the menu is open and stays so.

        Qt hands each key on by way of the accessibility bus, but takes an
        access key at once. An Alt that comes after its letter shuts the menu
        again, on a busy machine as often as not: it gets time to arrive.
        """
        for _ in range(5):
            self.desktop.xdotool("keydown", "alt")
            try:
                for _ in range(3):
                    self.window()  # asks the program, by the same bus
                self.desktop.xdotool("key", key)
            finally:
                self.desktop.xdotool("keyup", "alt")
            if poll(opens, 1) and not poll(lambda: not opens(), 0.3):
                return
            self.key("Escape")
        raise HarnessError(f"Alt and {key!r} open no menu\n{self.dump()}")

    @staticmethod
    def _entries_below(entry):
        """The entries of the menu that an entry opens; none while it is closed.

        Qt puts the popup between the two: menu item, popup menu, menu item.
        """
        items = _items_of(entry)
        for child in children_of(entry):
            if role_of(child) in ("popup menu", "menu") and is_showing(child):
                items += _items_of(child)
        return items

    def _menu_entry(self, parent, caption):
        def find():
            return next((item for item in self._entries_below(parent)
                         if _matches(item.caption, caption)), None)

        item = wait_for(find, lambda: f"no entry {caption!r} in the open menu "
                        f"{name_of(parent)!r}, which has "
                        f"{[entry.caption for entry in self._entries_below(parent)]}\n")
        if not item.enabled:
            raise HarnessError(f"menu entry {caption!r} is disabled")
        return item.node

    @staticmethod
    def _access_key(entry):
        """The letter behind Alt, which AT-SPI gives as "Alt+F"; None if not known.

        Of an entry with a shortcut Qt tells that instead.
        """
        binding = Atspi.Action.get_key_binding(entry, 0) or ""
        match = re.search(r"^Alt\+(\S)$", binding)
        return match.group(1).lower() if match else None

    def _choose_by_key(self, entry, parent):
        """Chooses an entry of the open menu of `parent` without the mouse."""
        key = self._access_key(entry)
        if key:
            self.key(key)
        else:
            def selected():
                return [has_state(item.node, "focused")
                        for item in self._entries_below(parent)]

            for _ in self._entries_below(parent):
                if has_state(entry, "focused"):
                    break
                before = selected()
                self.key("Down")
                poll(lambda before=before: selected() != before, 1)
            wait_for(lambda: has_state(entry, "focused"),
                     lambda: f"the arrow keys do not reach {describe(entry)}\n{self.dump()}")
            self.key("Enter")
        wait_for(lambda: self._entries_below(entry) or not self._entries_below(parent),
                 lambda: f"{describe(entry)} is not chosen by its key; do several entries "
                 f"share {key!r}?\n{self.dump()}")

    def popup(self, timeout=DEFAULT_TIMEOUT):
        """The context menu that is open.

        Qt leaves popup windows out of the application's list of windows, so
        a context menu cannot be found by walking the tree; it is known from
        the events that its appearance has caused.
        """
        def last_open():
            for node in reversed(self.desktop._shown_popups):
                if is_showing(node) and _items_of(node):
                    return node
            return None

        return Popup(self, wait_for(last_open, "no context menu has opened", timeout))

    def popup_items(self, timeout=DEFAULT_TIMEOUT):
        """The entries of the open context menu."""
        return self.popup(timeout).items()


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
        item = next((item for item in self.items() if _matches(item.caption, caption)), None)
        if item is None:
            raise HarnessError(f"no entry {caption!r} among {self.captions()}")
        if not item.enabled:
            raise HarnessError(f"entry {caption!r} is disabled")
        self.program.click(item.node)

    def dismiss(self):
        self.program.key("Escape")
        self.program.wait_gone(self.node)


class MessageBox:
    """A message box: its text, its buttons."""

    def __init__(self, program, node):
        self.program = program
        self.node = node
        # The icon is a label too, with no text.
        labels = [name_of(label) for label in program.find_all("label", parent=node)]
        self.text = "\n".join(text for text in labels if text)
        self.buttons = [plain(name_of(button))
                        for button in program.find_all("push button", parent=node)]

    @property
    def title(self):
        return plain(name_of(self.node))

    def press(self, caption):
        """Clicks a button and waits until the box is gone."""
        self.program.click(self.program.button(self.node, caption))
        self.program.wait_gone(self.node)


class FileDialog:
    """Qt's own file dialog."""

    def __init__(self, program, node):
        self.program = program
        self.node = node

    def choose(self, path):
        """Types a path as the file's name and accepts it.

        Returns when the dialog has either closed or put a question of its own
        in front of itself.
        """
        field = self.program.find(TEXT_ROLES, parent=self.node,
                                  where=lambda node: not is_read_only(node))
        self.program.set_text(field, str(path))
        self.program.key("Enter")
        wait_for(lambda: not self.program.is_running() or not is_showing(self.node)
                 or not is_active(self.node),
                 lambda: f"the file dialog does not accept {path}\n{self.program.dump()}")

    def cancel(self):
        self.program.key("Escape")
        self.program.wait_gone(self.node)


# --------------------------------------------------------------------------
# Test cases
# --------------------------------------------------------------------------

def settings_file(home):
    """Where the program keeps its settings."""
    return os.path.join(home, ".config", "quor.ini")


class ProgramTestCase(unittest.TestCase):
    """A test that starts the program whose path QUOR_PROGRAM gives.

    The program must have ended, with no crash, when the test is over.  When a
    test fails, what the program showed and wrote goes to stderr; a picture of
    the screen is saved in the folder that QUOR_E2E_ARTIFACTS names, if it does.
    """

    def run(self, result=None):
        self._result = result if result is not None else self.defaultTestResult()
        self._failures_before = self._failure_count()
        return super().run(self._result)

    def _failure_count(self):
        return len(self._result.failures) + len(self._result.errors)

    def start_program(self, desktop, *arguments, path=None, first_start=False, **options):
        """A Program; `options` are those of its constructor.

        `path` is another program than QUOR_PROGRAM, such as a copy of it.

        Its settings keep the fast-start window from greeting, unless there are
        settings already, or none are wanted as at the `first_start`.
        """
        path = path or os.environ.get("QUOR_PROGRAM")
        self.assertTrue(path, "QUOR_PROGRAM must give the path of the program")
        options.setdefault("home", desktop.new_home())
        settings = settings_file(options["home"])
        if not first_start and not os.path.exists(settings):
            os.makedirs(os.path.dirname(settings), exist_ok=True)
            with open(settings, "w", encoding="utf-8") as file:
                file.write("[Options]\nFastStart=FALSE\n")
        program = Program(desktop, [path, *arguments], **options)
        self.addCleanup(self._finish, program)
        return program

    def _finish(self, program):
        if self._failure_count() == self._failures_before:
            program.finish()
            return
        # The test has failed for a reason of its own: a program left running
        # is no news then.
        print(f"\n{self.id()} has failed.", file=sys.stderr)
        if program.is_running():
            print(program.dump(), file=sys.stderr)
            directory = os.environ.get("QUOR_E2E_ARTIFACTS")
            if directory:
                os.makedirs(directory, exist_ok=True)
                program.screenshot(os.path.join(directory, self.id() + ".png"))
        else:
            print(f"The program ended with status {program.exit_status}.", file=sys.stderr)
        print(program.stderr_text(), file=sys.stderr)
        program.kill()
