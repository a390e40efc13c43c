"""kestro idle beside the real daemon of xscreensaver: it leaves the session to that, and takes it back."""

import os
import pathlib
import subprocess
import tempfile
import unittest

from harness import BLACK, BOUND, RED, hear_end_of, wait_until
from idletest import IdleTest
from plainuser import NOBODY, PlainUser
from xserver import XServer

SAID = "xscreensaver looks after this session. To have it show Kestro: kestro install-xscreensaver\n"


class Daemon:
    """xscreensaver, which does nothing for an hour, as "nobody" where the tests run as root. Ended by close()."""

    def __init__(self, display):
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-daemon-")
        home = pathlib.Path(self._holder.name)
        (home / ".xscreensaver").write_text("timeout:\t1:00:00\nsplash:\tFalse\nlock:\tFalse\n")
        if os.getuid() == 0:
            for path in (home, home / ".xscreensaver"):
                os.chown(path, NOBODY, NOBODY)
        self._environment = {"PATH": "/usr/bin:/bin", "HOME": str(home), "DISPLAY": display}
        self._process = subprocess.Popen(PlainUser.command("xscreensaver", "--no-splash"), env=self._environment, cwd=home,
                                         stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        hear_end_of(self._process)
        wait_until(self._answers, "xscreensaver")

    def _answers(self):
        return subprocess.run(["xscreensaver-command", "-time"], env=self._environment, capture_output=True,
                              timeout=BOUND).returncode == 0

    def close(self):
        if self._process.poll() is None:
            self._process.terminate()
        self._process.wait(timeout=BOUND)
        self._holder.cleanup()


class BesideXscreensaver(IdleTest):
    def setUp(self):
        super().setUp()
        self.server = XServer()
        self.addCleanup(self.server.close)

    def display_environment(self):
        return {"DISPLAY": self.server.display}

    def daemon(self):
        daemon = Daemon(self.server.display)
        self.addCleanup(daemon.close)
        return daemon

    def seconds_away(self):
        """For how long the service knows that nobody is there; 0 until it counts somebody as away."""
        command = ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.ScreenSaver", "/ScreenSaver",
                   "org.freedesktop.ScreenSaver.GetSessionIdleTime"]
        told = subprocess.run(command, env=self.environment(), check=True, capture_output=True, text=True, timeout=BOUND)
        return int(told.stdout.split()[-1])

    def assertStandsAside(self):
        """Although nobody is there for twice as long as it waits."""
        wait_until(lambda: self.seconds_away() >= 4, "that it counts the person as away")
        self.assertEqual(self.log().count(SAID), 1, self.log())
        self.assertEqual(self.status()["rival"], "xscreensaver")
        self.assertIn("waiting; xscreensaver looks after this session", self.ask("--status").stdout)
        self.assertTrue(self.server.picture().is_near(320, 240, BLACK))
        self.assertIsNone(self.status()["lastEnd"])

    def test_it_leaves_the_session_to_one_that_runs(self):
        self.daemon()
        self.serve("--after", "2s")
        self.assertStandsAside()

    def test_it_leaves_the_session_to_one_that_comes_later(self):
        self.serve("--after", "2s")
        self.daemon()
        self.server.run("xdotool", "key", "shift")
        self.assertStandsAside()

    def test_it_takes_the_session_back_when_the_other_ends(self):
        daemon = self.daemon()
        self.serve("--after", "2s")
        wait_until(lambda: SAID in self.log(), "that it stands aside")
        daemon.close()
        wait_until(lambda: self.server.picture().is_near(320, 240, RED), "the saver")
        self.assertIsNone(self.status()["rival"])


if __name__ == "__main__":
    unittest.main()
