"""The connection to the accessibility bus.

libatspi looks its bus up once, when it connects, and keeps it for the life of
the process: from the environment, which must be the desktop's by then.
"""

import gi

gi.require_version("Atspi", "2.0")
gi.require_version("Gio", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

# Qt sends an event only if somebody has asked for it.
_EVENTS = ("object:state-changed:showing", "object:state-changed:focused")

_listener = None


def bus_answers(session_bus):
    """Whether the accessibility bus of the session bus at this address is up."""
    try:
        connection = Gio.DBusConnection.new_for_address_sync(
            session_bus, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        connection.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                             "GetAddress", None, None, Gio.DBusCallFlags.NONE, 1000, None)
        connection.close_sync(None)
    except GLib.Error:
        return False
    return True


def connect(on_event):
    """Connects to the bus; `on_event` hears of nodes that show or take the focus."""
    global _listener
    Atspi.init()
    Atspi.set_timeout(3000, 3000)
    _listener = Atspi.EventListener.new(lambda event, _data: on_event(event), None)
    for event in _EVENTS:
        _listener.register(event)


def disconnect():
    """The opposite of `connect`; nothing if there is no connection."""
    global _listener
    if _listener is None:
        return
    try:
        for event in _EVENTS:
            _listener.deregister(event)
    except GLib.Error:
        pass
    _listener = None
    Atspi.exit()


def pump_events():
    """Delivers pending events; libatspi hands them to GLib's main loop."""
    if _listener is None:
        return
    context = GLib.MainContext.default()
    while context.pending():
        context.iteration(False)


def registry():
    """The node above all programs; None while nobody answers."""
    root = Atspi.get_desktop(0)
    if root is not None:
        # Nothing that the tree answers is to be remembered: a program under
        # test changes it at every moment.
        root.set_cache_mask(Atspi.Cache.NONE)
    return root
