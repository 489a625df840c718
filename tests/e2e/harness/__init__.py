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

Tests run as one process a file, with the desktop started in setUpModule, and
take all they need from here.  What lies where, each using those above it only:

    atspi      the connection to the accessibility bus
    waiting    polling until something is true, for a bounded time
    processes  starting and ending processes, with all that they leave behind
    nodes      what the accessibility tree says about a thing on the screen
    servers    X server, buses and window manager
    hands      mouse, keyboard and camera of a display
    desktop    Desktop: the servers' life, homes, popups that have shown
    menus      the menu bar and context menus
    boxes      message boxes and the file dialog
    program    Program: its process, finding and acting
    testcase   ProgramTestCase

and beside these, for the tests that want them, drag (a file manager to drag
from) and session (a desktop that logs out).

Nothing here waits for a fixed time and hopes: everything is polled for until
it is true.
"""

from .atspi import Atspi
from .desktop import Desktop
from .nodes import (DIALOG_ROLES, children_of, description_of, extents_of, has_state,
                    is_checked, is_enabled, is_read_only, is_showing, name_of, page_text_of,
                    plain, role_of, text_of, value_and_maximum_of, walk)
from .program import Program
from .testcase import ProgramTestCase, settings_file
from .waiting import HarnessError, poll, wait_for

__all__ = ["Atspi", "DIALOG_ROLES", "Desktop", "HarnessError", "Program", "ProgramTestCase",
           "children_of", "description_of", "extents_of", "has_state", "is_checked",
           "is_enabled", "is_read_only", "is_showing", "name_of", "page_text_of", "plain",
           "poll", "role_of", "settings_file", "text_of", "value_and_maximum_of", "wait_for",
           "walk"]
