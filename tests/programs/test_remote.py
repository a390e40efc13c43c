"""Movies on a server that goes away, comes back, falls silent or has lost some of them: `kestro render`, by its trace."""

import datetime
import plistlib
import unittest

from harness import ProgramTest, Rendering, movie, url
from movieserver import MovieServer, trickling_from, up_to
from specialmovies import heavy, streamed, without_duration
from watching import Watch, is_playing

FULL_SCREEN = {"FullScreenMode": "1", "PlayMode": "1"}
FLY = {"FullScreenMode": "0", "PartialMode": "0", "Scale": "0.5"}
BOUNCE = {"FullScreenMode": "0", "PartialMode": "1", "Scale": "0.5"}
AWAY = 6  # seconds
SOON = 15  # seconds by the run's own clock in which it must have noticed that the server is back
A_WHILE = 5  # seconds in which whatever is asked for too often was asked for too often


def movies_shown(trace):
    """The URLs that played, in order, each once for as long as it stayed; None for the sign."""
    shown = [line["movie"]["url"] if is_playing(line) else None for line in trace if is_playing(line) or line["sign"]]
    return [now for before, now in zip([..., *shown], shown) if before != now]


class RemoteTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = MovieServer()
        self.addCleanup(self.server.close)
        self.short = [movie("short-red", "red", seconds=0.6), movie("short-green", "green", seconds=0.6)]

    def serve(self, path, file, answer=None):
        return self.server.serve(path, streamed(file), answer)

    def play(self, entries, *words, mode=FULL_SCREEN, **settings):
        self.home.play(entries, **mode, **settings)
        return Watch(self, *words)

    def dead(self, count):
        """URLs that the server knows nothing of."""
        return [self.server.url(f"/dead{number}.mp4") for number in range(count)]


class ServerAway(RemoteTest):
    """Every entry is on a server that goes away: the sign moves meanwhile, and the movies play again."""

    def remote_entries(self):
        return [self.serve("/a.mp4", self.short[0]), self.serve("/b.mp4", self.short[1])]

    def check_it_plays_again(self, **settings):
        run = self.play(self.remote_entries(), **settings)
        run.until_it_plays(self.server.url("/b.mp4"))
        self.server.close_door()
        first_sign = run.until_the_sign_moves(since=run.now())
        back = run.until_seconds(run.trace[first_sign]["t"] + AWAY)
        run.until_the_sign_moves(since=back)
        self.server.open_door()
        opened = run.now()
        again = [run.until_it_plays(self.server.url(path), since=opened) for path in ("/a.mp4", "/b.mp4")]
        self.assertLess(run.trace[min(again)]["t"] - run.trace[opened - 1]["t"], SOON)
        run.end()

    def test_it_plays_again_in_sequential_order(self):
        self.check_it_plays_again()

    def test_it_plays_again_in_random_order(self):
        self.check_it_plays_again(RandomMode="1")

    def test_it_plays_once_a_server_is_there_that_was_away_at_the_start(self):
        for order in ("0", "1"):
            with self.subTest(order=order):
                entries = self.remote_entries()
                self.server.close_door()
                run = self.play(entries, RandomMode=order)
                run.until_the_sign_moves(since=run.until_seconds(3))
                self.server.open_door()
                opened = run.now()
                again = [run.until_it_plays(entry, since=opened) for entry in entries]
                self.assertLess(run.trace[min(again)]["t"] - run.trace[opened - 1]["t"], SOON)
                run.end()

    def test_a_whole_round_of_failures_comes_once_a_second_at_most(self):
        entries = self.dead(3)
        run = self.play(entries)
        run.until_the_sign_moves()
        run.until_seconds(A_WHILE)
        for number in range(3):
            asked = self.server.count(f"/dead{number}.mp4")
            # One round at the start, and one when the last second is about to be over.
            self.assertIn(asked, range(2, A_WHILE + 3))
        run.end()


