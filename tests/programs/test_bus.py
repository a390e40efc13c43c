"""Message buses that take whoever comes and say nothing, or stop saying anything: nobody is held up by them."""

import socket
import unittest

from harness import BLACK, RED, wait_until
from idletest import IdleTest
from xserver import XServer

HELD = 20  # seconds: who waits for a bus that says nothing waits for more


class DeafBus:
    """A socket that lets everybody in and says nothing. Gone with close()."""

    def __init__(self, path):
        self.address = f"unix:path={path}"
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.bind(str(path))
        self._socket.listen(64)
        self._socket.setblocking(False)

    def callers(self):
        """How many have come since the last time."""
        count = 0
        while True:
            try:
                self._socket.accept()[0].close()
            except BlockingIOError:
                return count
            count += 1

    def close(self):
        self._socket.close()


class BusTest(IdleTest):
    def setUp(self):
        super().setUp()
        self.server = XServer()
        self.addCleanup(self.server.close)
        self.deaf = DeafBus(self.home.path / "deaf-bus")
        self.addCleanup(self.deaf.close)
        self.deaf_buses = {}

    def display_environment(self):
        return {"DISPLAY": self.server.display}

    def environment(self, **more):
        return {**super().environment(), **self.deaf_buses, **more}

    def make_deaf(self, *variables):
        self.deaf_buses = {variable: self.deaf.address for variable in variables}

    def shows(self, colour):
        return self.server.picture().is_near(320, 240, colour)

    def wait_for_saver(self):
        wait_until(lambda: self.shows(RED), "the saver", HELD)


class Deaf(BusTest):
    SESSION, SYSTEM = "DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"

    def test_the_saver_shows_and_tries_it_once(self):
        for variables in ((self.SESSION,), (self.SYSTEM,), (self.SESSION, self.SYSTEM)):
            with self.subTest(variables=variables):
                self.make_deaf(*variables)
                saver = self.start_kestro(**self.environment())
                self.wait_for_saver()
                self.assertEqual(self.deaf.callers(), len(variables))
                saver.terminate()
                status, errors = self.ended(saver)
                self.assertEqual((status, errors.count("message bus does not answer")), (0, len(variables)), errors)
                wait_until(lambda: self.shows(BLACK), "the saver's end")

    def test_the_service_starts_the_saver(self):
        self.make_deaf(self.SESSION, self.SYSTEM)
        self.serve("--after", "1s")
        self.wait_for_saver()
        self.assertEqual(self.deaf.callers(), 2)  # the saver tries none again
        self.assertIn("No bus of this session", self.log())

    def test_a_question_to_the_service_fails(self):
        self.make_deaf(self.SESSION)
        answer = self.ask("--status")
        self.assertEqual((answer.returncode, answer.stdout), (1, ""))
        self.assertIn("kestro idle does not run in this session.", answer.stderr)
        self.assertEqual(self.deaf.callers(), 1)


class Missing(BusTest):
    def test_none_is_started(self):
        self.start_kestro(**self.environment(DBUS_SESSION_BUS_ADDRESS=""))
        self.wait_for_saver()
        self.assertFalse((self.home.path / ".dbus").exists(), "dbus-launch writes a bus that it starts there")


class Lost(BusTest):
    """A bus that goes while the service waits."""

    def setUp(self):
        super().setUp()
        self.service = self.serve("--after", "2s")

    def assertGoesOn(self):
        self.wait_for_saver()
        self.server.run("xdotool", "key", "shift")
        wait_until(lambda: self.shows(BLACK), "an empty screen", HELD)
        self.wait_for_saver()
        self.assertIsNone(self.service.poll())

    def test_the_service_goes_on_without_one_that_dies(self):
        self.bus.kill()
        self.assertGoesOn()

    def test_the_service_goes_on_without_one_that_stops(self):
        self.bus.stop()
        self.assertGoesOn()
        self.service.terminate()
        self.assertEqual(self.service.wait(timeout=HELD), 0, self.log())


if __name__ == "__main__":
    unittest.main()
