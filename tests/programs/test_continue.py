"""The resume point of movies that are slow to load, and of one that is slow to be drawn still."""

import os
import pathlib
import signal
import unittest

from harness import RED, ProgramTest, movie, wait_until
from movieserver import MovieServer, never, up_to
from specialmovies import one_key_frame, streamed
from watching import Watch, is_playing
from xserver import XServer

FULL_SCREEN = {"FullScreenMode": "1", "PlayMode": "1"}
SECOND = 600  # what a second is in times of movies
POINT = {"LastMovie": "twenty.mp4", "LastPos": str(10 * SECOND)}


class Remote(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = MovieServer()
        self.addCleanup(self.server.close)
        self.file = streamed(movie("twenty", seconds=20))

    def prepare(self, answer=None, others=()):
        entry = self.server.serve("/twenty.mp4", self.file, answer)
        self.home.play([*others, entry], Continue="1", **FULL_SCREEN)
        self.home.write(POINT, name="Kestro.def.plist")
        return entry

    def start(self):
        """The saver itself: what is rendered to pictures stores nothing."""
        return self.start_kestro(QT_QPA_PLATFORM="offscreen")

    def end(self, process):
        process.send_signal(signal.SIGTERM)
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)

    def test_a_movie_goes_on_where_it_stopped_once_it_has_loaded(self):
        entry = self.prepare(others=[movie("red")])
        run = Watch(self)
        run.until(lambda trace: any(is_playing(line) and line["movie"]["time"] >= 10 * SECOND for line in trace), "the place")
        times = [line["movie"]["time"] for line in run.end() if is_playing(line)]
        self.assertEqual({line["movie"]["url"] for line in run.trace if is_playing(line)}, {entry})
        before = [time for time in times if time < 10 * SECOND]
        self.assertLess(max(before, default=0), SECOND)

    def check_point_is_kept(self, answer):
        self.prepare(answer)
        process = self.start()
        wait_until(lambda: process.poll() is not None or self.server.count("/twenty.mp4"), "a request")
        self.assertIsNone(process.poll())
        self.end(process)
        self.assertEqual(self.home.resume_point(), POINT)

    def test_the_point_is_kept_while_the_server_has_not_answered(self):
        self.check_point_is_kept(never)

    def test_the_point_is_kept_while_the_movie_has_not_loaded(self):
        self.check_point_is_kept(up_to(400))

    def test_the_point_is_kept_where_the_server_is_away(self):
        self.prepare()
        self.server.close_door()
        process = self.start()
        wait_until(lambda: "Failed to load movie" in process.stderr.readline(), "a failure")
        self.end(process)
        self.assertEqual(self.home.resume_point(), POINT)

    def test_a_later_point_is_stored_once_the_movie_plays(self):
        self.prepare()
        self.home.write({**POINT, "LastPos": str(10 * SECOND)}, name="Kestro.def.plist")
        server = XServer("320x240")
        self.addCleanup(server.close)
        process = self.start_kestro(DISPLAY=server.display)
        wait_until(lambda: process.poll() is not None or server.picture().is_near(160, 120, RED), "the movie")
        self.end(process)
        self.assertEqual(self.home.resume_point()["LastMovie"], "twenty.mp4")
        self.assertGreaterEqual(int(self.home.resume_point()["LastPos"]), 10 * SECOND)


class OneKeyFrame(ProgramTest):
    """A 4K movie whose only key frame is its first, far into it: each still has to be decoded from the beginning."""

    MOST_WITHOUT_A_TICK = 1.0  # seconds; a still takes longer, and longer still where others use the processor
    FLY = {"FullScreenMode": "0", "PartialMode": "0", "Scale": "0.1", "Interval": "1", "Fadeout": "1", "Continue": "1"}

    def setUp(self):
        super().setUp()
        self.home.play([one_key_frame()], **self.FLY)
        self.home.write(self.point(18), name="Kestro.def.plist")

    @staticmethod
    def point(seconds):
        return {"LastMovie": "one-key-frame.webm", "LastPos": str(seconds * SECOND)}

    def test_the_ticks_go_on_while_stills_are_taken(self):
        run = Watch(self, size="640x360")
        run.until(lambda trace: self.places(trace) >= 4, "the movie to move")
        trace = run.end()
        first = next(number for number, line in enumerate(trace) if is_playing(line))
        times = [line["t"] for line in trace[first:]]
        gaps = [after - before for before, after in zip(times, times[1:])]
        self.assertLess(max(gaps), self.MOST_WITHOUT_A_TICK)

    @staticmethod
    def places(trace):
        return len({tuple(line["movie"]["frame"]) for line in trace if is_playing(line)})

    def test_a_signal_ends_it_while_a_still_is_taken_and_the_point_is_stored(self):
        point = self.point(8)
        self.home.write(point, name="Kestro.def.plist")
        server = XServer("640x360")
        self.addCleanup(server.close)
        process = self.start_kestro(DISPLAY=server.display)
        self.until(process, lambda: max(server.picture().bytes) > 100, "the movie")
        self.until(process, lambda: self.readers(process) >= 2, "a still to be taken")
        self.home.forget_resume_point()
        process.send_signal(signal.SIGTERM)
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertEqual(self.home.resume_point()["LastMovie"], "one-key-frame.webm")
        self.assertGreaterEqual(int(self.home.resume_point()["LastPos"]), int(point["LastPos"]))

    def until(self, process, condition, what):
        wait_until(lambda: process.poll() is not None or condition(), what)
        self.assertIsNone(process.poll())

    @staticmethod
    def readers(process):
        """How many times the process has the movie open."""
        opened = pathlib.Path(f"/proc/{process.pid}/fd").iterdir()
        return [os.path.realpath(each) for each in opened].count(str(one_key_frame()))


if __name__ == "__main__":
    unittest.main()
