"""kestro idle on a screen and a bus of its own: the saver comes when nobody is there, and goes when somebody is."""

import os
import pathlib
import re
import signal
import subprocess
import tempfile
import unittest

from harness import BLACK, BOUND, GREEN, KESTRO, RED, movie, wait_until
from idletest import IdleTest
from xserver import XServer

PATHS = ("/ScreenSaver", "/org/freedesktop/ScreenSaver")


class Inhibitor:
    """A program that asks not to be disturbed, until it gives that back or leaves the bus."""

    SCRIPT = """
import dbus, sys
bus = dbus.SessionBus()
service = dbus.Interface(bus.get_object("org.freedesktop.ScreenSaver", sys.argv[1]), "org.freedesktop.ScreenSaver")
cookie = service.Inhibit("Player", "a film")
print("asked", flush=True)
for line in sys.stdin:
    service.UnInhibit(cookie)
    print("given back", flush=True)
"""

    def __init__(self, environment, path):
        self._process = subprocess.Popen(["/usr/bin/python3", "-c", self.SCRIPT, path], env=environment, text=True,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        assert self._process.stdout.readline() == "asked\n"

    def give_back(self):
        self._process.stdin.write("\n")
        self._process.stdin.flush()
        assert self._process.stdout.readline() == "given back\n"

    def close(self):
        self._process.stdin.close()
        self._process.kill()
        self._process.wait(timeout=BOUND)
        self._process.stdout.close()


def children_of(process):
    return [int(word) for word in pathlib.Path(f"/proc/{process}/task/{process}/children").read_text().split()]


def is_there(process):
    try:
        return pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()[0] != "Z"
    except OSError:
        return False


class Idle(IdleTest):
    def setUp(self):
        super().setUp()
        self.server = XServer()
        self.addCleanup(self.server.close)

    def display_environment(self):
        return {"DISPLAY": self.server.display}

    def wait_for_saver(self):
        wait_until(lambda: self.server.picture().is_near(320, 240, RED), "the saver")

    def wait_for_empty_screen(self):
        wait_until(lambda: self.server.picture().is_near(320, 240, BLACK) and not self.server.windows(), "an empty screen")

    def press_key(self):
        self.server.run("xdotool", "key", "shift")

    def test_keys_that_act_on_the_saver_do_not_end_it(self):
        self.home.play([movie("idle-red", "red", seconds=60), movie("idle-green", "green", seconds=60)], FullScreenMode="1",
                       PlayMode="1")
        self.home.configure("[keys]\nenabled=yes\n")
        self.serve("--after", "2s")
        self.wait_for_saver()
        self.server.run("xdotool", "key", "Right")
        wait_until(lambda: self.server.picture().is_near(320, 240, GREEN), "the next movie")
        self.press_key()
        self.wait_for_empty_screen()

    def test_the_saver_comes_when_nobody_is_there_and_goes_with_a_key(self):
        service = self.serve("--after", "2s")
        self.wait_for_saver()
        self.assertEqual(self.status()["state"], "showing")
        self.press_key()
        self.wait_for_empty_screen()
        self.wait_for_saver()  # and comes again
        self.assertIsNone(service.poll())

    def test_the_saver_is_told_when_to_be_black(self):
        self.serve("--after", "1s", "--stop-after", "2s")
        wait_until(lambda: "black from now on" in self.log(), "the end of its time")
        self.assertEqual(self.status()["state"], "showing")

    def test_words_that_do_not_go_together_are_refused(self):
        for words in (("--stop-after", "soon"), ("--stop-after", "5", "--status"), ("--stop-after", "5", "--now")):
            self.assertEqual(self.ask(*words).returncode, 2, words)

    def test_a_program_that_asks_for_it_keeps_it_away_until_it_gives_that_back(self):
        self.serve("--after", "2s")
        for path in PATHS:
            with self.subTest(path=path):
                inhibitor = Inhibitor(self.environment(), path)
                self.addCleanup(inhibitor.close)
                self.press_key()
                self.wait_for_empty_screen()
                wait_until(lambda: self.status().get("state") == "idle", "the person counts as away")
                self.assertEqual(self.status()["hindrances"], [{"kind": "inhibited", "who": "Player", "why": "a film"}])
                self.assertIn("inhibited by Player: a film", self.ask("--status").stdout)
                inhibitor.give_back()
                self.wait_for_saver()

    def test_a_program_that_leaves_the_bus_keeps_it_away_no_more(self):
        self.serve("--after", "2s")
        inhibitor = Inhibitor(self.environment(), PATHS[0])
        wait_until(lambda: self.status().get("state") == "idle", "the person counts as away")
        inhibitor.close()
        self.wait_for_saver()

    def test_it_shows_at_once_when_asked_to(self):
        self.serve("--after", "1h")
        self.assertEqual(self.ask("--now").returncode, 0)
        self.wait_for_saver()
        self.press_key()
        self.wait_for_empty_screen()
        wait_until(lambda: self.status().get("state") == "active", "the person is there")

    def test_term_ends_both_and_kill_leaves_no_saver(self):
        for number in (signal.SIGTERM, signal.SIGKILL):
            with self.subTest(signal=number.name):
                service = self.serve("--after", "1s")
                self.wait_for_saver()
                savers = children_of(service.pid)
                self.assertTrue(savers)
                service.send_signal(number)
                service.wait(timeout=BOUND)
                wait_until(lambda: not any(is_there(each) for each in savers), "the saver's end")
                self.wait_for_empty_screen()

    def test_a_saver_that_breaks_off_is_started_three_times_more_and_why_is_said(self):
        service = self.serve("--after", "1s")
        for crash in range(4):
            saver = wait_until(lambda: [each for each in children_of(service.pid) if is_there(each)], "a saver")[0]
            self.wait_for_saver()
            os.kill(saver, signal.SIGKILL)
            wait_until(lambda: not is_there(saver), "its end")
        wait_until(lambda: self.status().get("crashes") == 4, "the count")
        self.assertEqual(self.status()["state"], "ended")
        self.assertEqual(self.log().count("The saver broke off: signal 9."), 1)  # the same line once a minute
        self.assertIn("the saver broke off (4 times in a row)", self.ask("--status").stdout)

    def test_a_second_one_says_so_and_leaves(self):
        self.serve("--after", "1h")
        second = self.ask("--after", "1h")
        self.assertEqual((second.returncode, second.stderr), (1, "kestro: kestro idle runs in this session already.\n"))

    def test_without_anything_that_tells_it_says_so_and_fails(self):
        environment = self.environment()
        environment.pop("DISPLAY")
        alone = subprocess.run([KESTRO, "idle"], env=environment, capture_output=True, text=True, timeout=BOUND,
                               stdin=subprocess.DEVNULL)
        self.assertEqual(alone.returncode, 1)
        self.assertIn("Nothing in this session tells when you are away", alone.stderr)

    def test_nobody_of_the_saver_ever_asks_not_to_be_disturbed(self):
        """Neither of our own service nor of anybody else's: the session must be able to lock and to sleep."""
        with tempfile.TemporaryFile("w+") as heard:
            monitor = subprocess.Popen(["dbus-monitor", "--address", self.bus.address], stdout=heard, stderr=subprocess.DEVNULL)
            try:
                self.serve("--after", "1s")
                self.wait_for_saver()
                self.assertEqual(self.status()["hindrances"], [])
                self.press_key()
                self.wait_for_empty_screen()
            finally:
                monitor.terminate()
                monitor.wait(timeout=BOUND)
            heard.seek(0)
            text = heard.read()
        asked = re.findall(r"interface=(\S+); member=(?:Inhibit|AddInhibition)\n((?:   .*\n)*)", text)
        self.assertTrue("member=ActiveChanged" in text)
        for interface, words in asked:  # a moment to leave before the machine sleeps, which is no obstacle
            self.assertEqual(interface, "org.freedesktop.login1.Manager")
            self.assertEqual(re.findall(r'string "([^"]*)"', words)[0::3], ["sleep", "delay"])

    def test_wrong_words_are_told_of(self):
        for words in (["--after", "soon"], ["--json"], ["--now", "--status"], ["--nonsense"], ["more"]):
            with self.subTest(words=words):
                answer = self.ask(*words)
                self.assertEqual((answer.returncode, answer.stdout), (2, ""))
                self.assertIn("(see kestro idle --help)", answer.stderr)
        self.assertIn("--after TIME", self.ask("--help").stdout)
        self.assertEqual((self.ask("--status").returncode, self.ask("--now").returncode), (1, 1))


if __name__ == "__main__":
    unittest.main()
