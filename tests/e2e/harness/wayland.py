"""A Wayland desktop, for programs that are driven there by the same hands and eyes.

The compositor, weston, fills the private X display. A Wayland program does not know where its
windows are: the accessibility interface tells places within a window, the compositor tells the
windows' own.
"""

import re
import shutil
from dataclasses import dataclass

from .desktop import Desktop
from .nodes import extents_of, name_of, parent_of, plain, role_of
from .processes import stop_process
from .waiting import wait_for

_SURFACE = re.compile(r"View \d+ \(role (\S+), PID (\d+), surface ID \d+, (.*), 0x\w+\):\s+"
                      r"position: \((-?\d+), (-?\d+)\) -> \((-?\d+), (-?\d+)\)")


@dataclass
class Surface:
    """Something that a program has on the screen, with the frame that the program draws."""

    pid: int
    role: str  # "xdg_toplevel", "xdg_popup", "wl_pointer-cursor"
    label: str  # as the compositor calls it; a window's has its title
    x: int
    y: int
    width: int
    height: int


class WaylandDesktop(Desktop):
    """A Desktop whose programs are on Wayland, and on nothing else."""

    # As a session has it: Qt chooses for itself.
    session_variables = {"XDG_SESSION_TYPE": "wayland", "DISPLAY": ""}

    @staticmethod
    def missing():
        """Why there can be none on this machine; empty where there can."""
        tools = [tool for tool in ("weston", "weston-debug") if shutil.which(tool) is None]
        return f"{' and '.join(tools)} missing (package weston)" if tools else ""

    def start(self):
        super().start()
        self.start_compositor()
        return self

    def start_compositor(self):
        self._compositor = self._servers.start_compositor()
        wait_for(self._is_mouse_known, "the compositor does not know of the mouse")
        wait_for(lambda: "Weston" in self.run_tool("xdotool", "getwindowfocus",
                                                   "getwindowname").stdout,
                 "the compositor does not get the keyboard")

    def _is_mouse_known(self):
        """Has the compositor know where the mouse is. It adds up movements, from a place that may
        be wrong at first; across the whole screen it ends in the corner in any case."""
        self.xdotool("mousemove", *self.size, "sleep", 0.1, "mousemove", 0, 0, "sleep", 0.1)
        return any(surface.label == "cursor" and surface.x <= 0 and surface.y <= 0
                   for surface in self.surfaces())

    def end_compositor(self):
        """As a crash does."""
        self._compositor.kill()
        stop_process(self._compositor)

    def surfaces(self):
        """What all programs have on the screen, the uppermost first."""
        found = []
        for role, pid, label, *corners in _SURFACE.findall(self._servers.scene()):
            left, top, right, bottom = map(int, corners)
            found.append(Surface(int(pid), role, label, left, top, right - left, bottom - top))
        return found

    def surface_of(self, window):
        """The surface of a node that is a window of its own, or None."""
        _, _, width, height = extents_of(window)
        for surface in self.surfaces():
            if surface.pid != window.get_process_id():
                continue
            is_popup = surface.role == "xdg_popup" and \
                (surface.width, surface.height) == (width, height)
            is_window = surface.role == "xdg_toplevel" and \
                f"'{plain(name_of(window))}'" in surface.label and \
                surface.height > height  # it has its frame by now
            if is_popup or is_window:
                return surface
        return None

    def place_of(self, node):
        window = node
        while role_of(window) not in ("popup menu", "") \
                and role_of(parent_of(window)) != "application":
            window = parent_of(window)
        surface = self.surface_of(window)
        if surface is None:
            return 0, 0, 0, 0  # not yet
        x, y, width, height = extents_of(node)
        left, top, window_width, window_height = extents_of(window)
        # The frame is as wide at its bottom as at its sides; its title bar is above.
        side = (surface.width - window_width) // 2
        title = surface.height - window_height - side
        return surface.x + side + x - left, surface.y + title + y - top, width, height
