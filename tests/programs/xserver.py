"""An X server without a screen of glass, for the tests that need a real display."""

import os
import pathlib
import random
import re
import select
import signal
import subprocess
import tempfile

from harness import BOUND, Pixels, wait_until
from xpicture import picture_of


class XServer:
    """Xvfb on a display number of its own choice, in a process group of its own, without the OpenGL extension unless told
    otherwise, which takes as long to load as all the rest. Ended by close()."""

    def __init__(self, size="640x480", with_opengl=False):
        self._extensions = [] if with_opengl else ["-extension", "GLX"]
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-x-")
        number = next(filter(None, (self._start(size) for _ in range(5))), None)
        if number is None:
            raise AssertionError("Xvfb did not come up")
        self.display = f":{number}"

    def _start(self, size):
        """The display's number, empty where the server has ended, as it does where another has that number."""
        reading, writing = os.pipe()
        # A server that looks for a free number itself can take away the socket of one that runs beside it.
        number = random.randrange(1000, 50000)
        command = ["Xvfb", f":{number}", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-noreset", "-nolisten", "tcp",
                   *self._extensions]
        with pathlib.Path(self._holder.name, "log").open("w") as log:
            self._process = subprocess.Popen(command, pass_fds=[writing], start_new_session=True,
                                             stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        os.close(writing)
        return self._read_number(reading)

    def _read_number(self, descriptor):
        with os.fdopen(descriptor) as stream:
            if not select.select([stream], [], [], BOUND)[0]:
                raise AssertionError("Xvfb did not come up")
            return stream.readline().strip()

    def signal(self, number):
        os.killpg(self._process.pid, number)

    def kill(self):
        """Ends it as a crash would."""
        os.killpg(self._process.pid, signal.SIGKILL)
        self._process.wait(timeout=BOUND)

    def close(self):
        if self._process.poll() is None:
            os.killpg(self._process.pid, signal.SIGTERM)
            self._process.wait(timeout=BOUND)
        self._holder.cleanup()

    def run(self, *command):
        """Runs an X program on this display; answers what it printed."""
        environment = {**os.environ, "DISPLAY": self.display}
        try:
            return subprocess.run(command, env=environment, check=True, capture_output=True, text=True, timeout=BOUND,
                                  stdin=subprocess.DEVNULL).stdout
        except subprocess.CalledProcessError as failed:
            failed.add_note(failed.stderr)
            raise

    def picture(self):
        """What the whole desk shows now."""
        return Pixels(*picture_of(self.display))

    def tree(self):
        """All windows as xwininfo lists them. It fails when one goes while it looks, and is asked again then."""
        def listed():
            try:
                return self.run("xwininfo", "-root", "-tree")
            except subprocess.CalledProcessError:
                return ""
        return wait_until(listed, "the list of windows")

    def windows(self):
        """The sizes and places of the mapped top-level windows, as (width, height, x, y)."""
        found = []
        for identity, geometry in re.findall(r"^     (0x[0-9a-f]+) .*?(\d+x\d+[+-]\d+[+-]\d+)", self.tree(), re.M):
            if self.is_viewable(identity):
                found.append(tuple(int(number) for number in re.findall(r"-?\d+", geometry)))
        return found

    def is_viewable(self, identity):
        """No for a window that has gone in the meantime."""
        state = subprocess.run(["xwininfo", "-id", identity], env={**os.environ, "DISPLAY": self.display},
                               capture_output=True, text=True, timeout=BOUND)
        return "IsViewable" in state.stdout

    def move_pointer(self, x, y):
        self.run("xdotool", "mousemove", "--sync", str(x), str(y))
