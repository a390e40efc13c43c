"""Measures kestro idle: what waiting costs, and how soon the saver is there when nobody is, and gone when somebody is back.

usage: idle_bench.py KESTRO [BENCH...]     benches: come wait
"""

import contextlib
import ctypes
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from bounce_bench import make_movie
from movie_bench import QUIET, bar, make_home

os.environ["KESTRO"] = os.path.abspath(sys.argv[1])
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "programs"))
from bus import Bus  # noqa: E402

ROUNDS = 10
AFTER = 2  # seconds without input
WAITED = 180  # seconds over which waiting is looked at


class SaverInfo(ctypes.Structure):
    """What the X server's extension for savers tells, as its library puts it."""

    _fields_ = [("window", ctypes.c_ulong), ("state", ctypes.c_int), ("kind", ctypes.c_int),
                ("til_or_since", ctypes.c_ulong), ("idle", ctypes.c_ulong), ("event_mask", ctypes.c_ulong)]


class LastInput:
    """When an X server had its last input. Ended by close()."""

    def __init__(self, display):
        self._x, self._xss = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXss.so.1")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XDefaultRootWindow.restype = ctypes.c_ulong
        self._server = ctypes.c_void_p(self._x.XOpenDisplay(display.encode()))
        self._root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._server))

    def at(self):
        """By time.monotonic(), to the millisecond."""
        info = SaverInfo()
        self._xss.XScreenSaverQueryInfo(self._server, self._root, ctypes.byref(info))
        return time.monotonic() - info.idle / 1000

    def close(self):
        self._x.XCloseDisplay(self._server)


class Bench:
    def __init__(self, kestro, folder):
        self.kestro, self.folder = kestro, folder
        self.home = make_home(folder, "one", ["file://" + make_movie(folder, "small.mp4", "640x360", 20)])

    @contextlib.contextmanager
    def session(self):
        """A screen and a message bus, and the environment of its programs."""
        screen, bus = desk.Screen(), Bus()
        runtime = tempfile.mkdtemp(dir=self.folder)
        yield screen, screen.environment(KESTRO_HOME=self.home, HOME=self.home, XDG_RUNTIME_DIR=runtime,
                                         KESTRO_RENDERER="software", DBUS_SESSION_BUS_ADDRESS=bus.address,
                                         DBUS_SYSTEM_BUS_ADDRESS=bus.address)
        screen.close()
        bus.close()

    def serve(self, after, environment):
        """The service, once it waits."""
        log = pathlib.Path(environment["XDG_RUNTIME_DIR"], "log")
        with log.open("w") as file:
            service = subprocess.Popen([self.kestro, "idle", "--after", after], env=environment, stdout=file, stderr=file)
        while "Waiting until you are away" not in log.read_text():
            time.sleep(0.02)
        return service

    @staticmethod
    def seconds_until(is_shown, screen, begun):
        """From `begun` until the middle of the screen has a picture, or has none any more."""
        time.sleep(max(0, begun - time.monotonic()))
        while (screen.pixel(960, 540) != 0) != is_shown and time.monotonic() - begun < 10:
            time.sleep(0.002)  # looking all the time takes a whole core, of two
        return time.monotonic() - begun

    def by_hand(self):
        """Seconds from the start of `kestro` to its first picture."""
        with self.session() as (screen, environment):
            begun = time.monotonic()
            process = subprocess.Popen([self.kestro], env=environment, **QUIET)
            seconds = self.seconds_until(True, screen, begun)
            desk.end(process)
            return seconds

    def by_itself(self):
        """Seconds from when nobody has been there for long enough to the first picture, and from a key to an empty screen."""
        with self.session() as (screen, environment):
            service = self.serve(f"{AFTER}s", environment)
            subprocess.run(["xdotool", "key", "shift"], env=environment, check=True)
            server = LastInput(screen.display)
            come = self.seconds_until(True, screen, server.at() + AFTER)
            server.close()
            time.sleep(1)
            begun = time.monotonic()
            subprocess.run(["xdotool", "key", "shift"], env=environment, check=True)
            gone = self.seconds_until(False, screen, begun)
            desk.end(service)
            return come, gone

    def come(self):
        """From "nobody is there" to the first picture beside `kestro` started by hand, and from a key to an empty screen."""
        rounds = [(self.by_hand(), *self.by_itself()) for _ in range(ROUNDS)]
        hand, come, gone = ([1000 * seconds for seconds in column] for column in zip(*rounds))
        for name, values in (("by hand", hand), ("by itself", come), ("gone", gone)):
            print(f"  {name}: median {statistics.median(values):.0f} ms, {min(values):.0f} to {max(values):.0f}")
        bar("first picture by itself against by hand", statistics.median(come) / statistics.median(hand), 1.1)
        bar("key to an empty screen, longest, ms", max(gone), 200)

    def wait(self):
        """What the service costs while nothing happens."""
        with self.session() as (_, environment):
            service = self.serve("1h", environment)
            time.sleep(5)
            before, used = switches(service.pid), desk.cpu_seconds(service.pid)
            time.sleep(WAITED)
            bar("wake-ups a minute", (switches(service.pid) - before) * 60 / WAITED, 1)
            bar("CPU s/s", (desk.cpu_seconds(service.pid) - used) / WAITED, 0.0005)
            bar("memory, MB", desk.megabytes(service.pid), 20)
            desk.end(service)


def switches(pid):
    """How often a process has gone to sleep, all its threads together."""
    count = 0
    for status in pathlib.Path(f"/proc/{pid}/task").glob("*/status"):
        for line in status.read_text().splitlines():
            if line.startswith("voluntary_ctxt_switches"):
                count += int(line.split()[1])
    return count


def main():
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(os.environ["KESTRO"], folder)
        for name in sys.argv[2:] or ["come", "wait"]:
            method = getattr(bench, name)
            print(f"{name}: {method.__doc__}")
            method()


if __name__ == "__main__":
    main()
