"""The servers of a desktop: X, session bus, accessibility bus, window manager."""

import os
import re
import select
import signal
import subprocess
import time

from . import atspi
from .processes import adopt_orphans, processes_with, reap, run_tool, spawn, stop_process
from .waiting import HarnessError, poll, wait_for

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

# No panel, no keyboard on the screen, no locked screen; windows are at their place at once.
_WESTON_CONFIGURATION = """[core]
idle-time=0
[input-method]
path=
[shell]
panel-position=none
locking=false
animation=none
startup-animation=none
close-animation=none
focus-animation=none
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

_BUS_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher",
                  "/usr/lib/at-spi2-core/at-spi-bus-launcher")

# Variables of the surrounding session that change how a program looks or
# behaves, or that lead it out of the private desktop.
_FOREIGN_VARIABLES = re.compile(
    r"(QT_|XDG_|LC_|GTK_|KDE_|GNOME_|DBUS_|AT_SPI_|WAYLAND_|XKB_|XMODIFIERS|XAUTHORITY"
    r"|LANG$|LANGUAGE$|DESKTOP_SESSION$|DISPLAY$|SESSION_MANAGER$|NO_AT_BRIDGE$)")


def is_foreign(variable):
    """Whether a variable of the environment must not reach the private desktop."""
    return _FOREIGN_VARIABLES.match(variable) is not None


class Servers:
    """Everything a program needs around it, started in one go.

    `directory` is theirs for files of their own.
    """

    def __init__(self, directory, size, variables):
        """`size` is the screen's, `variables` what is to be in the environment besides."""
        self._directory = directory
        self._size = size
        # Unique, which makes it the mark by which `stop` recognises every
        # process of this desktop.
        self._runtime = os.path.join(directory, "run")
        self._processes = []
        self._log = open(os.path.join(directory, "servers.log"), "wb")
        self.environment = {name: value for name, value in os.environ.items()
                            if not is_foreign(name)}
        self.environment.update(LC_ALL="C.UTF-8", XDG_RUNTIME_DIR=self._runtime,
                                GSETTINGS_BACKEND="memory", **variables)

    def start(self):
        # Services started by the buses become our children when their parent
        # ends, so that `stop` can collect them.
        adopt_orphans()
        os.makedirs(self._runtime, mode=0o700)
        self._start_x_server()
        self._start_buses()
        self._start_window_manager()

    def stop(self):
        # Besides the servers, what the buses had activated, and programs of a
        # test that went wrong.  Noted while alive: the dead have no environment.
        marker = b"XDG_RUNTIME_DIR=" + self._runtime.encode()
        leftovers = set(processes_with(marker)) - {process.pid for process in self._processes}
        for process in reversed(self._processes):
            stop_process(process)
        self._processes.clear()

        def all_gone(number):
            alive = processes_with(marker)
            leftovers.update(alive)
            for pid in alive:
                try:
                    os.kill(pid, number)
                except ProcessLookupError:
                    pass
            leftovers.difference_update([pid for pid in leftovers if reap(pid)])
            return not leftovers

        if not poll(lambda: all_gone(signal.SIGTERM), 1.5):
            poll(lambda: all_gone(signal.SIGKILL), 3)
        self._log.close()

    def _start_x_server(self):
        width, height = self._size
        reading, writing = os.pipe()
        try:
            self._serve(["Xvfb", "-displayfd", str(writing), "-nolisten", "tcp", "-noreset",
                         "-dpi", "96", "-screen", "0", f"{width}x{height}x24"],
                        pass_fds=(writing,))
        finally:
            os.close(writing)
        self.environment["DISPLAY"] = ":" + self._read_line(reading, "Xvfb's display number")
        # A character that the keyboard lacks costs a change of its layout for
        # every single press, which programs follow with a delay.  The letters
        # of Italian texts, at least, are to have keys of their own.
        result = run_tool(self.environment, "setxkbmap", "it")
        if result.returncode != 0:
            raise HarnessError(f"setxkbmap: {result.stderr}")

    def _start_buses(self):
        configuration = self._write("session-bus.conf",
                                    _SESSION_BUS_CONFIGURATION.format(directory=self._runtime))
        process = self._serve(["dbus-daemon", "--config-file", configuration, "--nofork",
                               "--nopidfile", "--print-address"], stdout=subprocess.PIPE)
        with process.stdout as pipe:
            address = self._read_line(os.dup(pipe.fileno()), "the session bus address")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address

        launcher = next((path for path in _BUS_LAUNCHERS if os.path.exists(path)), None)
        if launcher is None:
            raise HarnessError("at-spi-bus-launcher is missing (package at-spi2-core)")
        self._serve([launcher, "--launch-immediately"])
        wait_for(lambda: atspi.bus_answers(address),
                 lambda: "the accessibility bus does not answer\n" + self._log_text())

    def _start_window_manager(self):
        configuration = self._write("openbox.xml", _OPENBOX_CONFIGURATION)
        self._serve(["openbox", "--sm-disable", "--config-file", configuration])
        wait_for(lambda: run_tool(self.environment, "xdotool",
                                  "get_num_desktops").returncode == 0,
                 lambda: "the window manager does not answer\n" + self._log_text())

    def start_compositor(self):
        """weston over the whole X display, so that the hands of X reach what is on it.

        Returns its process.
        """
        configuration = self._write("weston.ini", _WESTON_CONFIGURATION)
        width, height = self._size
        name = "wayland-0"
        process = self._serve(["weston", "--backend=x11-backend.so", "--use-pixman",
                               "--fullscreen", f"--width={width}", f"--height={height}",
                               f"--socket={name}", f"--config={configuration}",
                               "--debug"])  # it tells then where windows are
        self.environment["WAYLAND_DISPLAY"] = name
        wait_for(lambda: "background" in self.scene(),
                 lambda: "the Wayland compositor does not answer\n" + self._log_text())
        return process

    def scene(self):
        """What the compositor says of all that is on its screen; empty while it does not answer."""
        return run_tool(self.environment, "weston-debug", "scene-graph").stdout

    def _serve(self, argv, **options):
        options.setdefault("stdout", self._log)
        # SIGTERM, because the bus launcher must end its own bus and Xvfb remove
        # its lock file.
        process = spawn(argv, self.environment, signal.SIGTERM, stderr=self._log, **options)
        self._processes.append(process)
        return process

    def _read_line(self, descriptor, what):
        """Reads the one line that a server announces itself with."""
        with open(descriptor, "rb", buffering=0) as pipe:
            line = b""
            deadline = time.monotonic() + 10
            while not line.endswith(b"\n"):
                left = max(0, deadline - time.monotonic())
                chunk = pipe.read(4096) if select.select([pipe], [], [], left)[0] else b""
                if not chunk:
                    raise HarnessError(f"{what} did not come\n" + self._log_text())
                line += chunk
        return line.decode().strip()

    def _write(self, name, text):
        path = os.path.join(self._directory, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def _log_text(self):
        """What the servers have written so far."""
        self._log.flush()
        with open(self._log.name, encoding="utf-8", errors="replace") as file:
            return file.read()
