"""The saver told from outside, over a bus of its own: other movies, its end, and what it shows."""

import json
import subprocess
import unittest

from harness import BLACK, BLUE, BOUND, GREEN, KESTRO, RED, movie, url, wait_until
from idletest import IdleTest
from xserver import XServer

PLAYER = "org.mpris.MediaPlayer2.kestro"
NAME, PATH = "org.kestro.Saver1", "/org/kestro/Saver1"
NOBODY = "kestro: No saver runs in this session that listens ([control] bus=yes).\n"


class ControlTest(IdleTest):
    def setUp(self):
        super().setUp()
        self.server = XServer()
        self.addCleanup(self.server.close)
        self.movies = [movie(f"control-{colour}", colour, seconds=60) for colour in ("red", "green", "blue")]
        self.home.play(self.movies, FullScreenMode="1", PlayMode="1")
        self.home.configure("[control]\nbus=yes\n")

    def display_environment(self):
        return {"DISPLAY": self.server.display}

    def wait_for(self, colour, x=320):
        wait_until(lambda: self.server.picture().is_near(x, 240, colour), f"{colour} on the screen")

    def start(self, *words):
        saver = self.start_kestro(*words, **self.environment())
        self.wait_for(RED)
        return saver

    def start_heard(self, *words):
        saver = self.start(*words)
        wait_until(lambda: self.tell("now").returncode == 0, "the saver on the bus")
        return saver

    def tell(self, *words):
        return subprocess.run([KESTRO, *words], env=self.environment(), capture_output=True, text=True, timeout=BOUND,
                              stdin=subprocess.DEVNULL)

    def assertDone(self, *words):
        done = self.tell(*words)
        self.assertEqual((done.returncode, done.stderr), (0, ""), words)
        return done.stdout

    def assertNobodyListens(self):
        for word in ("next", "previous", "now", "stop"):
            done = self.tell(word)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (1, "", NOBODY), word)

    def assertEndsByTerm(self, saver):
        saver.terminate()
        status, errors = self.ended(saver)
        self.assertEqual(status, 0, errors)
        wait_until(lambda: self.server.picture().is_near(320, 240, BLACK), "the saver's end")
        return errors

    def names(self):
        listed = subprocess.run(["busctl", f"--address={self.bus.address}", "list", "--acquired", "--no-legend"],
                                capture_output=True, text=True, timeout=BOUND, check=True)
        return [line.split()[0] for line in listed.stdout.splitlines()]


class Control(ControlTest):
    def test_next_and_previous_change_the_movie(self):
        self.start_heard()
        self.assertDone("next")
        self.wait_for(GREEN)
        self.assertDone("next")
        self.wait_for(BLUE)
        self.assertDone("previous")
        self.wait_for(GREEN)

    def test_now_names_the_movie(self):
        self.start_heard()
        self.assertEqual(self.assertDone("now"), f"control-red\n{url(self.movies[0])}\n")
        self.assertDone("next")
        self.wait_for(GREEN)
        told = wait_until(lambda: json.loads(self.assertDone("now", "--json")).get("title") == "control-green" and
                          json.loads(self.assertDone("now", "--json")), "the other movie's name")
        self.assertEqual(told, {"title": "control-green", "url": url(self.movies[1])})

    def test_now_says_where_no_movie_shows(self):
        self.home.play([])
        self.start_kestro(**self.environment())
        wait_until(lambda: NAME in self.names(), "the saver on the bus")
        done = self.tell("now")
        self.assertEqual((done.returncode, done.stderr), (1, "kestro: The saver shows no movie.\n"))
        self.assertEqual(json.loads(self.assertDone("now", "--json")), {})

    def test_stop_ends_it_as_a_signal_does(self):
        self.home.play(self.movies, FullScreenMode="1", PlayMode="1", Continue="1")
        saver = self.start_heard()
        self.assertDone("stop")
        self.assertEqual(self.ended(saver)[0], 0)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "control-red.mp4")
        self.assertNobodyListens()

    def test_all_monitors_of_a_mirror_change(self):
        self.start_heard("--mirror")
        self.assertDone("next")
        self.wait_for(GREEN)

    def test_the_second_saver_says_nothing_and_ends_by_itself(self):
        first = self.start_heard()
        second = self.start_kestro(**self.environment())
        self.assertDone("stop")
        self.assertEqual(self.ended(first)[0], 0)
        self.assertIsNone(second.poll())
        wait_until(lambda: self.tell("now").returncode == 0, "the second saver on the bus")
        self.assertNotIn(NAME, self.assertEndsByTerm(second))


