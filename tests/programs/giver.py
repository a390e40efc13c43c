"""A program with a window that it hands over to Kestro, and what it hears of it itself."""

import os
import re
import subprocess

from harness import BOUND, wait_until


class Giver:
    """A window that listens to all input and manages its children, on the display of an X server. Ended by close()."""

    def __init__(self, server, geometry):
        self._server = server
        self._process = subprocess.Popen(["xev", "-geometry", geometry, "-bw", "0", "-name", "giver"],
                                         env={**os.environ, "DISPLAY": server.display}, stdin=subprocess.DEVNULL,
                                         stdout=subprocess.PIPE)
        os.set_blocking(self._process.stdout.fileno(), False)
        self._heard = b""
        self.number = int(wait_until(self._search, "the giver's window").split()[0])

    def _search(self):
        done = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^giver$"], capture_output=True,
                              text=True, env={**os.environ, "DISPLAY": self._server.display}, timeout=BOUND)
        return done.stdout

    def resize(self, width, height):
        self._server.run("xdotool", "windowsize", str(self.number), str(width), str(height))

    def destroy(self):
        """Its program ends: the window is destroyed, and whatever is in it."""
        self._process.kill()
        self._process.wait(timeout=BOUND)

    def hears(self, event):
        """Waits for an event at the window itself, and answers what xev says of it; fails where it never comes."""
        return wait_until(lambda: self._said_of(event), event)

    def _said_of(self, event):
        """The line below the event's own, once it is there whole."""
        self._heard += self._process.stdout.read() or b""
        found = re.search(rf"^{event}.*\n(.*\n)".encode(), self._heard, re.M)
        return found[1].decode() if found else None

    def close(self):
        self.destroy()
        self._process.stdout.close()
