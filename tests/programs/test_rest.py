"""When `kestro` rests: black after its time, with nothing left that decodes, and the first key ends it all the same."""

import os
import pathlib
import re
import subprocess
import unittest

from background import FLY, commands_of, savers_of
from bus import Bus
from harness import BLACK, BOUND, end_process, movie, player_threads, wait_until
from inputclient import InputClient
from sessiontest import SCREEN, Session
from test_given_window import GivenWindow

UPOWER = "org.freedesktop.UPower"


def tree_of(process):
    """The numbers of a process and of all that it started."""
    found = [process]
    for task in pathlib.Path(f"/proc/{process}/task").iterdir():
        for child in (task / "children").read_text().split():
            found += tree_of(int(child))
    return found


class Rest(Session):
    def log(self):
        return (self.home.path / "log").read_text()

    def showing(self, *words):
        with (self.home.path / "log").open("w") as log:
            process = self.start_kestro(*words, stderr=log, DISPLAY=self.server.display)
        wait_until(lambda: process.poll() is not None or self.is_red(), "the movie")
        self.assertIsNone(process.poll())
        return process

    def await_black(self):
        wait_until(lambda: "black from now on" in self.log(), "the end of its time")
        wait_until(lambda: self.server.picture().is_blank(), "a black screen")


class StopAfter(Rest):
    def test_it_is_black_and_nothing_decodes_when_its_time_is_over(self):
        process = self.showing("--stop-after", "4s")
        self.assertNotEqual(player_threads(process.pid), [])
        self.await_black()
        wait_until(lambda: not player_threads(process.pid), "the decoders to go")
        self.assertEqual(tree_of(process.pid), [process.pid])

    def test_a_key_ends_it_while_it_is_black_and_the_movie_goes_on_there_next_time(self):
        process = self.showing("--stop-after", "4s")
        self.await_black()
        self.assertTrue(self.pictures())
        self.server.run("xdotool", "key", "a")
        wait_until(lambda: process.poll() is not None, "the end")
        self.assertEqual(process.returncode, 0, self.log())
        self.assertEqual(self.home.resume_point()["LastMovie"], "long-red.mp4")
        self.assertGreater(int(self.home.resume_point()["LastPos"]), 600)

    def test_the_file_says_it_too(self):
        self.home.configure("[idle]\nstop-after=3s\n")
        self.showing()
        self.await_black()

    def test_the_words_of_one_run_win_over_the_file(self):
        self.home.configure("[idle]\nstop-after=24h\n")
        self.showing("--stop-after=3s")
        self.await_black()

    def test_a_saver_behind_the_movies_ends_too(self):
        self.run_kestro("import-hacks", "fuzzyflakes")
        [bundle] = savers_of(self.home).iterdir()
        self.home.play([movie("large-red", "red", seconds=60, size="900x380")], BackSaver=str(bundle), **FLY)
        process = self.showing("--stop-after", "6s")
        wait_until(lambda: "fuzzyflakes" in commands_of(tree_of(process.pid)), "the saver behind")
        self.await_black()
        wait_until(lambda: tree_of(process.pid) == [process.pid], "every other process to end")
        wait_until(lambda: not player_threads(process.pid), "the decoders to go")


