"""A program with a window that it hands over to Kestro, and what it hears of it itself."""

import os
import subprocess

from harness import BOUND, wait_until


class Giver:
    """A window that listens to all input and manages its children, on the display of an X server. Ended by close()."""

    def __init__(self, server, geometry):
        self._server = server
        self._process = subprocess.Popen(["xev", "-geometry", geometry, "-bw", "0", "-name", "giver"],
                                         env={**os.environ, "DISPLAY": server.display}, stdin=subprocess.DEVNULL,
                                         stdout=subprocess.PIPE, text=True)
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
        for line in self._process.stdout:
            if line.startswith(event):
                return next(self._process.stdout)
        raise AssertionError(f"no {event}")

    def close(self):
        self.destroy()
        self._process.stdout.close()
