"""A private display with all that programs on it need."""

import atexit
import os
import shutil
import signal
import tempfile

from . import atspi
from .hands import Hands
from .nodes import extents_of, parent_of, role_of
from .servers import Servers, is_foreign
from .waiting import wait_for

# What libatspi and the tools find the desktop by.
_OUR_VARIABLES = ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR")


def home_variables(home):
    """The variables of the environment that make a folder the home of a program."""
    return {"HOME": home,
            "XDG_CONFIG_HOME": os.path.join(home, ".config"),
            "XDG_DATA_HOME": os.path.join(home, ".local/share"),
            "XDG_STATE_HOME": os.path.join(home, ".local/state"),
            "XDG_CACHE_HOME": os.path.join(home, ".cache")}


class Desktop(Hands):
    """A private X display with buses and a window manager, and hands on it.

    Everything it starts is ended by `stop`, which also runs at exit.  There
    can be one in a process only, as libatspi knows a single bus.
    """

    # What the environment of a program on it has besides.
    session_variables = {"QT_QPA_PLATFORM": "xcb"}

    _started_in_this_process = False

    def __init__(self, size=(1280, 1024)):
        super().__init__(size)
        self.directory = None
        self.shown_popups = []  # menus that have appeared, the latest last
        self._servers = None
        self._saved_environment = {}
        self._homes = 0

    def start(self):
        if Desktop._started_in_this_process:
            raise RuntimeError("only one Desktop can be started in a process")
        Desktop._started_in_this_process = True
        self.directory = tempfile.mkdtemp(prefix="quor-e2e-")
        atexit.register(self.stop)
        # A polite end runs through the clean-up code, as Ctrl+C does.
        if signal.getsignal(signal.SIGTERM) == signal.SIG_DFL:
            signal.signal(signal.SIGTERM, signal.default_int_handler)
        try:
            self._servers = Servers(self.directory, self.size, home_variables(self.new_home()))
            self.environment = self._servers.environment
            self._servers.start()
            self._enter_environment()
            atspi.connect(self._on_event)
            wait_for(atspi.registry, "the AT-SPI registry does not answer")
        except BaseException:
            self.stop()
            raise
        return self

    def stop(self):
        """Ends everything that was started and removes the temporary files."""
        if self.directory is None:
            return
        directory, self.directory = self.directory, None
        self.shown_popups.clear()
        atspi.disconnect()
        if self._servers is not None:
            self._servers.stop()
        for name in _OUR_VARIABLES:
            os.environ.pop(name, None)
        os.environ.update(self._saved_environment)
        shutil.rmtree(directory, ignore_errors=True)

    def place_of(self, node):
        """(x, y, width, height) on the screen, where the mouse finds a node; (0, 0, 0, 0) for one
        that has no place yet."""
        return extents_of(node)

    def path(self, name):
        """The path of a file of this name in the desktop's temporary folder."""
        return os.path.join(self.directory, name)

    def new_home(self):
        """A new empty home folder: no settings, no recent files."""
        self._homes += 1
        home = self.path(f"home{self._homes}")
        os.makedirs(home, mode=0o700)
        return home

    def _enter_environment(self):
        """Has libatspi, in this process, look at this desktop."""
        for name in [name for name in os.environ if is_foreign(name)]:
            self._saved_environment[name] = os.environ.pop(name)
        for name in _OUR_VARIABLES:
            os.environ[name] = self.environment[name]

    def _on_event(self, event):
        # The only way in which a popup can be found, see `menus.open_popup`.
        source = event.source
        for node in (source, parent_of(source)):
            if node is not None and role_of(node) in ("popup menu", "menu"):
                self.shown_popups.append(node)
                del self.shown_popups[:-20]
