"""A connection to a message bus that sends many calls before it reads the first answer."""

import os
import socket
import struct

REPLY, ERROR = 2, 3


def _align(data, boundary):
    return data + b"\0" * (-len(data) % boundary)


def _string(text):
    return struct.pack("<I", len(text.encode())) + text.encode() + b"\0"


def _signature(text):
    return bytes([len(text)]) + text.encode() + b"\0"


class BusConnection:
    def __init__(self, address):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.settimeout(60)
        self._socket.connect(address.removeprefix("unix:path=").partition(",")[0])
        self._serial = 0
        self._received = b""
        self._socket.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        if not self._socket.recv(256).startswith(b"OK "):
            raise AssertionError("the bus has refused the authentication")
        self._socket.sendall(b"BEGIN\r\n")
        self.send("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "Hello")
        self.receive_answers(1)

    def close(self):
        self._socket.close()

    def send(self, destination, path, interface, method, signature="", *values):
        """Calls a method, the arguments of which are strings and 32-bit integers."""
        self._serial += 1
        body = b""
        for value in values:
            body = _align(body, 4) + (_string(value) if isinstance(value, str) else struct.pack("<i", value))
        fields = b""
        for code, kind, value in ((1, "o", path), (2, "s", interface), (3, "s", method), (6, "s", destination)):
            fields = _align(fields, 8) + bytes([code]) + _signature(kind) + _string(value)
        if signature:
            fields = _align(fields, 8) + bytes([8]) + _signature("g") + _signature(signature)
        head = struct.pack("<cBBBIII", b"l", 1, 0, 1, len(body), self._serial, len(fields))
        self._socket.sendall(_align(head + fields, 8) + body)

    def receive_answers(self, count):
        """Waits for so many replies and errors; returns how many were replies."""
        replies = answers = 0
        while answers < count:
            kind = self._receive()
            answers += kind in (REPLY, ERROR)
            replies += kind == REPLY
        return replies

    def _receive(self):
        self._fill(16)
        _, kind, _, _, body, _, fields = struct.unpack("<cBBBIII", self._received[:16])
        self._fill(16 + fields + -fields % 8 + body)
        self._received = self._received[16 + fields + -fields % 8 + body:]
        return kind

    def _fill(self, size):
        while len(self._received) < size:
            part = self._socket.recv(65536)
            if not part:
                raise AssertionError("the bus has closed the connection")
            self._received += part
