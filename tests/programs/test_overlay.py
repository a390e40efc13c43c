"""`kestro` in the overlay layer of a Wayland compositor: what it leaves as it was, and what becomes of it where the compositor
is slow, odd or rude."""

import os
import re
import signal
import unittest

from harness import BLUE, RED, ProgramTest, movie, player_threads, wait_until
from inputclient import InputClient
from test_screens import red_and_blue
from wayland import Listening, OddCompositor, Pointer, Session
from xserver import XServer

LEFT, RIGHT = (400, 300, 0, 0), (320, 240, 400, 0)


class OverlayTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home.play([movie("long-red", "red", seconds=60)], FullScreenMode="1", PlayMode="1", Continue="1")

    def until(self, process, condition, what):
        wait_until(lambda: process.poll() is not None or condition(), what)
        self.assertIsNone(process.poll(), process.poll() is not None and self.ended(process))

    def assertEndsWell(self, process):
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)


class SessionTest(OverlayTest):
    """Over a full-screen window of another program, in a session with a keyboard."""

    def open(self, session):
        self.session = session
        self.addCleanup(session.close)
        self.pointer = Pointer(session)
        self.addCleanup(self.pointer.close)
        self.nudge = 0
        self.width = 720  # of all outputs together
        self.pointer.move_to(200, 150)
        self.press("-s", "3600000")
        self.client = Listening([os.environ["DESK_CLIENT"]], self.home.environment(WAYLAND_DISPLAY=session.display))
        self.addCleanup(self.client.close)
        wait_until(lambda: self.client.lines() == ["focus"], "the keyboard at the window below")

    def press(self, *words):
        typing = self.session.typing(*words)
        self.addCleanup(typing.wait)
        self.addCleanup(typing.kill)
        return typing


