"""`kestro` in a Wayland session: a picture on each output, what ends it, and what Wayland cannot give."""

import signal
import unittest

from harness import BLACK, RED, ProgramTest, movie, wait_until
from wayland import Pointer, Session

LEFT, RIGHT, BELOW = (400, 300, 0, 0), (320, 240, 400, 0), (80, 60, 400, 240)


class WaylandTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.session = Session()
        self.addCleanup(self.session.close)
        self.pointer = Pointer(self.session)
        self.addCleanup(self.pointer.close)
        self.nudge = 0
        self.width = 720  # of all outputs together
        self.pointer.move_to(200, 150)
        self.home.play([movie("long-red", "red", seconds=60)], FullScreenMode="1", PlayMode="1", Continue="1")

    def start(self, *words, **environment):
        return self.start_kestro(*words, WAYLAND_DISPLAY=self.session.display, **environment)

    def until(self, process, condition, what):
        wait_until(lambda: process.poll() is not None or condition(), what)
        self.assertIsNone(process.poll(), process.poll() is not None and self.ended(process))

    def is_red(self, *outputs):
        """Whether the outputs show the movie from edge to edge, but for the two rows by which it stands low. What sway
        shows on an output in memory can be old until the pointer moves, so that is nudged."""
        self.nudge = 1 - self.nudge
        self.pointer.move_to(200 + self.nudge, 150, self.width)
        picture = self.session.picture()
        return all(picture.box_of_red(x, y, width, height) == (x, y + 2, width, height - 2) and
                   picture.is_near(x + width // 2, y + height // 2, RED) for width, height, x, y in outputs)

    def is_desk_blank(self):
        """Whether nothing is left on the outputs but the pointer."""
        picture = self.session.picture()
        return picture.box_of_red(0, 0, 100, 300) is None and picture.box_of_red(400, 0, 320, 240) is None

    def showing(self, process, *outputs):
        self.until(process, lambda: self.is_red(*outputs), "the movie on every output")
        return process

    def assertEndsWell(self, process):
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")
        wait_until(self.is_desk_blank, "the empty desk")


class Showing(WaylandTest):
    def test_each_output_is_covered(self):
        self.showing(self.start(), LEFT, RIGHT)
        self.assertEqual(self.session.picture().at(500, 280), BLACK)

    def test_it_is_no_window_among_the_others(self):
        self.showing(self.start(), LEFT, RIGHT)
        self.assertEqual(self.session.views(), [])

    def test_the_pointer_is_hidden(self):
        wait_until(lambda: not self.session.picture().is_blank(), "the pointer on the empty desk")
        self.showing(self.start(), LEFT, RIGHT)
        picture = self.session.picture()
        self.assertTrue(all(picture.is_near(x, y, RED) for x in range(180, 230) for y in range(130, 180)))

    def test_an_output_that_appears_is_covered_and_leaves_the_pointer_hidden(self):
        process = self.showing(self.start(), LEFT, RIGHT)
        self.session.tell("create_output")
        self.showing(process, LEFT, RIGHT, BELOW)
        process.terminate()
        self.assertEndsWell(process)

    def test_an_output_of_another_size_has_the_movie_resized(self):
        process = self.showing(self.start(), LEFT, RIGHT)
        self.session.tell("output", "HEADLESS-2", "resolution", "240x180")
        self.width = 640
        self.showing(process, LEFT, (240, 180, 400, 0))


class Ending(WaylandTest):
    def test_a_key_ends_it(self):
        process = self.showing(self.start(), LEFT, RIGHT)
        self.addCleanup(end_process_alone, self.session.typing())
        self.assertEndsWell(process)

    def test_a_click_ends_it(self):
        process = self.showing(self.start(), LEFT, RIGHT)
        self.pointer.click()
        self.assertEndsWell(process)

    def test_a_real_movement_of_the_mouse_ends_it_and_a_nudge_does_not(self):
        process = self.showing(self.start(), LEFT, RIGHT)
        for x in (202, 198, 200):
            self.pointer.move_to(x, 150)
        self.showing(process, LEFT, RIGHT)
        self.pointer.move_to(300, 200)
        self.assertEndsWell(process)

    def test_each_stop_signal_ends_it_well(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number=number):
                process = self.showing(self.start(), LEFT, RIGHT)
                process.send_signal(number)
                self.assertEndsWell(process)

    def test_a_compositor_that_dies_ends_it_without_a_crash(self):
        process = self.showing(self.start(), LEFT, RIGHT)
        self.session.kill()
        status, errors = self.ended(process)
        self.assertEqual(status, 1, errors)


class GivenWindow(WaylandTest):
    def test_there_is_none_and_one_line_says_so(self):
        for words in (["--root"], ["--window-id", "0x400001"]):
            with self.subTest(words=words):
                environment = self.home.environment(WAYLAND_DISPLAY=self.session.display)
                done = self.run_kestro(*words, status=1, environment=environment)
                self.assertOneLine(done.stderr, "X11")


def end_process_alone(process):
    process.kill()
    process.wait()


if __name__ == "__main__":
    unittest.main()
