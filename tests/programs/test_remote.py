"""Movies on a server that goes away, comes back, falls silent or has lost some of them: `kestro render`, by its trace."""

import datetime
import plistlib
import unittest

from harness import url
from remotetest import DEAD, RemoteTest
from watching import is_playing

AWAY = 6  # seconds
SOON = 15  # seconds by the run's own clock in which it must have noticed that the server is back
A_WHILE = 5  # seconds in which whatever is asked for too often was asked for too often


def movies_shown(trace):
    """The URLs that played, in order, each once for as long as it stayed; None for the sign."""
    shown = [line["movie"]["url"] if is_playing(line) else None for line in trace if is_playing(line) or line["sign"]]
    return [now for before, now in zip([..., *shown], shown) if before != now]


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
        for path in DEAD:
            # One round at the start, and one when the last second is about to be over.
            self.assertIn(self.server.count(path), range(2, A_WHILE + 3))
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

    def check_no_sign_comes_back(self, entries, good, has_seen=lambda _: True, **settings):
        run = self.play(entries, **settings)
        run.until(has_seen, "what comes first")
        begun = self.plays_again_and_again(run, good, 6)
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
        self.check_no_sign_comes_back([good, "auto://LatestTrailers/6/480"], good,
                                      lambda _: all(self.server.count(path) for path in DEAD))

    def write_trailers(self, urls):
        """Puts them into the record of trailers; the crawl that may follow finds nothing at the site."""
        today = datetime.date.today().strftime("%Y/%m/%d")
        records = [{"URL": each, "Size": "480 x 204", "Date": today, "AC": "Y"} for each in urls]
        contents = {"Ver": "010901", "Trailers": records, "Sites": []}
        (self.home.preferences / "Kestro_Scanned_Trailers.lst").write_bytes(plistlib.dumps(contents))
        self.home.trailer_site(self.server.url("/trailers/"))

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