class MediaPlayer(ControlTest):
    def player(self, interface, name):
        done = subprocess.run(["busctl", f"--address={self.bus.address}", "--json=short", "get-property", PLAYER,
                               "/org/mpris/MediaPlayer2", interface, name], capture_output=True, text=True,
                              timeout=BOUND)
        return json.loads(done.stdout)["data"] if done.returncode == 0 else None

    def call(self, method, check=True):
        subprocess.run(["busctl", f"--address={self.bus.address}", "call", PLAYER, "/org/mpris/MediaPlayer2",
                        "org.mpris.MediaPlayer2.Player", method], capture_output=True, timeout=BOUND, check=check)

    def title(self):
        data = self.player("org.mpris.MediaPlayer2.Player", "Metadata")
        return data and data["xesam:title"]["data"]

    def start_with_sound(self):
        self.home.play(self.movies, FullScreenMode="1", PlayMode="1", SoundOn="1")
        saver = self.start_heard()
        wait_until(lambda: PLAYER in self.names(), "the player on the bus")
        return saver

    def test_the_player_tells_of_the_movie_and_changes_it(self):
        self.start_with_sound()
        self.assertEqual(self.title(), "control-red")
        self.call("Next")
        self.wait_for(GREEN)
        wait_until(lambda: self.title() == "control-green", "the other movie's title")
        self.call("Previous")
        self.wait_for(RED)

    def test_its_stop_ends_the_saver(self):
        saver = self.start_with_sound()
        self.call("Stop", check=False)  # it may end before it has answered
        self.assertEqual(self.ended(saver)[0], 0)
        self.assertNotIn(PLAYER, self.names())

    def test_no_player_is_there_without_sound(self):
        self.start_heard()
        self.assertDone("next")
        self.wait_for(GREEN)
        self.assertNotIn(PLAYER, self.names())


class NotOnTheBus(ControlTest):
    def test_nobody_is_there_where_no_saver_runs(self):
        self.assertNobodyListens()

    def test_the_saver_is_not_there_unless_that_was_chosen(self):
        for text in ("", "[control]\nbus=no\n", "[control]\nbus=maybe\n"):
            with self.subTest(text=text):
                self.home.configure(text)
                saver = self.start()
                self.assertNotIn(NAME, self.names())
                self.assertNobodyListens()
                errors = self.assertEndsByTerm(saver)
                self.assertEqual(errors.count('"maybe" is neither yes nor no'), text.count("maybe"), errors)

    def test_the_saver_in_a_given_window_is_not_there(self):
        self.start("--root")
        self.assertNotIn(NAME, self.names())
        self.assertNobodyListens()


class BusThatFails(ControlTest):
    def test_the_saver_runs_on_without_one_that_dies_and_ends_at_once(self):
        saver = self.start_heard()
        self.bus.kill()
        self.assertRunsOn(saver)

    def test_the_saver_runs_on_without_one_that_hangs_and_ends_at_once(self):
        saver = self.start_heard()
        self.bus.stop()
        self.assertRunsOn(saver)

    def assertRunsOn(self, saver):
        before = self.server.picture()
        self.assertTrue(before.is_near(320, 240, RED))
        self.assertIsNone(saver.poll())
        self.assertEndsByTerm(saver)

    def test_a_key_ends_it_as_ever(self):
        saver = self.start_heard()
        self.bus.stop()
        self.server.run("xdotool", "key", "shift")
        self.assertEqual(self.ended(saver)[0], 0)


if __name__ == "__main__":
    unittest.main()
