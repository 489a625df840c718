"""A file manager as far as dragging goes: carries files onto a window and drops them there.

It speaks the X protocol of drag and drop by messages, without a window that could be seen and
without the mouse: what a target is told are the place and the action.
"""

import ctypes
import pathlib

from .waiting import HarnessError, wait_for

_WINDOW = _ATOM = _TIME = ctypes.c_ulong
_CLIENT_MESSAGE, _SELECTION_REQUEST, _SELECTION_NOTIFY = 33, 30, 31
_VERSION = 5


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", _WINDOW), ("message_type", _ATOM),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class _SelectionRequest(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("owner", _WINDOW), ("requestor", _WINDOW),
                ("selection", _ATOM), ("target", _ATOM), ("property", _ATOM), ("time", _TIME)]


class _SelectionNotify(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("requestor", _WINDOW), ("selection", _ATOM),
                ("target", _ATOM), ("property", _ATOM), ("time", _TIME)]


class _Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("message", _ClientMessage),
                ("request", _SelectionRequest), ("notify", _SelectionNotify),
                ("pad", ctypes.c_long * 24)]


class Drag:
    """One drag of some files to a place on the screen; as a context manager it ends there.

        with Drag(desktop, window, (x, y), path) as drag:
            drag.is_welcome()
            drag.drop()
    """

    def __init__(self, desktop, window, place, *paths):
        self._x = ctypes.CDLL("libX11.so.6")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        for function in ("XInternAtom", "XCreateSimpleWindow", "XDefaultRootWindow"):
            getattr(self._x, function).restype = ctypes.c_ulong
        display = self._x.XOpenDisplay(desktop.environment["DISPLAY"].encode())
        self._display = ctypes.c_void_p(display)
        self._target = _WINDOW(int(window))
        self._place = place
        self._uris = "".join(pathlib.Path(path).as_uri() + "\r\n" for path in paths).encode()
        self._answers = {}
        self._source = _WINDOW(self._x.XCreateSimpleWindow(
            self._display, _WINDOW(self._x.XDefaultRootWindow(self._display)),
            0, 0, 1, 1, 0, _ATOM(0), _ATOM(0)))

    def __enter__(self):
        self._x.XSetSelectionOwner(self._display, self._atom("XdndSelection"), self._source,
                                   _TIME(0))
        self._send("XdndEnter", _VERSION << 24, self._atom("text/uri-list").value, 0, 0)
        return self

    def __exit__(self, *_error):
        if "XdndFinished" not in self._answers:
            self._send("XdndLeave", 0, 0, 0, 0)
        self._x.XCloseDisplay(self._display)

    def is_welcome(self):
        """What the target says of a drop at the place."""
        self._answers.pop("XdndStatus", None)
        x, y = self._place
        self._send("XdndPosition", 0, x << 16 | y, 0, self._atom("XdndActionCopy").value)
        return bool(self._answer("XdndStatus")[1] & 1)

    def drop(self):
        """@return whether the target has taken the files"""
        self._send("XdndDrop", 0, 0, 0, 0)
        return bool(self._answer("XdndFinished")[1] & 1)

    # -- the protocol --------------------------------------------------------

    def _atom(self, name):
        return _ATOM(self._x.XInternAtom(self._display, name.encode(), 0))

    def _send(self, kind, *values):
        event = _Event()
        event.message = _ClientMessage(
            type=_CLIENT_MESSAGE, display=self._display, window=self._target,
            message_type=self._atom(kind), format=32,
            data=(ctypes.c_long * 5)(self._source.value, *values))
        self._send_event(self._target, event)

    def _send_event(self, window, event):
        self._x.XSendEvent(self._display, window, 0, ctypes.c_long(0), ctypes.byref(event))
        self._x.XFlush(self._display)

    def _answer(self, kind):
        def has_come():
            self._read_events()
            return kind in self._answers
        wait_for(has_come, f"no {kind}")
        return self._answers[kind]

    def _read_events(self):
        while self._x.XPending(self._display):
            event = _Event()
            self._x.XNextEvent(self._display, ctypes.byref(event))
            if event.type == _CLIENT_MESSAGE:
                for kind in ("XdndStatus", "XdndFinished"):
                    if event.message.message_type == self._atom(kind).value:
                        self._answers[kind] = list(event.message.data)
            elif event.type == _SELECTION_REQUEST:
                self._hand_over(event.request)

    def _hand_over(self, request):
        """The names of the files, as the target asks for them."""
        if request.target != self._atom("text/uri-list").value:
            raise HarnessError("the target asks for something that is not offered")
        self._x.XChangeProperty(self._display, _WINDOW(request.requestor), _ATOM(request.property),
                                _ATOM(request.target), 8, 0, self._uris, len(self._uris))
        event = _Event()
        event.notify = _SelectionNotify(
            type=_SELECTION_NOTIFY, display=self._display, requestor=request.requestor,
            selection=request.selection, target=request.target, property=request.property,
            time=request.time)
        self._send_event(_WINDOW(request.requestor), event)
