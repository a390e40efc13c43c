"""Kestro as xscreensaver's saver, under the real daemon."""

import os
import pathlib
import plistlib
import re
import signal
import unittest
import xml.etree.ElementTree

from harness import BOUND, COLOURS, RED, movie, url, wait_until
from plainuser import PlainUser
from xserver import XServer

CONFIGS = pathlib.Path("/usr/share/xscreensaver/config")
OPTIONS = b"mode:\tone\nselected:\t0\nsplash:\tFalse\nfade:\tFalse\nunfade:\tFalse\nlock:\tFalse\n"


class Daemon:
    """A running xscreensaver of a plain user. Ended by close()."""

    def __init__(self, user, display):
        self._user = user
        self._display = display
        self._log_path = user.home / "log"
        with self._log_path.open("w") as log:
            self._process = user.start("xscreensaver", "--verbose", "--no-splash", output=log, DISPLAY=display)
        wait_until(lambda: self.tell("-time") == 0, "the daemon")

    def tell(self, word):
        return self._user.run("xscreensaver-command", word, DISPLAY=self._display).returncode

    def log(self):
        return self._log_path.read_text(errors="replace")

    def count(self, pattern):
        return len(re.findall(pattern, self.log()))

    def close(self):
        if self._process.poll() is None:
            self._process.terminate()
            self._process.wait(timeout=BOUND)


class XscreensaverTest(unittest.TestCase):
    def setUp(self):
        self.server = XServer("1000x400")
        self.addCleanup(self.server.close)
        self.server.run("xrandr", "--setmonitor", "LEFT", "600/159x400/106+0+0", "screen")
        self.server.run("xrandr", "--setmonitor", "RIGHT", "400/106x300/79+600+0", "none")
        self.user = PlainUser()
        self.addCleanup(self.user.close)
        self.play(self.user.takes(movie("long-red", "red", seconds=60)))

    def play(self, *movies):
        settings = {"Ver": "5", "FileList": [url(each) for each in movies], "FullScreenMode": "1", "PlayMode": "1",
                    "Continue": "1"}
        (self.user.preferences / "Kestro.plist").write_bytes(plistlib.dumps(settings))

    def start(self):
        """The daemon, with Kestro put into its list as users do, and chosen."""
        file = self.user.home / ".xscreensaver"
        file.write_bytes(OPTIONS)
        self.user.owns(file)
        done = self.user.run("kestro", "install-xscreensaver")
        self.assertEqual(done.returncode, 0, done.stderr)
        daemon = Daemon(self.user, self.server.display)
        self.addCleanup(daemon.close)
        return daemon

    def both_show(self, colour=RED):
        picture = self.server.picture()
        return picture.is_near(300, 200, colour) and picture.is_near(800, 150, colour)

    def colour(self):
        """The name of the colour that the first monitor shows; None for none of the movies'."""
        picture = self.server.picture()
        return next((name for name, colour in COLOURS.items() if picture.is_near(300, 200, colour)), None)

    def showing(self):
        daemon = self.start()
        self.assertEqual(daemon.tell("-activate"), 0)
        wait_until(self.both_show, "Kestro on both monitors")
        return daemon

    def processes(self):
        """Kestro's processes of this test, by their numbers."""
        program = str(pathlib.Path(self.user.kestro).parent.parent / "lib/kestro/kestro")  # what bin/kestro becomes
        found = []
        for entry in pathlib.Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and os.readlink(entry / "exe") == program:
                    found.append(int(entry.name))
            except OSError:
                continue  # it is gone, or no process of ours
        return sorted(found)

    def resume_point(self):
        path = self.user.preferences / "Kestro.def.plist"
        return plistlib.loads(path.read_bytes()) if path.exists() else {}

    def assertNoCrash(self, daemon):
        self.assertNotRegex(daemon.log(), r"(?i)crash|kestro\) (exited abnormally|unexpectedly terminated)")


