"""What ends `kestro` on an X server: no other program hears of it."""

import unittest

from harness import wait_until
from sessiontest import PARENT, Session


class LastKey(Session):
    """What ends the saver reaches no other program: not the press, no repetition, not the release."""

    def setUp(self):
        super().setUp()
        self.server.run("xset", "r", "rate", "50", "50")
        self.terminal()

    def assertNobodyHears(self, process, press, release):
        """The desktop is there at once, and the process until nothing is down any more."""
        before = self.heard()
        self.server.run("xdotool", *press.split())
        self.await_desktop()
        self.assertIsNone(process.poll())
        self.server.run("xdotool", *release.split())
        self.assertEndsWell(process)
        self.assertEqual([line for line in self.heard() if line not in before], [])

    def test_a_key_is_heard_by_nobody(self):
        for monitors in (1, 2):
            with self.subTest(monitors=monitors):
                if monitors == 2:
                    self.plug_two_monitors()
                self.assertNobodyHears(self.showing(), "keydown a", "keyup a")

    def test_a_key_is_heard_by_nobody_with_a_window_manager(self):
        self.manage()
        self.terminal()
        self.assertNobodyHears(self.showing(), "keydown a", "keyup a")

    def test_a_key_is_heard_by_nobody_with_opengl(self):
        process = self.showing(KESTRO_RENDERER="opengl", LIBGL_ALWAYS_SOFTWARE="1")
        self.assertNobodyHears(process, "keydown a", "keyup a")

    def test_several_keys_are_heard_by_nobody(self):
        self.assertNobodyHears(self.showing(), "keydown ctrl keydown c", "keyup c keyup ctrl")

    def test_a_button_is_heard_by_nobody_on_any_monitor(self):
        self.plug_two_monitors()
        for place in ("200 200", "800 200"):
            with self.subTest(place):
                self.server.run("xdotool", "mousemove", *place.split())
                self.assertNobodyHears(self.showing(), "mousedown 1", "mouseup 1")

    def test_buttons_beyond_the_fifth_are_heard_by_nobody(self):
        self.assertNobodyHears(self.showing(), "mousedown 9", "mouseup 9")

    def test_a_press_on_another_monitor_meanwhile_is_heard_by_nobody(self):
        self.plug_two_monitors()
        self.assertNobodyHears(self.showing(), "keydown a", "mousemove 800 200 click 1 keyup a")

    def test_the_next_key_is_heard_again(self):
        self.assertNobodyHears(self.showing(), "keydown a", "keyup a")
        self.server.run("xdotool", "key", "b")
        wait_until(lambda: len(self.heard()) == 2, "the next key")

    def test_a_key_that_stays_down_does_not_keep_the_process(self):
        process = self.showing()
        self.server.run("xdotool", "keydown", "a")
        self.assertEndsWell(process)

    def test_a_signal_ends_the_process_while_the_key_is_down(self):
        process = self.showing()
        self.server.run("xdotool", "keydown", "a")
        self.await_desktop()
        process.terminate()
        self.assertEndsWell(process)
        self.assertEqual(self.other.owner()[1], PARENT)

    def test_a_key_that_was_down_before_does_not_end_it(self):
        self.server.run("xdotool", "keydown", "a")
        process = self.showing()
        # The window of another program is looked at after what the key has repeated until then.
        late = self.other.window(50, 50)
        [picture] = self.pictures()
        wait_until(lambda: self.stack().index(picture) < self.stack().index(late), "the saver's look at the windows")
        self.server.run("xdotool", "keyup", "a")
        self.assertNobodyHears(process, "keydown b", "keyup b")


if __name__ == "__main__":
    unittest.main()
