"""`kestro` on a real X server: what it shows, and what ends it."""

import pathlib
import signal
import socket
import unittest

from harness import BLACK, RED, ProgramTest, movie, wait_until
from xserver import XServer

PLAY_RED = {"FullScreenMode": "1", "PlayMode": "1", "Continue": "1"}


class DisplayTest(ProgramTest):
    size = "640x480"

    def setUp(self):
        super().setUp()
        self.server = XServer(self.size, with_opengl=True)
        self.addCleanup(self.server.close)
        self.server.move_pointer(100, 100)
        self.home.play([movie("long-red", "red", seconds=60)], **PLAY_RED)

    def start(self, *words, **environment):
        return self.start_kestro(*words, DISPLAY=self.server.display, **environment)

    def shows(self, x, y, colour):
        return self.server.picture().is_near(x, y, colour)

    def start_showing_red(self, **environment):
        process = self.start(**environment)
        wait_until(lambda: process.poll() is not None or self.shows(320, 240, RED), "the movie")
        self.assertIsNone(process.poll())
        return process

    def assertEndsWell(self, process):
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")
        self.assertEqual(self.server.windows(), [])


class Showing(DisplayTest):
    def test_one_window_covers_the_whole_screen_with_the_movie(self):
        self.start_showing_red()
        self.assertEqual(self.server.windows(), [(640, 480, 0, 0)])
        picture = self.server.picture()
        for corner in [(2, 2), (637, 2), (2, 477), (637, 477)]:
            self.assertTrue(picture.is_near(*corner, RED), corner)

    def test_the_movie_is_fitted_on_black(self):
        self.home.play([movie("wide-red", "red", seconds=60, size="160x60")], FullScreenMode="1")
        self.start_showing_red()
        picture = self.server.picture()
        self.assertEqual((picture.at(320, 20), picture.at(320, 460)), (BLACK, BLACK))

    def test_opengl_shows_the_same(self):
        # The driver of the tests' server draws on the processor, so it is used only when asked for.
        process = self.start_showing_red(KESTRO_RENDERER="opengl", LIBGL_ALWAYS_SOFTWARE="1")
        maps = pathlib.Path(f"/proc/{process.pid}/maps").read_text()
        self.assertRegex(maps, r"_dri\.so|libgallium")
        picture = self.server.picture()
        for corner in [(2, 2), (637, 2), (2, 477), (637, 477)]:
            self.assertTrue(picture.is_near(*corner, RED), corner)
        self.server.run("xdotool", "key", "a")
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertNotIn("OpenGL", errors)

    def test_the_sign_is_shown_where_nothing_can_be_played(self):
        self.home.play([])
        process = self.start()
        wait_until(lambda: self.server.windows() and not self.server.picture().is_blank(), "the sign")
        process.send_signal(signal.SIGTERM)
        self.assertEqual(self.ended(process)[0], 0)
        self.assertEqual(self.home.resume_point(), {})


