"""Keys that act on the saver instead of ending it, under X11 and Wayland, and that they are keys like any other unless chosen."""

import unittest

from harness import BLUE, GREEN, RED, movie, url, wait_until
from sessiontest import Session
from test_overlay import SessionTest
import wayland


def movies():
    return [movie(f"keys-{name}", name, seconds=60) for name in ("red", "green", "blue")]


class KeysTest(Session):
    def setUp(self):
        super().setUp()
        self.movies = movies()
        self.home.play(self.movies, FullScreenMode="1", PlayMode="1", Continue="0")
        self.home.configure("[keys]\nenabled=yes\n")
        self.never = self.home.path / ".local" / "state" / "kestro" / "never"

    def press(self, *keys):
        self.server.run("xdotool", "key", *keys)

    def wait_for(self, colour):
        wait_until(lambda: self.server.picture().is_near(200, 100, colour), f"{colour} on the screen")

    def says_something(self):
        picture = self.server.picture()
        return any(picture.is_near(x, y, (255, 255, 255), 40) for y in range(295, 345) for x in range(350, 650))

    def assertEnds(self, process):
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertNotIn("XCB error", errors)


class KeysUnderX11(KeysTest):
    def test_right_and_left_change_the_movie_and_reach_no_other_program(self):
        self.terminal()
        process = self.showing()
        self.press("Right")
        self.wait_for(GREEN)
        self.press("Left")
        self.wait_for(RED)
        self.assertIsNone(process.poll())
        self.press("a")
        self.assertEnds(process)
        self.assertEqual(self.heard(), [])

    def test_two_quick_presses_are_two_steps(self):
        self.showing()
        self.press("Right", "Right")
        self.wait_for(BLUE)
        self.press("Left", "Left")
        self.wait_for(RED)

    def test_i_says_what_plays_for_a_while(self):
        self.showing()
        self.assertFalse(self.says_something())
        self.press("i")
        wait_until(self.says_something, "the movie's title")
        wait_until(lambda: not self.says_something(), "the title's end")

    def test_d_takes_the_movie_out_of_all_runs_and_u_brings_it_back(self):
        process = self.showing()
        self.press("d")
        self.wait_for(GREEN)
        self.assertEqual(self.never.read_text(), url(self.movies[0]) + "\n")
        self.press("Escape")
        self.assertEnds(process)
        self.start_kestro(DISPLAY=self.server.display)
        self.wait_for(GREEN)
        self.press("u")
        wait_until(lambda: self.never.read_text() == "", "the movie off the list")

    def test_other_keys_end_it_and_so_do_these_with_control(self):
        for key in ("a", "ctrl+Right", "alt+i", "shift", "KP_Right"):
            with self.subTest(key):
                process = self.showing()
                self.press(key)
                self.assertEnds(process)

    def test_a_key_that_a_locker_gets_ends_it(self):
        for key in ("Right", "d"):
            with self.subTest(key):
                process = self.showing()
                cover = self.other.cover(1000, 400)
                self.assertTrue(self.other.grabs(cover))
                self.press(key)
                self.assertEnds(process)
                self.other.ungrab()
                self.other.destroy(cover)
        self.assertFalse(self.never.exists())

    def test_they_end_it_unless_that_was_chosen(self):
        for text in ("", "[keys]\nenabled=no\n"):
            for key in ("Right", "i", "d"):
                with self.subTest(text=text, key=key):
                    self.home.configure(text)
                    process = self.showing()
                    self.press(key)
                    self.assertEnds(process)
        self.assertFalse(self.never.exists())


class KeysUnderWayland(SessionTest):
    def setUp(self):
        super().setUp()
        self.home.play(movies(), FullScreenMode="1", PlayMode="1")
        self.home.configure("[keys]\nenabled=yes\n")
        self.open(wayland.Session())

    def wait_for(self, process, colour):
        def shows():
            self.nudge = 1 - self.nudge
            self.pointer.move_to(200 + self.nudge, 150, self.width)
            picture = self.session.picture("-o", "HEADLESS-1")
            return picture.is_near(picture.width // 2, picture.height // 3, colour)

        self.until(process, shows, f"{colour} on the screen")

    def test_keys_act_and_reach_no_other_window(self):
        process = self.start_kestro(WAYLAND_DISPLAY=self.session.display)
        self.wait_for(process, RED)
        self.press("-k", "Right")
        self.wait_for(process, GREEN)
        self.press("-k", "Left")
        self.wait_for(process, RED)
        self.press("a")
        self.assertEndsWell(process)
        wait_until(lambda: self.client.lines() == ["focus", "blur", "focus"], "the keyboard at the window below")


if __name__ == "__main__":
    unittest.main()
