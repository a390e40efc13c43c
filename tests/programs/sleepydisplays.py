"""An X server with displays that can be switched off: another one, of whose DPMS extension this program tells."""

import os
import pathlib
import random
import socket
import struct
import threading

QUERY_EXTENSION, GET_INPUT_FOCUS, DPMS = 98, 43, 250
CAPABLE, INFO = 1, 7
REPLY, GENERIC_EVENT = 1, 35


class SleepyDisplays:
    """Passes all on between the programs on its display and a server, but answers for the extension, which has no other
    requests than the two that ask. Ended by close()."""

    def __init__(self, server):
        self._server = f"/tmp/.X11-unix/X{server.display[1:]}"
        number = random.randrange(50001, 60000)
        self.display = f":{number}"
        self._path = pathlib.Path(f"/tmp/.X11-unix/X{number}")
        self.is_on = True
        self.is_capable = True
        self.asked = []  # the requests of the extension so far, by their numbers
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(str(self._path))
        self._listener.listen()
        self._ends = [self._listener]
        threading.Thread(target=self._accept, daemon=True).start()

    def close(self):
        self._path.unlink()
        for end in self._ends:
            try:
                end.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass  # gone already
            end.close()

    def _accept(self):
        while True:
            try:
                client = self._listener.accept()[0]
            except OSError:
                return
            server = socket.socket(socket.AF_UNIX)
            server.connect(self._server)
            self._ends += [client, server]
            questions = {}  # those that this answers, by the last 16 bits of their numbers
            for run in (Requests(client, server, questions, self), Replies(server, client, questions, self)):
                threading.Thread(target=run.pass_all, daemon=True).start()

    def answer(self, question, reply):
        """The reply to a request, made from what the server said to another one."""
        head = reply[:8]
        if question == QUERY_EXTENSION:
            return head + struct.pack("=BBBB20x", 1, DPMS, 0, 0)
        if question == CAPABLE:
            return head + struct.pack("=B23x", self.is_capable)
        return head + struct.pack("=HB21x", 0 if self.is_on else 3, 1)


class Stream:
    """One direction of a connection, with what is handed over beside the bytes."""

    def __init__(self, source, target, questions, displays):
        self._source, self._target, self._questions, self._displays = source, target, questions, displays
        self._bytes, self._handed = b"", []

    def take(self, count):
        while len(self._bytes) < count:
            more, handed, _, _ = socket.recv_fds(self._source, 65536, 16)
            if not more:
                raise EOFError
            self._bytes += more
            self._handed += handed
        taken, self._bytes = self._bytes[:count], self._bytes[count:]
        return taken

    def put(self, data):
        if self._handed:
            sent = socket.send_fds(self._target, [data], self._handed)
            for each in self._handed:
                os.close(each)
            self._handed, data = [], data[sent:]
        self._target.sendall(data)

    def pass_all(self):
        try:
            self.pass_setup()
            while True:
                self.pass_one()
        except (EOFError, OSError):
            for end in (self._source, self._target):
                try:
                    end.shutdown(socket.SHUT_RDWR)
                except OSError:
                    pass  # gone already


class Requests(Stream):
    def pass_setup(self):
        head = self.take(12)
        name, data = struct.unpack("=HH", head[6:10])
        self.put(head + self.take((name + 3 & ~3) + (data + 3 & ~3)))
        self._count = 0

    def pass_one(self):
        head = self.take(4)
        kind, minor, length = struct.unpack("=BBH", head)
        if length == 0:
            head += self.take(4)
            length = struct.unpack("=I", head[4:])[0]
        request = head + self.take(4 * length - len(head))
        self._count = self._count + 1 & 0xffff
        if kind == QUERY_EXTENSION and request[8:12] == b"DPMS":
            self._questions[self._count] = QUERY_EXTENSION
        if kind == DPMS:
            self._displays.asked.append(minor)
            self._questions[self._count] = minor
            request = struct.pack("=BBH", GET_INPUT_FOCUS, 0, 1)
        self.put(request)


class Replies(Stream):
    def pass_setup(self):
        head = self.take(8)
        self.put(head + self.take(4 * struct.unpack("=H", head[6:])[0]))

    def pass_one(self):
        packet = self.take(32)
        kind, _, number, length = struct.unpack("=BBHI", packet[:8])
        if kind in (REPLY, GENERIC_EVENT):
            packet += self.take(4 * length)
        question = self._questions.pop(number, None) if kind == REPLY else None
        self.put(packet if question is None else self._displays.answer(question, packet))
