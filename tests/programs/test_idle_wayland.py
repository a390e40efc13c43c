"""kestro idle in a Wayland session whose compositor tells of idle seats: the same as under X11, with a keyboard and a mouse."""

import signal
import unittest

from harness import BLACK, BOUND, RED, hear_end_of, wait_until
from idletest import IdleTest
from wayland import Pointer, Session

MIDDLES = ((200, 150), (560, 120))  # of both outputs


class IdleUnderWayland(IdleTest):
    def setUp(self):
        super().setUp()
        self.session = Session()
        self.addCleanup(self.session.close)
        self.pointer = Pointer(self.session)  # without one sway's seat can do nothing
        self.addCleanup(self.pointer.close)
        self.pointer.move_to(10, 10)

    def display_environment(self):
        return {"WAYLAND_DISPLAY": self.session.display}

    def shows(self, colour):
        picture = self.session.picture()
        return all(picture.is_near(x, y, colour) for x, y in MIDDLES)

    def wait_for_saver(self):
        wait_until(lambda: self.shows(RED), "the saver on both outputs")

    def wait_for_empty_screen(self):
        wait_until(lambda: self.shows(BLACK), "an empty screen")

    def type_on(self):
        """A person who types until the process that is answered is killed."""
        typing = self.session.typing()
        hear_end_of(typing)
        self.addCleanup(self.stop_typing, typing)
        return typing

    @staticmethod
    def stop_typing(typing):
        if typing.poll() is None:
            typing.kill()
        typing.wait(timeout=BOUND)

    def test_the_saver_comes_when_nobody_is_there_and_goes_with_a_key(self):
        service = self.serve("--after", "2s")
        self.assertRegex(self.log(), "(org_kde_kwin_idle|ext-idle-notify-v1) tells")
        self.wait_for_saver()
        self.assertEqual(self.status()["state"], "showing")
        typing = self.type_on()
        self.wait_for_empty_screen()
        self.assertEqual(self.status()["state"], "active")
        self.stop_typing(typing)
        self.wait_for_saver()  # and comes again
        self.assertIsNone(service.poll())

    def test_it_goes_when_the_mouse_is_moved(self):
        self.serve("--after", "2s")
        self.wait_for_saver()
        self.pointer.move_to(300, 200)
        self.wait_for_empty_screen()
        self.assertEqual(self.status()["lastEnd"], "personBack")

    def test_term_ends_both(self):
        service = self.serve("--after", "1s")
        self.wait_for_saver()
        service.send_signal(signal.SIGTERM)
        self.assertEqual(service.wait(timeout=BOUND), 0)
        self.wait_for_empty_screen()

    def test_a_compositor_that_dies_ends_the_service_and_it_says_why(self):
        service = self.serve("--after", "1h")
        self.session.kill()
        self.assertEqual(service.wait(timeout=BOUND), 1)
        self.assertIn("What told of you in this session is gone", self.log())


if __name__ == "__main__":
    unittest.main()