class Power(Rest):
    """A laptop whose plug is pulled and put back while the saver shows."""

    def setUp(self):
        super().setUp()
        self.bus = Bus()
        self.addCleanup(self.bus.close)
        environment = self.home.environment()
        self.home.environment = lambda **more: environment | {"DBUS_SYSTEM_BUS_ADDRESS": self.bus.address} | more
        service = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "upower"],
                                   env=self.home.environment(), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   start_new_session=True)
        self.addCleanup(end_process, service)
        wait_until(lambda: self.tell(False), "UPower")

    def tell(self, on_battery):
        """Whether the service was there to take that."""
        command = ["dbus-send", f"--bus={self.bus.address}", "--print-reply", f"--dest={UPOWER}", "/org/freedesktop/UPower",
                   "org.freedesktop.DBus.Properties.Set", f"string:{UPOWER}", "string:OnBattery",
                   f"variant:boolean:{str(on_battery).lower()}"]
        return subprocess.run(command, capture_output=True, timeout=BOUND, stdin=subprocess.DEVNULL).returncode == 0

    def choose(self, choice):
        self.home.configure(f"[power]\non-battery={choice}\n")

    def box(self):
        return self.server.picture().box_of_red(0, 0, *SCREEN)

    def test_one_picture_wanders_about_and_nothing_decodes_while_there_is_no_plug(self):
        self.choose("still")
        process = self.showing()
        self.assertTrue(self.tell(True))
        wait_until(lambda: "one picture stands for the movie" in self.log(), "the word")
        wait_until(lambda: (box := self.box()) and box[2] <= SCREEN[0] // 2 and box[3] <= SCREEN[1] // 2, "the picture")
        wait_until(lambda: not player_threads(process.pid), "the decoders to go")
        before = self.box()[:2]
        wait_until(lambda: self.box()[:2] != before, "the picture to move")
        self.assertEqual(player_threads(process.pid), [])
        self.assertTrue(self.tell(False))
        wait_until(self.is_red, "the movie again")
        self.assertNotEqual(player_threads(process.pid), [])

    def test_it_is_black_for_as_long_as_there_is_no_plug(self):
        self.choose("off")
        process = self.showing()
        self.assertTrue(self.tell(True))
        wait_until(lambda: self.server.picture().is_blank(), "a black screen")
        wait_until(lambda: not player_threads(process.pid), "the decoders to go")
        self.assertTrue(self.tell(False))
        wait_until(self.is_red, "the movie again")

    def test_the_first_picture_stands_where_there_was_no_plug_from_the_start(self):
        self.choose("still")
        self.assertTrue(self.tell(True))
        with (self.home.path / "log").open("w") as log:
            process = self.start_kestro(stderr=log, DISPLAY=self.server.display)
        wait_until(lambda: "one picture stands for the movie" in self.log(), "the word")
        wait_until(lambda: (box := self.box()) and box[2] <= SCREEN[0] // 2, "the picture")
        wait_until(lambda: not player_threads(process.pid), "the decoders to go")

    def test_a_bus_that_hangs_holds_nothing_up(self):
        self.choose("still")
        self.assertTrue(self.tell(True))
        self.bus.stop()
        process = self.showing()
        self.server.run("xdotool", "key", "a")
        wait_until(lambda: process.poll() is not None, "the end")
        self.assertEqual(process.returncode, 0, self.log())


class Unseen(GivenWindow):
    """A saver in a window that goes out of sight, beside one that stays in sight and serves as a clock: it blinks."""

    def setUp(self):
        super().setUp()
        self.other = InputClient(self.server)
        self.addCleanup(self.other.close)
        self.process = self.showing(self.in_window())
        clock = self.other.window(100, 100, 700, 400)
        self.home.play([movie("clock", "red", seconds=60, is_blinking=True)], FullScreenMode="1", PlayMode="1")
        self.start("--root", XSCREENSAVER_WINDOW=hex(clock))
        self.let_clock_blink()

    def let_clock_blink(self, times=2):
        for _ in range(times):
            wait_until(lambda: self.shows(750, 450, BLACK), "the clock to go dark")
            wait_until(lambda: self.shows(750, 450), "the clock to light up")

    def wakes(self):
        """How often the threads of the saver that is looked at have been woken so far."""
        tasks = pathlib.Path(f"/proc/{self.process.pid}/task")
        status = [path.read_text() for path in tasks.glob("*/status") if not self.is_sanitizers(path.parent)]
        return sum(int(re.search(r"^voluntary_ctxt_switches:\s*(\d+)", text, re.M)[1]) for text in status)

    def is_sanitizers(self, task):
        """Whether a thread may be the thread sanitizer's own, which has the program's name and is woken for ever."""
        return "thread" in os.environ.get("SANITIZERS", "") and task.name != str(self.process.pid) and \
            (task / "comm").read_text().strip() == "kestro"

    def stands_still(self):
        before = self.wakes()
        self.let_clock_blink()
        return self.wakes() - before < 10

    def test_it_stands_still_while_it_is_covered_and_goes_on_afterwards(self):
        cover = self.other.cover(300, 200, 100, 50)
        wait_until(self.stands_still, "the saver to stand still")
        self.server.run("xdotool", "windowunmap", str(cover))
        wait_until(lambda: self.shows(250, 150), "the picture again")
        self.assertFalse(self.stands_still())
        self.assertIsNone(self.process.poll())

    def test_it_stands_still_while_its_window_is_not_there_and_goes_on_afterwards(self):
        self.server.run("xdotool", "windowunmap", str(self.giver.number))
        wait_until(self.stands_still, "the saver to stand still")
        self.server.run("xdotool", "windowmap", str(self.giver.number))
        wait_until(lambda: self.shows(250, 150), "the picture again")
        self.assertFalse(self.stands_still())


if __name__ == "__main__":
    unittest.main()