class Running(XscreensaverTest):
    def test_it_shows_on_both_monitors_and_ends_with_them(self):
        daemon = self.showing()
        self.assertEqual(len(self.processes()), 2)
        self.assertTrue(self.server.picture().is_near(997, 297, RED))
        self.assertEqual(daemon.tell("-deactivate"), 0)
        wait_until(lambda: not self.processes(), "the end of both processes")
        wait_until(lambda: not self.server.windows(), "the desktop again")
        self.assertEqual(self.resume_point()["LastMovie"], "long-red.mp4")
        self.assertNoCrash(daemon)

    def test_a_cycle_stores_the_resume_point_and_the_next_run_begins_there(self):
        lengths = {"red": 3, "green": 30, "blue": 30}
        self.play(*(self.user.takes(movie(f"part-{colour}", colour, seconds=length)) for colour, length in lengths.items()))
        daemon = self.showing()
        wait_until(lambda: self.both_show(COLOURS["green"]), "the second movie")
        before = self.processes()
        self.assertEqual(daemon.tell("-cycle"), 0)
        wait_until(lambda: len(self.processes()) == 2 and not set(before) & set(self.processes()), "new processes")
        self.assertIn(self.resume_point().get("LastMovie"), ("part-green.mp4", "part-blue.mp4"))
        wait_until(lambda: daemon.count(r"kestro\) exited normally with SIGTERM") == 2, "the end as xscreensaver sees it")
        self.assertNotEqual(wait_until(self.colour, "a movie again"), "red")
        self.assertNoCrash(daemon)

    def test_a_stopped_saver_goes_on_when_it_is_told_to(self):
        daemon = self.showing()
        processes = self.processes()
        for number in (signal.SIGSTOP, signal.SIGCONT):
            for process in processes:
                os.kill(process, number)
        self.assertEqual(daemon.tell("-deactivate"), 0)
        wait_until(lambda: not self.processes(), "the end of both processes")
        self.assertNoCrash(daemon)

    def test_other_savers_stay_in_the_list(self):
        # A file with one saver in its list does not hide those that xscreensaver brings along.
        daemon = self.showing()
        self.assertEqual(daemon.tell("-next"), 0)
        wait_until(lambda: daemon.count(r'forked "(?!/|kestro)\w+ --root"') >= 2, "another saver")
        self.assertNoCrash(daemon)

    def test_a_display_that_dies_takes_it_along(self):
        self.showing()
        self.server.kill()
        wait_until(lambda: not self.processes(), "the end of both processes")
        self.assertEqual([path for path in self.user.home.iterdir() if path.name.startswith("core")], [])


class Locking(XscreensaverTest):
    """The daemon locks while Kestro covers the screen by itself, not as one of the daemon's savers."""

    def setUp(self):
        super().setUp()
        self.daemon = self.start()
        log = (self.user.home / "saver-log").open("w")
        self.addCleanup(log.close)
        self.saver = self.user.start("kestro", output=log, DISPLAY=self.server.display)
        self.addCleanup(self.end_saver)
        wait_until(self.both_show, "Kestro on both monitors")

    def end_saver(self):
        if self.saver.poll() is None:
            self.saver.kill()
        self.saver.wait(timeout=BOUND)

    def test_it_locks_at_the_first_try_and_stays_above(self):
        self.assertEqual(self.daemon.tell("-lock"), 0, self.daemon.log())
        wait_until(lambda: "locked" in self.state(), "the lock")
        wait_until(lambda: len(self.processes()) == 3, "Kestro as the daemon's saver on both monitors")
        self.assertNotRegex(self.daemon.log(), r"AlreadyGrabbed|unable to grab|aborted")
        self.assertIsNone(self.saver.poll())
        top = self.server.tree()
        self.assertLess(top.index("xscreensaver"), top.index('"Kestro"'))

    def state(self):
        """What the daemon says of itself."""
        return self.user.run("xscreensaver-command", "-time", DISPLAY=self.server.display).stdout