class OverAFullScreenWindow(SessionTest):
    def setUp(self):
        super().setUp()
        self.open(Session())
        wait_until(lambda: self.shows(BLUE), "the window below")

    def shows(self, colour, *words):
        """Whether the middle of the first output, or of the one that is named, has that colour. What sway shows on an output in
        memory can be old until the pointer moves, so that is nudged."""
        self.nudge = 1 - self.nudge
        self.pointer.move_to(200 + self.nudge, 150, self.width)
        picture = self.session.picture(*words or ("-o", "HEADLESS-1"))
        return picture.is_near(picture.width // 2, picture.height // 3, colour)

    def start(self, **environment):
        process = self.start_kestro(WAYLAND_DISPLAY=self.session.display, **environment)
        self.until(process, lambda: self.shows(RED) and self.shows(RED, "-o", "HEADLESS-2"), "the movie on both outputs")
        return process

    def test_it_stays_full_screen_and_has_the_keyboard_again(self):
        process = self.start()
        self.assertEqual(self.session.views(), [LEFT])
        self.assertEqual(self.client.lines(), ["focus", "blur"])
        process.terminate()
        self.assertEndsWell(process)
        wait_until(lambda: self.client.lines() == ["focus", "blur", "focus"], "the keyboard at the window below")
        wait_until(lambda: self.shows(BLUE), "the window below")
        self.assertEqual(self.session.views(), [LEFT])

    def test_the_key_that_ends_it_reaches_no_other_window(self):
        process = self.start()
        self.press("-s", "200", "-P", "a", "-s", "200", "-p", "a", "-s", "200")
        self.assertEndsWell(process)
        wait_until(lambda: self.client.lines()[-1] == "focus", "the keyboard at the window below")
        self.press("b")
        wait_until(lambda: self.client.lines()[-1] == "keyup", "the next key")
        self.assertEqual(self.client.lines(), ["focus", "blur", "focus", "key", "keyup"])

    def test_the_click_that_ends_it_reaches_no_other_window(self):
        process = self.start()
        self.pointer.click()
        self.assertEndsWell(process)
        wait_until(lambda: self.client.lines()[-1] == "focus", "the keyboard at the window below")
        self.pointer.click()
        wait_until(lambda: self.client.lines()[-1] == "buttonup", "the next click")
        self.assertEqual(self.client.lines(), ["focus", "blur", "focus", "button", "buttonup"])

    def test_the_pictures_go_at_once_while_the_key_is_held(self):
        for environment in ({}, {"KESTRO_RENDERER": "opengl"}):
            with self.subTest(**environment):
                process = self.start(**environment)
                typing = self.press("-s", "200", "-P", "a", "-s", "3600000")
                self.until(process, lambda: self.shows(BLUE), "the window below")
                self.assertEqual(self.client.lines()[-1], "blur")
                typing.kill()  # the keyboard goes, and what was down there
                self.assertEndsWell(process)

    def test_an_output_may_change_its_scale(self):
        for environment in ({}, {"KESTRO_RENDERER": "opengl"}):
            process = self.start(**environment)
            for scale in ("1.5", "2", "1"):
                with self.subTest(scale=scale, **environment):
                    self.session.tell("output", "HEADLESS-2", "scale", scale)
                    self.width = 400 + int(320 / float(scale))
                    self.until(process, self.is_right_red_to_its_edges, "the movie on all of the output")
            process.terminate()
            self.assertEndsWell(process)

    def is_right_red_to_its_edges(self):
        """But for the two rows of points by which the movie stands low."""
        self.shows(RED)
        picture = self.session.picture("-o", "HEADLESS-2")
        left, top, width, height = picture.box_of_red(0, 0, 320, 240) or (0, 0, 0, 0)
        return (left, width, top + height) == (0, 320, 240) and 0 < top <= 4

    def test_a_movement_of_the_pointer_ends_it_from_any_output(self):
        process = self.start()
        self.pointer.move_to(500, 100)
        self.pointer.move_to(600, 150)
        self.assertEndsWell(process)


class OutputsThatGo(SessionTest):
    """Outputs that are windows on an X server, because sway's in memory cannot be unplugged."""

    def setUp(self):
        super().setUp()
        server = XServer("1040x780")
        self.addCleanup(server.close)
        server.run("xdotool", "mousemove", "1039", "779")  # beside the windows, where it tells sway of no movement
        for name in ("WM_PROTOCOLS", "WM_DELETE_WINDOW"):  # sway uses names that a window manager has made known
            server.run("xprop", "-root", "-f", name, "8s", "-set", name, "known")
        self.open(Session(server.display))
        self.other = InputClient(server)
        self.addCleanup(self.other.close)
        listing = server.run("xwininfo", "-root", "-children")
        self.windows = sorted(int(number, 16) for number in re.findall(r"^ +(0x[0-9a-f]+) .*1024x768", listing, re.M))

    def outputs(self):
        return [output["name"] for output in self.session.tell("-t", "get_outputs")]

    def is_red(self, output):
        picture = self.session.picture("-o", output)
        return picture.is_near(512, 384, RED)

    def start(self):
        process = self.start_kestro(WAYLAND_DISPLAY=self.session.display)
        self.until(process, lambda: self.is_red("X11-1") and self.is_red("X11-2"), "the movie on both outputs")
        return process

    def unplug(self, process, number):
        self.other.dismiss(self.windows[number])
        self.until(process, lambda: self.outputs() == [f"X11-{2 - number}"], "the output to go")

    def check_keys_without(self, number):
        process = self.start()
        self.unplug(process, number)
        self.press("-s", "200", "-P", "a", "-s", "200", "-p", "a", "-s", "200")
        self.assertEndsWell(process)
        self.assertNotIn("key", self.client.lines())

    def test_keys_reach_the_saver_alone_when_the_first_output_has_gone(self):
        self.check_keys_without(0)

    def test_keys_reach_the_saver_alone_when_the_last_output_has_gone(self):
        self.check_keys_without(1)

    def test_an_output_that_comes_when_all_have_gone_is_covered(self):
        process = self.start()
        self.unplug(process, 1)
        self.other.dismiss(self.windows[0])
        self.session.tell("create_output")
        self.until(process, lambda: self.outputs() == ["X11-3"], "one output instead of both")
        self.until(process, lambda: self.is_red("X11-3"), "the movie there")
        self.press("-s", "200", "-P", "a", "-s", "200", "-p", "a", "-s", "200")
        self.assertEndsWell(process)

    def test_the_movie_that_outputs_mirror_goes_on_when_one_goes_and_another_comes(self):
        self.check_shared("--mirror", (RED, BLUE), (RED, BLUE))

    def test_the_movie_that_spans_outputs_goes_on_when_one_goes_and_another_comes(self):
        self.check_shared("--span", (RED, RED), (BLUE, BLUE))

    def check_shared(self, word, left, right):
        """The output that goes is the first, which the movie was opened for."""
        self.home.play([red_and_blue()], FullScreenMode="1", PlayMode="1")
        self.place("X11-1", 0)  # sway's releases begin from either end
        self.place("X11-2", 1024)
        process = self.start_kestro(word, WAYLAND_DISPLAY=self.session.display)
        self.until(process, lambda: self.shown("X11-1", "X11-2") == [left, right], f"{left}, {right}")
        self.unplug(process, 0)
        self.until(process, lambda: self.shown("X11-2") == [(RED, BLUE)], "all of it on the output that is left")
        self.session.tell("create_output")
        self.place("X11-3", 2048)
        self.until(process, lambda: self.shown("X11-2", "X11-3") == [left, right], f"{left}, {right} again")
        process.terminate()
        self.assertEndsWell(process)

    def place(self, output, left):
        self.session.tell("output", output, "position", str(left), "0")

    def shown(self, *outputs):
        """The colours in the middles of each output's halves."""
        pictures = [self.session.picture("-o", output) for output in outputs]
        return [tuple(next((colour for colour in (RED, BLUE) if picture.is_near(x, 384, colour)), None) for x in (256, 768))
                for picture in pictures]


class OddCompositors(OverlayTest):
    """Where sizes are told they are those of the last `shown` line: points times the scale."""

    def setUp(self):
        super().setUp()
        self.compositor = None

    def start(self, *outputs, words=()):
        self.compositor = OddCompositor(*words)
        self.addCleanup(self.compositor.close)
        self.compositor.tell(*(f"plug {output}" for output in outputs))
        process = self.start_kestro(WAYLAND_DISPLAY=self.compositor.display)
        for number in range(1, len(outputs) + 1):
            self.hears(process, f"layer {number} output {number} overlay edges 15 zone -1 keyboard 1")
        return process

    def hears(self, process, line):
        self.until(process, lambda: line in self.compositor.lines(), f"{line} in {self.compositor.lines()}")

    def terminate(self, process):
        process.send_signal(signal.SIGTERM)
        self.assertEndsWell(process)
        self.assertFalse([line for line in self.compositor.lines() if line.startswith("early")])
        self.assertTrue(self.compositor.is_running())

    @staticmethod
    def plays(process):
        """Whether it has a movie's player."""
        return bool(player_threads(process.pid))

    def shown(self):
        return [line for line in self.compositor.lines() if line.startswith("shown")]

    def test_nothing_is_drawn_before_the_compositor_answers(self):
        process = self.start("400 300 1")
        self.compositor.tell("plug 320 240 1")
        self.hears(process, "layer 2 output 2 overlay edges 15 zone -1 keyboard 1")
        self.compositor.tell("configure 2 320 240")
        self.hears(process, "shown 2 320 240 1")
        self.compositor.tell("configure 1 400 300")
        self.hears(process, "shown 1 400 300 1")
        self.terminate(process)

    def test_a_stop_ends_it_before_the_compositor_has_answered(self):
        self.terminate(self.start("400 300 1"))
        self.assertEqual(self.shown(), [])

    def test_the_last_of_several_answers_counts(self):
        process = self.start("400 300 1")
        self.compositor.tell("configure 1 100 100", "configure 1 300 200")
        self.hears(process, "shown 1 300 200 1")
        self.assertEqual(self.shown(), ["shown 1 300 200 1"])
        self.compositor.tell("configure 1 300 200", "configure 1 200 100")
        self.hears(process, "shown 1 200 100 1")
        self.terminate(process)

    def test_an_answer_without_a_size_is_the_monitors(self):
        for size in ("0 0", "0 100", "100 0", "4294967295 4294967295", "100000 100000"):
            with self.subTest(size=size):
                process = self.start("400 300 1")
                self.compositor.tell(f"configure 1 {size}")
                self.hears(process, "shown 1 400 300 1")
                self.terminate(process)
                self.compositor.close()

    def test_a_dense_output_has_all_its_pixels(self):
        process = self.start("800 600 2")
        self.compositor.tell("configure 1 400 300")
        self.hears(process, "shown 1 800 600 2")
        self.terminate(process)

    def test_the_rest_goes_on_where_a_surface_is_closed(self):
        process = self.start("400 300 1", "320 240 1")
        self.compositor.tell("configure 1 400 300", "configure 2 320 240")
        self.hears(process, "shown 1 400 300 1")
        self.hears(process, "shown 2 320 240 1")
        self.compositor.tell("close 1")
        self.hears(process, "gone 1")
        self.hears(process, "claims 2")
        self.compositor.tell("configure 2 200 100")
        self.hears(process, "shown 2 200 100 1")
        self.terminate(process)

    def test_it_ends_where_all_surfaces_are_closed(self):
        process = self.start("400 300 1", "320 240 1")
        self.compositor.tell("configure 1 400 300", "configure 2 320 240")
        self.hears(process, "shown 2 320 240 1")
        self.until(process, lambda: self.plays(process), "a movie that plays")
        self.compositor.tell("close 1", "close 2")
        self.assertEndsWell(process)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")

    def test_it_ends_where_the_only_surface_is_closed_before_it_was_answered(self):
        process = self.start("400 300 1")
        self.compositor.tell("close 1")
        self.assertEndsWell(process)

    def test_an_answer_after_the_end_of_a_surface_is_nothing(self):
        process = self.start("400 300 1", "320 240 1")
        self.compositor.tell("configure 2 320 240", "close 1", "configure 1 400 300")
        self.hears(process, "gone 1")
        self.hears(process, "shown 2 320 240 1")
        self.compositor.tell("configure 2 200 100")
        self.hears(process, "shown 2 200 100 1")
        self.assertFalse([line for line in self.shown() if line.startswith("shown 1")])
        self.terminate(process)

    def test_outputs_may_all_go_and_come_back(self):
        for first, last in ((1, 2), (2, 1)):
            with self.subTest(first=first):
                process = self.start("400 300 1", "320 240 1")
                self.compositor.tell("configure 1 400 300", "configure 2 320 240")
                self.hears(process, "shown 2 320 240 1")
                self.compositor.tell(f"unplug {first}")
                self.hears(process, f"gone {first}")
                self.hears(process, f"claims {last}")
                self.compositor.tell(f"unplug {last}")
                self.hears(process, f"gone {last}")
                self.compositor.tell("plug 240 180 1")
                self.hears(process, "layer 3 output 3 overlay edges 15 zone -1 keyboard 1")
                self.compositor.tell("configure 3 240 180")
                self.hears(process, "shown 3 240 180 1")
                self.terminate(process)
                self.compositor.close()

    def test_an_output_that_comes_later_asks_for_the_keyboard_again_while_nobody_has_it(self):
        process = self.start("400 300 1")
        self.compositor.tell("configure 1 400 300")
        self.hears(process, "shown 1 400 300 1")
        self.assertNotIn("claims 1", self.compositor.lines())
        self.compositor.tell("plug 320 240 1")
        self.hears(process, "layer 2 output 2 overlay edges 15 zone -1 keyboard 1")
        self.compositor.tell("configure 2 320 240")
        self.hears(process, "claims 2")
        self.terminate(process)

    def test_a_compositor_without_layers_gets_a_full_screen_window_for_each_output(self):
        self.compositor = OddCompositor("--no-layers")
        self.addCleanup(self.compositor.close)
        self.compositor.tell("plug 400 300 1", "plug 320 240 1")
        process = self.start_kestro(WAYLAND_DISPLAY=self.compositor.display)
        for line in ("window 1 output 1", "window 2 output 2", "shown 1 400 300 1", "shown 2 320 240 1"):
            self.hears(process, line)
        self.terminate(process)


if __name__ == "__main__":
    unittest.main()
