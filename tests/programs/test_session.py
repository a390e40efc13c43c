"""`kestro` in a person's X11 session: it grabs nothing, holds the input focus, and gives way to a screen locker."""

import re
import signal
import subprocess
import unittest

from harness import BLUE, RED, end_process, wait_until
from sessiontest import PARENT, SCREEN, Session


class Focus(Session):
    def test_it_is_given_back_however_the_saver_ends(self):
        terminal = self.terminal()
        ends = {"key": lambda _: self.server.run("xdotool", "key", "a"),
                "click": lambda _: self.server.run("xdotool", "click", "1"),
                "mouse": self.move_the_mouse_until_it_ends,
                "signal": lambda process: process.send_signal(signal.SIGTERM)}
        for name, end in ends.items():
            with self.subTest(name):
                process = self.showing()
                self.assertTrue(self.saver_has_focus())
                end(process)
                self.assertEndsWell(process)
                self.assertEqual(self.other.owner(), (terminal, PARENT))

    def move_the_mouse_until_it_ends(self, process):
        """A program that is busy may see but the last of some motions, and then the pointer is where it was first seen."""

        def has_ended():
            self.server.run("xdotool", "mousemove", "500", "200", "mousemove", "300", "100")
            return process.poll() is not None

        wait_until(has_ended, "the saver to end")

    def test_a_window_manager_finds_its_window_active_again(self):
        self.manage()
        terminal = self.terminal()
        process = self.showing()
        self.assertTrue(self.saver_has_focus())
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(process)
        self.assertEqual(self.other.owner()[0], terminal)
        wait_until(lambda: hex(terminal) in self.server.run("xprop", "-root", "_NET_ACTIVE_WINDOW"), "the active window")

    def test_where_nobody_has_it_it_follows_the_pointer_again(self):
        before = self.other.owner()
        process = self.showing()
        self.assertNotEqual(self.other.owner(), before)
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(process)
        self.assertEqual(self.other.owner(), before)

    def test_an_owner_that_is_gone_gets_nothing(self):
        terminal = self.terminal()
        process = self.showing()
        self.other.destroy(terminal)
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(process)
        self.assertEqual(self.other.owner()[0], 1)

    def test_it_is_taken_back_from_an_ordinary_window_and_given_to_that_at_the_end(self):
        for is_managed in (False, True):
            with self.subTest(is_managed=is_managed):
                if is_managed:
                    self.manage()
                self.terminal()
                process = self.showing()
                late = self.other.window(300, 300)
                self.other.focus(late)
                wait_until(self.saver_has_focus, "the focus at the saver")
                self.server.run("xdotool", "key", "a")
                self.assertEndsWell(process)
                self.assertEqual(self.other.owner()[0], late)
                self.assertEqual(self.heard(), [])

    def test_a_saver_above_another_has_it_and_gives_it_back_to_that(self):
        terminal = self.terminal()
        first = self.showing()
        below = self.other.owner()[0]
        [lower] = self.pictures()
        second = self.start_kestro(DISPLAY=self.server.display)
        wait_until(lambda: len(self.pictures()) == 2 and self.other.owner()[0] != below, "the second saver")
        above = self.other.owner()[0]
        [upper] = [picture for picture in self.pictures() if picture != lower]
        self.await_look(lower, upper)
        self.assertEqual(self.other.owner()[0], above)
        second.terminate()
        self.assertEndsWell(second)
        self.assertEqual(self.other.owner()[0], below)
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(first)
        self.assertEqual(self.other.owner()[0], terminal)
        self.assertEqual(self.heard(), [])

    def test_one_key_ends_two_savers(self):
        self.terminal()
        savers = [self.showing(), self.start_kestro(DISPLAY=self.server.display)]
        wait_until(lambda: len(self.pictures()) == 2, "the second saver")
        wait_until(self.saver_has_focus, "the focus at a saver")
        self.server.run("xdotool", "key", "a")
        for saver in savers:
            self.assertEndsWell(saver)
        self.assertEqual(self.heard(), [])


