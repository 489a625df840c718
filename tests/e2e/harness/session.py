"""A desktop's session manager, as small as one can be: it logs programs out.

A program finds it by the environment variable SESSION_MANAGER and talks to it by
the X session management protocol, which libSM speaks for both. When the session
ends, the manager first asks each program to save itself, which may be answered
by asking for a dialog or by refusing, and then tells it to die.
"""

import ctypes
import os
import queue
import select
import threading

from .waiting import wait_for

_POINTER = ctypes.c_void_p
_SAVE_BOTH, _SAVE_LOCAL = 2, 1
_INTERACT_NONE, _INTERACT_ANY = 0, 2
_ICE_PENDING, _ICE_ACCEPTED = 0, 1

_Proc = ctypes.CFUNCTYPE(ctypes.c_int, _POINTER, _POINTER, _POINTER, _POINTER)


class _Callback(ctypes.Structure):
    _fields_ = [("proc", _Proc), ("data", _POINTER)]


_CALLBACKS = ("register_client", "interact_request", "interact_done", "save_yourself_request",
              "save_yourself_phase2_request", "save_yourself_done", "close_connection",
              "set_properties", "delete_properties", "get_properties")


class _Callbacks(ctypes.Structure):
    _fields_ = [(name, _Callback) for name in _CALLBACKS]


_NewClient = ctypes.CFUNCTYPE(ctypes.c_int, _POINTER, _POINTER, ctypes.POINTER(ctypes.c_ulong),
                              ctypes.POINTER(_Callbacks), _POINTER)
_HostBased = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_char_p)
_IoError = ctypes.CFUNCTYPE(None, _POINTER)


class SessionManager:
    """Serves in a thread of its own until `stop`. There can be one a process."""

    def __init__(self, folder):
        # Who may connect is nobody's concern here: no file of keys is read or written.
        os.environ["ICEAUTHORITY"] = os.path.join(folder, "none")
        self._ice = ctypes.CDLL("libICE.so.6")
        self._sm = ctypes.CDLL("libSM.so.6")
        for function in ("IceComposeNetworkIdList", "IceAcceptConnection"):
            getattr(self._ice, function).restype = _POINTER
        for function in ("SmsGenerateClientID", "SmsGetIceConnection"):
            getattr(self._sm, function).restype = _POINTER
        self._clients = set()  # programs that have joined, as the library knows them
        self._said = []  # what programs have answered
        self._orders = queue.SimpleQueue()
        self._wake_reader, self._wake_writer = os.pipe()

        # Referred to as long as the library may call them.
        self._procs = {name: _Proc(getattr(self, "_" + name, self._ignore)) for name in _CALLBACKS}
        self._new_client_proc = _NewClient(self._new_client)
        self._host_based = _HostBased(lambda _host: 1)
        self._io_error = _IoError(lambda _connection: None)  # else it ends this process

        self._ice.IceSetIOErrorHandler(self._io_error)
        error = ctypes.create_string_buffer(256)
        if not self._sm.SmsInitialize(b"test", b"1", self._new_client_proc, None,
                                      self._host_based, len(error), error):
            raise RuntimeError(error.value)
        count = ctypes.c_int()
        self._listeners = ctypes.POINTER(_POINTER)()
        if not self._ice.IceListenForConnections(ctypes.byref(count),
                                                 ctypes.byref(self._listeners), len(error), error):
            raise RuntimeError(error.value)
        self._count = count.value
        for i in range(self._count):
            self._ice.IceSetHostBasedAuthProc(_POINTER(self._listeners[i]), self._host_based)
        self.address = ctypes.string_at(
            self._ice.IceComposeNetworkIdList(self._count, self._listeners)).decode()
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()

    # -- for tests -----------------------------------------------------------

    def ask_to_save(self):
        """Says that the session ends, and returns what the programs answered; a dialog that one
        asks for is not granted."""
        wait_for(lambda: self._clients, "no program has joined the session")
        del self._said[:]
        self._order("save")
        wait_for(lambda: self._said, "no answer to the end of the session")
        return list(self._said)

    def end(self):
        self._order("die")

    def stop(self):
        self._order("stop")
        self._thread.join()
        self._ice.IceFreeListenObjs(self._count, self._listeners)

    # -- in the thread -------------------------------------------------------

    def _order(self, what):
        self._orders.put(what)
        os.write(self._wake_writer, b".")

    def _serve(self):
        listeners = {self._ice.IceGetListenConnectionNumber(_POINTER(self._listeners[i])):
                     self._listeners[i] for i in range(self._count)}
        connections = {}
        while True:
            ready, _, _ = select.select([self._wake_reader, *listeners, *connections], [], [])
            for number in ready:
                if number == self._wake_reader:
                    os.read(number, 1)
                    if not self._obey(self._orders.get()):
                        return
                elif number in listeners:
                    status = ctypes.c_int()
                    connection = self._ice.IceAcceptConnection(_POINTER(listeners[number]),
                                                               ctypes.byref(status))
                    if connection:
                        connections[self._ice.IceConnectionNumber(_POINTER(connection))] = connection
                elif self._ice.IceProcessMessages(_POINTER(connections[number]), None, None) != 0:
                    self._forget(connections.pop(number))

    def _forget(self, connection):
        """Of a program that has gone, perhaps without a word."""
        self._clients = {client for client in self._clients
                         if self._sm.SmsGetIceConnection(_POINTER(client)) != connection}

    def _obey(self, order):
        for client in list(self._clients):
            if order == "save":
                self._sm.SmsSaveYourself(_POINTER(client), _SAVE_BOTH, 1, _INTERACT_ANY, 0)
            elif order == "die":
                self._sm.SmsDie(_POINTER(client))
        return order != "stop"

    def _new_client(self, _client, _data, mask, callbacks, _failure):
        mask[0] = (1 << len(_CALLBACKS)) - 1
        for name in _CALLBACKS:
            setattr(callbacks[0], name, _Callback(self._procs[name], None))
        return 1

    def _register_client(self, client, _data, previous, _unused):
        if previous:
            return 0  # nobody has been here before
        self._sm.SmsRegisterClientReply(
            _POINTER(client), _POINTER(self._sm.SmsGenerateClientID(_POINTER(client))))
        # As the protocol wants it of a new program, which has joined when it has answered.
        self._sm.SmsSaveYourself(_POINTER(client), _SAVE_LOCAL, 0, _INTERACT_NONE, 0)
        return 1

    def _interact_request(self, _client, _data, _kind, _unused):
        self._said.append("asks for a dialog")
        return 0

    def _save_yourself_done(self, client, _data, success, _unused):
        if client in self._clients:
            self._said.append("saved" if success else "refuses")
        else:
            self._clients.add(client)
            self._sm.SmsSaveComplete(_POINTER(client))
        return 0

    def _close_connection(self, client, _data, _count, _reasons):
        self._clients.discard(client)
        return 0

    @staticmethod
    def _ignore(*_arguments):
        return 0
