"""`kestro` while displays are switched off: nothing is decoded for them, and the movie goes on when they are back."""

import pathlib
import re
import unittest

from harness import ProgramTest, movie, wait_until
from sleepydisplays import CAPABLE, INFO, SleepyDisplays
from wayland import OddCompositor
from xserver import XServer

MANY = 100  # wakes of a thread that plays, while one that does not has none but a few


class Asleep(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home.play([movie("long-red", "red", seconds=60, rate=25)], FullScreenMode="1", PlayMode="1")

    def wakes(self, process):
        """How often each thread that shows a movie has been woken so far."""
        found = {}
        for task in pathlib.Path(f"/proc/{process.pid}/task").iterdir():
            try:
                status = (task / "status").read_text()
            except OSError:
                continue  # it has ended meanwhile
            if status.startswith(("Name:\tmpv/vo\n", "Name:\tvo\n")):  # as older and newer releases call it
                found[task.name] = int(re.search(r"^voluntary_ctxt_switches:\s*(\d+)", status, re.M)[1])
        return found

    def plays(self, process, clock):
        """How many movies of a process play while one of another, or of its own, plays for a while."""
        before, start = self.wakes(process), self.wakes(clock)

        def ticked():
            now = self.wakes(clock)
            return any(now[thread] - start.get(thread, 0) >= MANY for thread in now)

        wait_until(ticked, "the movie that serves as a clock")
        now = self.wakes(process)
        return sum(now[thread] - before.get(thread, 0) >= MANY // 4 for thread in now)

    def await_movies(self, process, count, clock):
        wait_until(lambda: process.poll() is not None or self.plays(process, clock) == count, f"{count} movies that play")
        self.assertIsNone(process.poll())


class OnX(Asleep):
    """Beside a saver on a display that stays on, which serves as a clock."""

    def setUp(self):
        super().setUp()
        self.displays = SleepyDisplays(self.server())
        self.addCleanup(self.displays.close)
        self.clock = self.start_kestro(DISPLAY=self.server().display)

    def server(self):
        server = XServer("320x240")
        self.addCleanup(server.close)
        return server

    def start(self, *words, **streams):
        return self.start_kestro(*words, DISPLAY=self.displays.display, **streams)

    def test_nothing_plays_while_they_are_off_and_the_movie_goes_on_when_they_are_back(self):
        process = self.start()
        self.await_movies(process, 1, self.clock)
        self.displays.is_on = False
        self.await_movies(process, 0, self.clock)
        self.displays.is_on = True
        self.await_movies(process, 1, self.clock)
        self.assertEqual(self.displays.asked.count(CAPABLE), 1)

    def test_displays_that_cannot_be_switched_are_asked_once(self):
        self.displays.is_capable = False
        process = self.start()
        self.await_movies(process, 1, self.clock)
        self.await_movies(process, 1, self.clock)
        self.assertEqual(self.displays.asked, [CAPABLE])

    def test_they_are_not_asked_once_the_time_is_over(self):
        path = self.home.path / "log"
        with path.open("w") as log:
            process = self.start("--stop-after", "3s", stderr=log)
        wait_until(lambda: "black from now on" in path.read_text(), "the end of its time")
        self.await_movies(process, 0, self.clock)
        before = len(self.displays.asked)
        self.assertIn(INFO, self.displays.asked)
        for _ in range(3):
            self.plays(process, self.clock)
        self.assertEqual(len(self.displays.asked), before)


class OnWayland(Asleep):
    def test_each_output_has_its_own_movie_held_while_it_is_off(self):
        compositor = OddCompositor()
        self.addCleanup(compositor.close)
        compositor.tell("plug 320 240 1", "plug 160 120 1")
        process = self.start_kestro(WAYLAND_DISPLAY=compositor.display)
        for number in (1, 2):
            wait_until(lambda: any(line.startswith(f"layer {number} ") for line in compositor.lines()), "the layers")
        compositor.tell("configure 1 320 240", "configure 2 160 120")
        self.await_movies(process, 2, process)
        compositor.tell("power 2 0")
        self.await_movies(process, 1, process)
        compositor.tell("power 2 1")
        self.await_movies(process, 2, process)
        self.assertFalse([line for line in compositor.lines() if line.startswith("switches")])


if __name__ == "__main__":
    unittest.main()
