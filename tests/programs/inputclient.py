"""Another program on the display: it opens windows, takes focus and grabs, and notes what reaches it."""

import os
import select
import subprocess

from harness import BOUND

INPUT_CLIENT = os.environ.get("INPUT_CLIENT", "")


class InputClient:
    """On the display of an X server. Ended by close(), and its windows and grabs with it."""

    def __init__(self, server):
        self._heard = []
        self._process = subprocess.Popen([INPUT_CLIENT], env={**os.environ, "DISPLAY": server.display},
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        os.set_blocking(self._process.stdout.fileno(), False)
        self._read = ""

    def close(self):
        if self._process.poll() is None:
            self._process.kill()
        self._process.wait(timeout=BOUND)
        self._process.stdin.close()
        self._process.stdout.close()

    def _line(self):
        while "\n" not in self._read:
            if not select.select([self._process.stdout], [], [], BOUND)[0]:
                raise AssertionError("the other program does not answer")
            more = os.read(self._process.stdout.fileno(), 4096).decode()
            if not more:
                raise AssertionError("the other program has ended")
            self._read += more
        line, self._read = self._read.split("\n", 1)
        return line

    def _tell(self, *words):
        """Sends an order; answers the words of the answer."""
        self._process.stdin.write(" ".join(str(word) for word in words) + "\n")
        while True:
            line = self._line()
            if not line.startswith("heard "):
                return line.split()
            self._heard.append(line.removeprefix("heard "))

    def window(self, width, height, x=0, y=0):
        """A window that a window manager looks after, where one runs; answers its number."""
        return int(self._tell("window", width, height, x, y)[1])

    def cover(self, width, height, x=0, y=0):
        """A window that none looks after, as a locker's."""
        return int(self._tell("cover", width, height, x, y)[1])

    def dismiss(self, window):
        """Asks a window to close, as a window manager does."""
        self._tell("dismiss", window)

    def frame(self, width, height, x=0, y=0):
        """One like it that holds a window which a window manager looks after, as some managers make them."""
        return int(self._tell("frame", width, height, x, y)[1])

    def focus(self, window):
        self._tell("focus", window)

    def raise_window(self, window):
        self._tell("raise", window)

    def destroy(self, window):
        self._tell("close", window)

    def owner(self):
        """(number of the window with the focus, where that would go from there)"""
        return tuple(int(number) for number in self._tell("owner")[1:])

    def grabs(self, window):
        """Tries once to take keyboard and pointer, as a locker does; whether it got both."""
        return self._tell("grab", window) == ["grabbed"]

    def ungrab(self):
        self._tell("ungrab")

    def heard(self):
        """What has reached its windows until now, in order: "key down 38", "focus out 2097153"."""
        self._tell("owner")
        return list(self._heard)