class AboveAHack(XscreensaverTest):
    """Another of xscreensaver's savers behind the movies, on each of the two monitors."""

    HACK = "fuzzyflakes"

    def setUp(self):
        super().setUp()
        done = self.user.run(self.user.kestro, "import-hacks", self.HACK)
        self.assertEqual(done.returncode, 0, done.stderr)
        [bundle] = (self.user.home / "Library" / "Screen Savers").iterdir()
        # Of more than half of either monitor's size, so that it covers the middle of both wherever it stands.
        settings = {"Ver": "5", "FileList": [url(self.user.takes(movie("half-red", "red", seconds=60, size="320x210")))],
                    "FullScreenMode": "0", "PartialMode": "0", "Interval": "1000", "BackSaver": str(bundle)}
        (self.user.preferences / "Kestro.plist").write_bytes(plistlib.dumps(settings))

    def hacks(self):
        """The processes of the hack that are this test's."""
        found = []
        for entry in pathlib.Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and (entry / "comm").read_text().strip() == self.HACK and \
                        str(self.user.home).encode() in (entry / "environ").read_bytes():
                    found.append(int(entry.name))
            except OSError:
                continue  # it is gone, or not ours
        return found

    def test_both_monitors_show_the_hack_around_the_movie_and_nothing_is_left(self):
        daemon = self.start()
        self.assertEqual(daemon.tell("-activate"), 0)
        looks = ([], [])

        def both_move():
            picture = self.server.picture()
            if not (picture.is_near(300, 200, RED) and picture.is_near(800, 150, RED)):
                return False
            for seen, left, width, height in zip(looks, (0, 600), (600, 400), (400, 300)):
                around = [picture.at(left + x, y) for x in range(2, width, 4) for y in range(2, height, 4)
                          if not picture.is_near(left + x, y, RED)]
                if around not in seen and set(around) != {(0, 0, 0)}:
                    seen.append(around)
            return all(len(seen) >= 3 for seen in looks)

        wait_until(both_move, "the hack around the movie on both monitors")
        self.assertEqual(len(self.hacks()), 2)
        self.assertEqual(daemon.tell("-deactivate"), 0)
        wait_until(lambda: not self.processes() and not self.hacks(), "the end of every process")
        self.assertNoCrash(daemon)


class Description(unittest.TestCase):
    """The file that xscreensaver's settings window reads."""

    @classmethod
    def setUpClass(cls):
        cls.user = PlainUser()
        cls.addClassCleanup(cls.user.close)
        path = cls.user.prefix / "share" / "xscreensaver" / "config" / "kestro.xml"
        cls.root = xml.etree.ElementTree.parse(path).getroot()

    def arguments(self):
        for element in self.root.iter():
            for name in ("arg", "arg-set", "arg-unset"):
                if name in element.attrib:
                    yield element.get(name).replace("%", element.get("default", "%"))

    def test_it_says_nothing_that_xscreensavers_own_files_do_not_say(self):
        known = {}
        for path in CONFIGS.glob("*.xml"):
            if path.name == "kestro.xml":
                continue
            for element in xml.etree.ElementTree.parse(path).iter():
                known.setdefault(element.tag, set()).update(element.attrib)
        self.assertGreater(len(known), 5)
        for element in self.root.iter():
            self.assertIn(element.tag, known)
            self.assertLessEqual(set(element.attrib), known[element.tag], element.tag)

    def test_kestro_understands_every_argument_in_it(self):
        arguments = list(self.arguments())
        self.assertGreater(len(arguments), 5)
        for argument in arguments:
            with self.subTest(argument=argument):
                # A number that is none is found only where everything before it was understood.
                done = self.user.run(self.user.kestro, *argument.split(), "--window-id", "none")
                self.assertEqual((done.returncode, done.stderr.count("\n")), (2, 1), done.stderr)
                self.assertIn('the number of a window, not "none"', done.stderr)


if __name__ == "__main__":
    unittest.main()