class Ending(DisplayTest):
    def test_each_stop_signal_ends_it_well(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number=number):
                process = self.start_showing_red()
                process.send_signal(number)
                self.assertEndsWell(process)

    def test_a_key_ends_it(self):
        process = self.start_showing_red()
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(process)

    def test_a_click_ends_it(self):
        process = self.start_showing_red()
        self.server.run("xdotool", "click", "1")
        self.assertEndsWell(process)

    def test_a_real_movement_of_the_mouse_ends_it(self):
        process = self.start_showing_red()
        self.server.move_pointer(101, 101)
        self.server.move_pointer(300, 200)
        self.assertEndsWell(process)

    def test_a_nudge_of_the_mouse_does_not_end_it(self):
        process = self.start_showing_red()
        for x, y in [(103, 101), (98, 102), (104, 104), (100, 100)]:
            self.server.move_pointer(x, y)
        # The key is read after the movements: it ends what they have left running.
        position = self.movie_goes_on()
        self.assertTrue(position)
        self.assertIsNone(process.poll())
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(process)

    def movie_goes_on(self):
        """Whether the movie is on the screen once every request until now has been answered."""
        self.server.run("xdotool", "getmouselocation")
        return self.shows(320, 240, RED)

    def test_a_server_that_dies_ends_it_with_the_resume_point(self):
        process = self.start_showing_red()
        self.server.kill()
        status, errors = self.ended(process)
        self.assertEqual(status, 1, errors)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")

    def test_it_goes_on_after_it_was_stopped(self):
        self.home.play([movie("blinking", "red", seconds=60, is_blinking=True)], FullScreenMode="1")
        process = self.start_showing_red()
        process.send_signal(signal.SIGSTOP)
        wait_until(lambda: self.state_of(process) == "T", "the process to stand still")
        self.server.run("xdotool", "getmouselocation")
        process.send_signal(signal.SIGCONT)
        for colour in (BLACK, RED, BLACK):
            wait_until(lambda wanted=colour: process.poll() is not None or self.shows(320, 240, wanted), "the movie")
            self.assertIsNone(process.poll())
        process.terminate()
        self.assertEqual(self.ended(process)[0], 0)

    @staticmethod
    def state_of(process):
        return pathlib.Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()[0]

    def test_a_server_that_does_not_answer_does_not_hold_it_up(self):
        with socket.create_server(("127.0.0.1", 0)) as silent:
            self.home.play([f"http://127.0.0.1:{silent.getsockname()[1]}/a.mp4"], Continue="1", FullScreenMode="1")
            process = self.start()
            silent.settimeout(60)
            connection, _ = silent.accept()
            with connection:
                process.send_signal(signal.SIGTERM)
                self.assertEqual(process.wait(timeout=20), 0)


class TwoMonitors(DisplayTest):
    size = "1000x400"

    def setUp(self):
        super().setUp()
        self.server.run("xrandr", "--setmonitor", "LEFT", "600/159x400/106+0+0", "screen")
        self.server.run("xrandr", "--setmonitor", "RIGHT", "400/106x300/79+600+0", "none")

    def test_each_monitor_has_a_window_and_a_movie_of_its_own(self):
        self.start()
        wait_until(lambda: self.shows(300, 200, RED) and self.shows(800, 150, RED), "both movies")
        self.assertEqual(sorted(self.server.windows()), [(400, 300, 600, 0), (600, 400, 0, 0)])
        picture = self.server.picture()
        self.assertTrue(picture.is_near(997, 297, RED))
        self.assertEqual(picture.at(800, 350), BLACK)

    def test_a_monitor_that_goes_and_comes_back_loses_and_gets_its_movie(self):
        process = self.start()
        wait_until(lambda: self.shows(300, 200, RED) and self.shows(800, 150, RED), "both movies")
        self.server.run("xrandr", "--delmonitor", "RIGHT")
        wait_until(lambda: len(self.server.windows()) == 1, "one window")
        self.server.run("xrandr", "--setmonitor", "RIGHT", "400/106x300/79+600+0", "none")
        wait_until(lambda: len(self.server.windows()) == 2 and self.shows(800, 150, RED), "the movie again")
        process.send_signal(signal.SIGTERM)
        self.assertEndsWell(process)


class OffscreenPlugin(ProgramTest):
    def test_it_runs_without_any_display_where_qt_is_told_so(self):
        self.home.play([movie("long-green", "green", seconds=60)], Continue="1", FullScreenMode="1")
        process = self.start_kestro(QT_QPA_PLATFORM="offscreen")
        lines = iter(process.stderr.readline, "")
        self.assertTrue(any("fullscreen 0 selected" in line for line in lines))
        process.send_signal(signal.SIGTERM)
        self.assertEqual(self.ended(process)[0], 0)
        self.assertEqual(self.home.resume_point()["LastMovie"], "long-green.mp4")


if __name__ == "__main__":
    unittest.main()
