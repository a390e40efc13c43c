"""How movies are fetched from a server: how often, what is made of one that does not say how long it is, and when the saver
has waited long enough."""

import unittest

from harness import Home, Rendering, movie, url
from movieserver import trickling_from, up_to
from remotetest import FULL_SCREEN, RemoteTest
from specialmovies import heavy, without_duration
from watching import Watch

FLY = {"FullScreenMode": "0", "PartialMode": "0", "Scale": "0.5"}
A_WHILE = 20  # ticks in which another request would come
BOUNCE = {"FullScreenMode": "0", "PartialMode": "1", "Scale": "0.5"}


class Stalls(RemoteTest):
    """These take as long as a server is given to make progress."""

    def stalled_run(self, answer):
        """A run whose first movie comes only in part, and the URL of that."""
        stalled = self.server.serve(f"/{answer.__name__}.mp4", heavy(), answer(heavy().stat().st_size // 2))
        self.home = Home()
        self.addCleanup(self.home.close)
        return stalled, self.play([stalled, url(self.short[1])])

    def test_a_movie_that_stalls_does_not_hold_up_the_next_one(self):
        for stalled, run in [self.stalled_run(answer) for answer in (trickling_from, up_to)]:
            with self.subTest(stalled):
                run.until_it_plays(url(self.short[1]), since=run.until_it_plays(stalled))
                run.end()
                self.assertIn(f"Failed to load movie:{stalled}\n", run.log())


class WithoutDuration(RemoteTest):
    def test_a_movie_without_a_duration_is_shown_in_every_mode(self):
        entry = self.server.serve("/bare.h264", without_duration())
        for mode in (FULL_SCREEN, {"FullScreenMode": "1", "PlayMode": "0"}, {"FullScreenMode": "1", "PlayMode": "2"}, FLY,
                     BOUNCE):
            with self.subTest(mode=mode):
                self.home.play([entry], **mode)
                done = Rendering(self, seconds=2, every=2, size="640x480")
                frames = done.movie_frames()
                self.assertTrue(frames)
                x, y, width, height = frames[-1]
                self.assertGreaterEqual(width, 160)
                # Noise may take two colours of a pixel away, never its light.
                self.assertGreater(max(done.last_picture().at(int(x + width / 2), int(480 - y - height / 2))), 20)


class Requests(RemoteTest):
    """A movie is fetched once to be played, and once more at most where stills of it are wanted."""

    def requests(self, mode, is_enough, **settings):
        """How many it took until the trace, from the movie's first line on, was enough, and a while longer."""
        entry = self.serve("/long.mp4", movie("long", seconds=8))
        self.server.requests.clear()
        self.home.play([entry], **mode, **settings)
        run = Watch(self, size="400x300")
        since = run.until_it_plays(entry)
        run.until(lambda trace: is_enough(trace[since:]), "enough of the movie")
        run.until(lambda trace, enough=run.now(): len(trace) > enough + A_WHILE, "some more of it")
        run.end()
        return self.server.count("/long.mp4")

    @staticmethod
    def has_moved(trace):
        return len({tuple(line["movie"]["frame"]) for line in trace if line["movie"]}) > 2

    def test_one_at_full_screen(self):
        for fades in ("0", "1"):
            with self.subTest(fades=fades):
                self.assertEqual(self.requests(FULL_SCREEN, bool, Fadeout=fades), 1)

    def test_one_where_nothing_stays_behind(self):
        for mode in (FLY, BOUNCE):
            with self.subTest(mode=mode):
                self.assertEqual(self.requests(mode, self.has_moved, Interval="0.5"), 1)

    def test_two_at_most_where_stills_stay_behind(self):
        for mode, has_stills in [(FLY, lambda line: line["fading"]), (BOUNCE, lambda line: line["trail"] > 2)]:
            with self.subTest(mode=mode):
                count = self.requests(mode, lambda trace, wanted=has_stills: any(map(wanted, trace)), Interval="1", Fadeout="1")
                self.assertIn(count, (1, 2))


if __name__ == "__main__":
    unittest.main()