class SomeDead(RemoteTest):
    """Some entries cannot be played: the sign never shows while one can."""

    def plays_again_and_again(self, run, entry, times):
        """Waits until the entry has begun that often; answers the number of the line of each beginning."""
        begun = []

        def is_often(trace):
            begun[:] = [number for number, line in enumerate(trace) if is_playing(line) and line["movie"]["url"] == entry
                        and (number == 0 or not is_playing(trace[number - 1])
                             or trace[number - 1]["movie"]["time"] > line["movie"]["time"])]
            return len(begun) >= times

        run.until(is_often, f"{entry} to play {times} times")
        return begun

    def check_no_sign_comes_back(self, entries, good, times=6, **settings):
        run = self.play(entries, **settings)
        begun = self.plays_again_and_again(run, good, times)
        trace = run.end()
        signs = [line for line in trace[begun[0]:] if line["sign"]]
        self.assertEqual(signs, [])
        self.assertEqual({entry for entry in movies_shown(trace) if entry}, {good})

    def test_a_local_movie_plays_on_beside_two_dead_ones_in_either_order(self):
        good = url(self.short[0])
        for order in ("0", "1"):
            with self.subTest(order=order):
                self.check_no_sign_comes_back([good, *self.dead(2)], good, RandomMode=order)

    def test_a_remote_movie_plays_on_beside_two_dead_ones(self):
        good = self.serve("/a.mp4", self.short[0])
        self.check_no_sign_comes_back([*self.dead(2), good], good)

    def test_a_local_movie_plays_on_where_the_trailers_of_an_automatic_entry_fail(self):
        good = url(self.short[0])
        self.write_trailers(self.dead(3))
        self.check_no_sign_comes_back([good, "auto://LatestTrailers/6/480"], good)
        for number in range(3):
            self.assertGreater(self.server.count(f"/dead{number}.mp4"), 0)

    def write_trailers(self, urls):
        """Puts them into the record of trailers; the crawl that may follow finds nothing at the site."""
        today = datetime.date.today().strftime("%Y/%m/%d")
        records = [{"URL": each, "Size": "480 x 204", "Date": today, "AC": "Y"} for each in urls]
        contents = {"Ver": "010901", "Trailers": records, "Sites": []}
        (self.home.preferences / "Kestro_Scanned_Trailers.lst").write_bytes(plistlib.dumps(contents))
        folder = self.home.path / ".config" / "kestro"
        folder.mkdir(parents=True)
        (folder / "kestro.conf").write_text(f"[trailers]\nstart={self.server.url('/trailers/')}\n")

    def test_the_only_good_movie_loops_and_the_dead_one_is_not_asked_for_again(self):
        for good in (url(self.short[0]), self.serve("/a.mp4", self.short[0])):
            for place in (0, 1):
                with self.subTest(good=good, place=place):
                    dead = self.server.url(f"/gone{place}.mp4")
                    self.server.requests.clear()
                    entries = [dead]
                    entries.insert(place, good)
                    run = self.play(entries)
                    self.plays_again_and_again(run, good, 3)
                    asked = self.server.count(f"/gone{place}.mp4")
                    self.plays_again_and_again(run, good, 7)
                    self.assertEqual(self.server.count(f"/gone{place}.mp4"), asked)
                    self.assertIn(asked, (1, 2))
                    run.end()

    def test_a_movie_that_stops_being_served_leaves_the_other(self):
        lost, good = self.serve("/a.mp4", self.short[0]), url(self.short[1])
        run = self.play([lost, good])
        run.until_it_plays(lost)
        self.server.forget("/a.mp4")
        since = run.until_it_plays(good, since=run.now())
        self.plays_again_and_again(run, good, 4)
        self.assertEqual([line for line in run.end()[since:] if line["sign"]], [])


class Stalls(RemoteTest):
    """These take as long as a server is given to make progress."""

    def check_it_counts_as_ended(self, answer_from):
        half = heavy().stat().st_size // 2
        stalled, good = self.server.serve("/heavy.mp4", heavy(), answer_from(half)), url(self.short[1])
        run = self.play([stalled, good])
        since = run.until_it_plays(stalled)
        run.until_it_plays(good, since=since)
        run.end()
        self.assertIn(f"Failed to load movie:{stalled}\n", run.log())

    def test_a_server_that_trickles_does_not_hold_up_the_next_movie(self):
        self.check_it_counts_as_ended(trickling_from)

    def test_a_server_that_falls_silent_does_not_hold_up_the_next_movie(self):
        self.check_it_counts_as_ended(up_to)


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
                self.assertGreater(min(done.last_picture().at(int(x + width / 2), int(480 - y - height / 2))), 20)


class Requests(RemoteTest):
    """A movie is fetched once to be played, and once more only where stills of it are wanted."""

    def check_requests(self, count, mode, is_enough, **settings):
        entry = self.serve("/long.mp4", movie("long", seconds=8))
        self.server.requests.clear()
        self.home.play([entry], **mode, **settings)
        run = Watch(self, size="400x300")
        since = run.until_it_plays(entry)
        run.until(lambda trace: is_enough(trace[since:]), "enough of the movie")
        run.end()
        self.assertEqual(self.server.count("/long.mp4"), count)

    @staticmethod
    def has_moved(trace):
        return len({tuple(line["movie"]["frame"]) for line in trace if line["movie"]}) > 2

    def test_one_at_full_screen(self):
        for fades in ("0", "1"):
            with self.subTest(fades=fades):
                self.check_requests(1, FULL_SCREEN, lambda trace: len(trace) > 20, Fadeout=fades)

    def test_one_where_nothing_stays_behind(self):
        for mode in (FLY, BOUNCE):
            with self.subTest(mode=mode):
                self.check_requests(1, mode, self.has_moved, Interval="0.5")

    def test_two_where_stills_stay_behind(self):
        self.check_requests(2, FLY, lambda trace: any(line["fading"] for line in trace), Interval="1", Fadeout="1")
        self.check_requests(2, BOUNCE, lambda trace: any(line["trail"] > 2 for line in trace), Fadeout="1")


class NothingToPlay(RemoteTest):
    def test_the_sign_moves_on_every_screen(self):
        broken = self.home.path / "broken.mov"
        broken.write_bytes(b"no movie at all" * 100)
        for entries in ([broken], self.dead(2), [broken, *self.dead(1)]):
            for order in ("0", "1"):
                with self.subTest(entries=entries, order=order):
                    run = self.play(entries, "--screens", "2", RandomMode=order)
                    for screen in range(2):
                        run.until_the_sign_moves(screen=screen)
                    run.end()


if __name__ == "__main__":
    unittest.main()
