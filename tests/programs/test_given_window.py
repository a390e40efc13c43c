"""`kestro` in a window that another program hands over: where it draws, what it leaves alone, and how it ends."""

import signal
import socket
import unittest

from giver import Giver
from harness import BLACK, BOUND, RED, ProgramTest, movie, wait_until
from xserver import XServer

PLAY = {"FullScreenMode": "1", "PlayMode": "1", "Continue": "1"}


class GivenWindow(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = XServer("1000x600")
        self.addCleanup(self.server.close)
        self.giver = Giver(self.server, "300x200+100+50")
        self.addCleanup(self.giver.close)
        self.home.play([movie("long-red", "red", seconds=60)], **PLAY)

    def start(self, *words, **environment):
        return self.start_kestro(*words, DISPLAY=self.server.display, **environment)

    def in_window(self, *words, **environment):
        """The saver, as xscreensaver starts it in each of its windows."""
        return self.start("--root", *words, XSCREENSAVER_WINDOW=hex(self.giver.number), **environment)

    def shows(self, x, y, colour=RED):
        return self.server.picture().is_near(x, y, colour)

    def await_picture(self, process, x, y, colour=RED):
        wait_until(lambda: process.poll() is not None or self.shows(x, y, colour), f"the picture at {x}, {y}")
        self.assertIsNone(process.poll())

    def showing(self, process):
        self.await_picture(process, 250, 150)
        return process

    def red_pixels(self):
        picture = self.server.picture()
        return sum(picture.is_near(x, y, RED) for x in range(100, 400) for y in range(50, 250))


class Drawing(GivenWindow):
    def test_the_window_is_found_however_it_is_named(self):
        number = self.giver.number
        for words, variable in [(["--window-id", str(number)], None), (["-window-id", hex(number)], None),
                                (["--root"], hex(number)), (["-root"], str(number)),
                                (["--root", "--window-id", hex(number)], "0x1")]:
            with self.subTest(words=words):
                variables = {} if variable is None else {"XSCREENSAVER_WINDOW": variable}
                process = self.showing(self.start(*words, **variables))
                process.terminate()
                process.wait(timeout=BOUND)

    def test_it_covers_the_window_and_nothing_else(self):
        self.showing(self.in_window())
        picture = self.server.picture()
        for corner in [(101, 54), (398, 54), (101, 248), (398, 248)]:
            self.assertTrue(picture.is_near(*corner, RED), corner)
        for outside in [(98, 150), (402, 150), (250, 47), (250, 252)]:
            self.assertEqual(picture.at(*outside), BLACK, outside)
        self.assertEqual(self.server.windows(), [(300, 200, 100, 50)])

    def test_a_scale_of_the_desktop_changes_nothing(self):
        self.showing(self.in_window(QT_SCALE_FACTOR="2", QT_SCREEN_SCALE_FACTORS="1.5"))
        self.assertTrue(self.shows(398, 248))

    def test_it_follows_the_window_when_that_is_resized(self):
        process = self.showing(self.in_window())
        self.giver.resize(500, 400)
        self.await_picture(process, 590, 440)
        self.giver.resize(120, 90)
        wait_until(lambda: not self.shows(300, 200), "the smaller window")
        self.await_picture(process, 215, 135)

    def test_without_a_window_it_draws_on_the_root_window(self):
        self.giver.destroy()
        process = self.start("--root")
        self.await_picture(process, 990, 590)
        self.assertEqual(self.server.windows(), [])

    def test_the_sign_is_shown_where_nothing_can_be_played(self):
        self.home.play([])
        process = self.in_window()
        wait_until(lambda: process.poll() is not None or not self.server.picture().is_blank(), "the sign")
        self.assertIsNone(process.poll())


class Options(GivenWindow):
    """The options of the run count instead of the settings, which stay what they are."""

    def test_they_count_for_the_run_alone(self):
        small = movie("small-red", "red", seconds=60, size="96x64")
        self.home.play([small], FullScreenMode="1", PlayMode="1", Continue="1")
        before = (self.home.preferences / "Kestro.plist").read_bytes()
        process = self.in_window("-mode", "fly", "--scale", "0.5", "--no-fade")
        red = wait_until(lambda: process.poll() is None and self.red_pixels(), "the movie")
        self.assertAlmostEqual(red, 48 * 32, delta=150)
        process.terminate()
        process.wait(timeout=BOUND)
        self.assertEqual(self.home.resume_point()["LastMovie"], "small-red.mp4")
        self.assertEqual((self.home.preferences / "Kestro.plist").read_bytes(), before)



class Preview(GivenWindow):
    """A window that is given by its number is a preview: that is how xscreensaver's settings name their pane."""

    def in_pane(self):
        return self.start("--root", "--window-id", hex(self.giver.number))

    def test_a_movie_is_as_large_as_on_the_screen_to_scale(self):
        # The window is 300 wide and the screen 1000: three tenths of a movie of 320 by 240.
        self.home.play([movie("middle-red", "red", seconds=60, size="320x240")], FullScreenMode="0", PartialMode="0",
                       Scale="1")
        process = self.in_pane()
        red = wait_until(lambda: process.poll() is None and self.red_pixels(), "the movie")
        self.assertAlmostEqual(red, 96 * 72, delta=400)

    def test_nothing_is_kept_of_it(self):
        process = self.showing(self.in_pane())
        process.terminate()
        self.assertEqual(self.ended(process)[0], -signal.SIGTERM)
        self.assertEqual(self.home.resume_point(), {})

    def test_it_asks_no_trailer_site(self):
        with socket.create_server(("127.0.0.1", 0)) as site:
            self.home.play([movie("long-red", "red", seconds=60), "auto://LatestTrailers/6/480"], **PLAY)
            self.home.trailer_site(f"http://127.0.0.1:{site.getsockname()[1]}/trailers/")
            # The saver asks, at the latest before its first picture.
            process = self.showing(self.in_window())
            site.settimeout(BOUND)
            site.accept()[0].close()
            process.kill()
            process.wait(timeout=BOUND)
            self.home.forget_scans()
            process = self.showing(self.in_pane())
            process.terminate()
            process.wait(timeout=BOUND)
            site.settimeout(0)
            self.assertRaises(BlockingIOError, site.accept)


class Manners(GivenWindow):
    def test_what_a_person_does_reaches_the_giver_and_never_ends_it(self):
        process = self.showing(self.in_window())
        self.server.run("xdotool", "mousemove", "200", "120", "click", "1", "key", "a")
        for event in ("MotionNotify", "ButtonPress", "ButtonRelease", "KeyPress", "KeyRelease"):
            self.giver.hears(event)
        self.assertIsNone(process.poll())

    def test_the_focus_stays_where_it_is(self):
        focused = self.server.run("xdotool", "windowfocus", "--sync", str(self.giver.number), "getwindowfocus")
        process = self.showing(self.in_window())
        self.assertEqual(self.server.run("xdotool", "getwindowfocus"), focused)
        process.terminate()
        process.wait(timeout=BOUND)
        self.assertEqual(self.server.run("xdotool", "getwindowfocus"), focused)

    def test_what_a_person_does_elsewhere_is_not_heard(self):
        process = self.showing(self.in_window())
        self.server.run("xdotool", "mousemove", "800", "500", "click", "1", "key", "a", "mousemove", "900", "400")
        self.giver.resize(320, 220)
        self.await_picture(process, 410, 260)

    def test_the_giver_keeps_its_pointer(self):
        # Its looks are those of the innermost window below it, which must not be ours.
        self.showing(self.in_window())
        self.server.move_pointer(200, 120)
        self.assertIn("subw 0x0,", self.giver.hears("MotionNotify"))
        self.assertIn('"Kestro"', self.server.run("xwininfo", "-tree", "-id", str(self.giver.number)))

    def test_it_goes_on_where_it_was_stopped(self):
        self.home.play([movie("red-then", "red", seconds=60)], **PLAY)
        process = self.showing(self.in_window())
        process.send_signal(signal.SIGSTOP)
        wait_until(lambda: self.state_of(process) == "T", "the process to stand still")
        self.giver.resize(320, 220)
        self.server.run("xdotool", "key", "a")
        process.send_signal(signal.SIGCONT)
        self.await_picture(process, 410, 260)

    @staticmethod
    def state_of(process):
        with open(f"/proc/{process.pid}/stat", encoding="ascii") as file:
            return file.read().rsplit(")", 1)[1].split()[0]


class Ending(GivenWindow):
    def test_each_stop_signal_ends_it_as_that_signal(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number=number):
                process = self.showing(self.in_window())
                process.send_signal(number)
                status, _ = self.ended(process)
                self.assertEqual(status, -number)
                self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")

    def test_a_server_that_does_not_answer_does_not_hold_it_up(self):
        with socket.create_server(("127.0.0.1", 0)) as silent:
            self.home.play([f"http://127.0.0.1:{silent.getsockname()[1]}/a.mp4"], **PLAY)
            process = self.in_window()
            silent.settimeout(BOUND)
            connection, _ = silent.accept()
            with connection:
                process.terminate()
                self.assertEqual(process.wait(timeout=20), -signal.SIGTERM)

    def test_a_display_that_stands_still_does_not_hold_it_up(self):
        process = self.showing(self.in_window())
        self.server.signal(signal.SIGSTOP)
        self.addCleanup(self.server.signal, signal.SIGCONT)
        process.terminate()
        self.assertIn(process.wait(timeout=BOUND), (1, -signal.SIGTERM))

    def test_a_log_that_nobody_reads_does_not_hold_it_up(self):
        process = self.showing(self.in_window())
        process.stderr.close()
        process.terminate()
        self.assertEqual(process.wait(timeout=BOUND), -signal.SIGTERM)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")

    def test_a_window_that_is_destroyed_ends_it_well(self):
        process = self.showing(self.in_window())
        self.giver.destroy()
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")

    def test_a_server_that_dies_ends_it_well(self):
        process = self.showing(self.in_window())
        self.server.kill()
        self.assertEqual(self.ended(process)[0], 1)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")


class WrongWindow(GivenWindow):
    def test_a_window_that_does_not_exist_is_one_line_and_status_1(self):
        done = self.run_kestro("--window-id", "0x7fffffff", status=1,
                               environment=self.home.environment(DISPLAY=self.server.display))
        self.assertOneLine(done.stderr, "0x7fffffff")

    def test_a_variable_that_is_no_number_is_one_line_and_status_2(self):
        environment = self.home.environment(DISPLAY=self.server.display, XSCREENSAVER_WINDOW="here")
        self.assertOneLine(self.run_kestro("--root", status=2, environment=environment).stderr, '"here"')


if __name__ == "__main__":
    unittest.main()