class Lock(Session):
    """A program that locks the screen gets keyboard and pointer at its first try, lies above, and is left alone."""

    def locks(self):
        """A locker's window over the whole desk, which has keyboard, pointer and focus."""
        cover = self.other.cover(*SCREEN)
        self.assertTrue(self.other.grabs(cover))
        return cover

    def test_it_gets_keyboard_and_pointer_on_one_monitor(self):
        self.showing()
        self.locks()

    def test_it_gets_keyboard_and_pointer_on_two_monitors(self):
        self.plug_two_monitors()
        self.showing()
        self.locks()

    def test_it_gets_keyboard_and_pointer_while_the_key_is_down_that_ends_the_saver(self):
        process = self.showing()
        self.server.run("xdotool", "keydown", "a")
        self.await_desktop()
        self.locks()
        self.server.run("xdotool", "keyup", "a")
        self.assertEndsWell(process)

    def test_its_windows_stay_above_and_keep_the_focus(self):
        for is_grabbing in (False, True):
            with self.subTest(is_grabbing=is_grabbing):
                process = self.showing()
                [picture] = self.pictures()
                cover = self.other.cover(*SCREEN)
                if is_grabbing:
                    self.assertTrue(self.other.grabs(cover))
                self.other.focus(cover)
                dialog = self.other.cover(200, 100, 100, 100)
                self.await_look(picture, cover)
                self.assertEqual(self.other.owner()[0], cover)
                self.assertNotIn(f"focus out {cover}", self.other.heard())
                self.other.raise_window(dialog)
                self.await_look(picture, cover)
                self.assertEqual(self.stack()[0], cover)
                process.terminate()
                self.assertEndsWell(process)
                self.assertEqual(self.other.owner()[0], cover)
                self.other.ungrab()
                for window in (cover, dialog):
                    self.other.destroy(window)

    def test_a_dialog_of_its_own_keeps_the_focus(self):
        self.showing()
        [picture] = self.pictures()
        cover = self.other.cover(*SCREEN)
        dialog = self.other.cover(200, 100, 100, 100)
        self.other.focus(dialog)
        self.await_look(picture, cover)
        self.assertNotIn(f"focus out {dialog}", self.other.heard())

    def test_the_focus_that_it_takes_while_it_has_the_keyboard_stays_with_it(self):
        # Its window is small: that it is a locker shows by the grab alone.
        self.showing()
        [picture] = self.pictures()
        dialog = self.other.cover(200, 100, 100, 100)
        self.assertTrue(self.other.grabs(dialog))
        self.other.focus(dialog)
        between = self.other.window(50, 50)
        wait_until(lambda: self.stack().index(picture) < self.stack().index(between), "the saver's look at the windows")
        self.assertEqual(self.other.owner()[0], dialog)

    def test_a_monitor_that_appears_shows_nothing_above_it(self):
        self.server.run("xrandr", "--setmonitor", "LEFT", "600/159x400/106+0+0", "screen")
        self.start_kestro(DISPLAY=self.server.display)
        wait_until(lambda: self.pictures() and self.server.picture().is_near(300, 200, RED), "the movie")
        cover = self.locks()
        self.server.run("xrandr", "--setmonitor", "RIGHT", "400/106x400/106+600+0", "none")
        pictures = wait_until(lambda: len(self.pictures()) == 2 and self.pictures(), "the second picture")
        for picture in pictures:
            self.assertLess(self.stack().index(cover), self.stack().index(picture))

    def test_a_monitor_that_goes_changes_nothing_about_it(self):
        self.plug_two_monitors()
        process = self.showing()
        cover = self.locks()
        self.server.run("xrandr", "--delmonitor", "RIGHT")
        [picture] = wait_until(lambda: len(self.pictures()) == 1 and self.pictures(), "one picture")
        self.await_look(picture, cover)
        self.assertIsNone(process.poll())

    def test_what_it_hears_ends_the_saver(self):
        for words in (["key", "a"], ["click", "1"], ["mousemove_relative", "20", "0"]):
            with self.subTest(words[0]):
                process = self.showing()
                cover = self.locks()
                self.server.run("xdotool", *words)
                if words[0] == "mousemove_relative":  # a movement is one place after another
                    wait_until(lambda: process.poll() is not None or self.server.run("xdotool", *words), "the end")
                self.assertEndsWell(process)
                self.other.ungrab()
                self.other.destroy(cover)

    def test_a_full_screen_window_of_a_window_manager_is_none(self):
        self.manage()
        self.showing()
        [picture] = self.pictures()
        window = self.other.window(*SCREEN)
        wait_until(lambda: self.server.is_viewable(hex(window)), "the window in its frame")
        frame = self.frame_of(window)
        wait_until(lambda: self.stack().index(picture) < self.stack().index(frame), "the saver above")

    def test_a_frame_of_a_window_manager_is_none(self):
        self.showing()
        [picture] = self.pictures()
        frame = self.other.frame(*SCREEN)
        wait_until(lambda: self.stack().index(picture) < self.stack().index(frame), "the saver above")

    def frame_of(self, window):
        """The window on the root that the window is a part of."""
        parent = re.search(r"Parent window id: (0x[0-9a-f]+)", self.server.run("xwininfo", "-tree", "-id", str(window)))[1]
        self.assertIn(int(parent, 16), self.stack())
        return int(parent, 16)

    def test_i3lock_locks(self):
        process = self.showing()
        locker = subprocess.Popen(["i3lock", "--nofork", "--color", "0000ff"], stdin=subprocess.DEVNULL,
                                  env=self.home.environment(DISPLAY=self.server.display), start_new_session=True)
        self.addCleanup(end_process, locker)
        wait_until(lambda: self.server.picture().at(5, 5) == BLUE, "the locker's picture")
        wait_until(lambda: locker.poll() is not None or not self.other.grabs(self.other.window(1, 1)), "its grab")
        self.assertIsNone(locker.poll())
        self.server.run("xdotool", "key", "a")
        self.assertEndsWell(process)
        self.assertIsNone(locker.poll())


if __name__ == "__main__":
    unittest.main()
