"""A session manager with one client, made of the library that the toolkit speaks to it with."""

import ctypes
import threading

POINTER = ctypes.c_void_p
MASK = ctypes.POINTER(ctypes.c_ulong)
CALLBACK = ctypes.CFUNCTYPE(ctypes.c_int, POINTER, POINTER, MASK, ctypes.POINTER(POINTER * 20))
SM, ICE = (ctypes.CDLL(f"lib{name}.so.6") for name in ("SM", "ICE"))
for function in (SM.SmsGenerateClientID, ICE.IceComposeNetworkIdList, ICE.IceAcceptConnection):
    function.restype = POINTER


class SessionManager:
    def __init__(self):
        self.client = None
        self.callbacks = [CALLBACK(callback) for callback in (self.welcome, self.register, lambda *_: 1)]
        welcome, _, accept = self.callbacks
        ICE.IceSetIOErrorHandler(accept)
        SM.SmsInitialize(b"tests", b"1", welcome, None, accept, 0, None)
        count, listeners = ctypes.c_int(), ctypes.POINTER(POINTER)()
        ICE.IceListenForConnections(ctypes.byref(count), ctypes.byref(listeners), 0, None)
        for index in range(count.value):
            ICE.IceSetHostBasedAuthProc(POINTER(listeners[index]), accept)
            threading.Thread(target=self.serve, args=[POINTER(listeners[index])], daemon=True).start()
        self.address = ctypes.string_at(ICE.IceComposeNetworkIdList(count, listeners)).decode()

    def serve(self, listener):
        connection = POINTER(ICE.IceAcceptConnection(listener, ctypes.byref(ctypes.c_int())))
        while ICE.IceProcessMessages(connection, None, None) == 0:
            pass

    def welcome(self, client, _, mask, callbacks):
        self.client = POINTER(client)
        mask[0] = 0x3ff
        _, register, accept = (ctypes.cast(callback, POINTER).value for callback in self.callbacks)
        callbacks.contents[:] = [register, None] + [accept, None] * 9
        return 1

    def register(self, *_):
        return SM.SmsRegisterClientReply(self.client, POINTER(SM.SmsGenerateClientID(self.client)))

    def ask_whether_to_end(self):
        both, any_style = 2, 2
        SM.SmsSaveYourself(self.client, both, True, any_style, False)

    def go_on(self):
        SM.SmsShutdownCancelled(self.client)

    def end(self):
        SM.SmsDie(self.client)
