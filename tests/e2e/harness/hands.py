"""Mouse, keyboard and camera of a display."""

import re
import shutil
import subprocess
import time

from .processes import run_tool
from .waiting import HarnessError, poll

# Two clicks on the same spot within this time would be taken for a double
# click; Qt's own limit is 0.4 s.
DOUBLE_CLICK_TIME = 0.45
DOUBLE_CLICK_DISTANCE = 12

# What can be typed on the Italian layout without further ado, as part of a
# character class.
_ON_THE_KEYBOARD = r" -~àèéìòùç§°£€"

_KEY_NAMES = {"control": "ctrl", "enter": "Return", "return": "Return", "esc": "Escape",
              "escape": "Escape", "del": "Delete", "delete": "Delete", "ins": "Insert",
              "pgup": "Prior", "pageup": "Prior", "pgdown": "Next", "pagedown": "Next",
              "backspace": "BackSpace", "tab": "Tab", "home": "Home", "end": "End",
              "up": "Up", "down": "Down", "left": "Left", "right": "Right",
              "ctrl": "ctrl", "alt": "alt", "shift": "shift", "space": "space"}


class Hands:
    """What a person does at the display that `environment` names, of `size` pixels."""

    def __init__(self, size):
        self.size = size
        self.environment = {}
        self._last_click = (0.0, -1000, -1000)

    def run_tool(self, *argv):
        """Runs a program on this display."""
        return run_tool(self.environment, *argv)

    def xdotool(self, *arguments):
        result = self.run_tool("xdotool", *map(str, arguments))
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

    def move_to(self, x, y):
        self.xdotool("mousemove", x - 3, y - 2, "mousemove", x, y)

    def drag(self, start, end):
        """Presses the mouse at one place and lets it go at another."""
        self.xdotool("mousemove", *start, "mousedown", 1)
        steps = 8  # the things between are to see it come
        for step in range(1, steps + 1):
            self.xdotool("mousemove", *(a + (b - a) * step // steps for a, b in zip(start, end)),
                         "sleep", 0.05)
        self.xdotool("mouseup", 1)

    def _outwait_double_click(self, x, y):
        when, last_x, last_y = self._last_click
        if max(abs(x - last_x), abs(y - last_y)) < DOUBLE_CLICK_DISTANCE:
            poll(lambda: time.monotonic() - when > DOUBLE_CLICK_TIME)

    def key(self, *combinations):
        """Presses key combinations written the usual way: "Alt+F4", "Ctrl+A"."""
        for combination in combinations:
            parts = [_KEY_NAMES.get(part.lower(), part)
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
        return self.run_tool("import", "-window", str(window), str(path)).returncode == 0

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
