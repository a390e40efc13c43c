"""Movies from a server that are fetched ahead and kept: `kestro` as it plays, and the process that fetches them."""

import os
import resource
import signal
import subprocess
import threading
import unittest

from bus import Bus
from harness import BLACK, BOUND, KESTRO, RED, Rendering, hear_end_of, movie, wait_until
from keptmovies import KeeperTest, KeptTest, keeper_program, keepers_of
from movieserver import up_to, whole
from xserver import XServer

MANAGER = ["org.freedesktop.NetworkManager", "/org/freedesktop/NetworkManager", "org.freedesktop.NetworkManager"]


class Playing(KeptTest):
    def setUp(self):
        super().setUp()
        self.screen = XServer()
        self.addCleanup(self.screen.close)
        self.bus = Bus()
        self.addCleanup(self.bus.close)
        self.log = self.home.path / "log"

    def start(self, **more):
        with self.log.open("a") as log:
            saver = self.start_kestro(stderr=log, DISPLAY=self.screen.display, DBUS_SYSTEM_BUS_ADDRESS=self.bus.address, **more)
        wait_until(lambda: self.screen.picture().is_near(320, 240, RED), "the movie")
        return saver

    def until_kept(self, count=2):
        wait_until(lambda: len(self.copies()) == count and not self.parts(), "the copies")

    def end(self, saver):
        saver.terminate()
        self.assertEqual(self.ended(saver)[0], 0, self.log.read_text())
        wait_until(lambda: self.screen.picture().is_near(320, 240, BLACK), "the saver's end")
        wait_until(lambda: not keepers_of(self.folder), "the keeper's end")

    def play_and_keep(self):
        saver = self.start()
        self.until_kept()
        self.end(saver)

    def test_nothing_is_kept_where_nobody_chose_that(self):
        self.home.configure("")
        saver = self.start()
        self.assertEqual(keepers_of(self.folder), [])
        self.end(saver)
        self.assertFalse(self.folder.exists())
        self.assertEqual(self.server.count("/green.mp4"), 0)

    def test_what_was_kept_plays_without_its_server(self):
        self.play_and_keep()
        self.assertCopiesAreWhole()
        self.assertEqual(self.server.count("/green.mp4"), 1)
        self.server.requests.clear()
        for _ in range(2):
            self.end(self.start())
        self.assertEqual(self.server.requests, [])
        self.server.close_door()
        self.assertEqual(Rendering(self, seconds=2).urls(), self.entries[:1])
        self.assertIn(f"Plays the kept copy of {self.entries[0]}", self.log.read_text())
        self.assertIn("Kept movies: 2, ", self.log.read_text())

    def test_the_keeper_ends_with_a_saver_that_is_killed(self):
        self.serve("/green.mp4", movie("kept-green", "green", seconds=30), up_to(1000))
        saver = self.start()
        wait_until(self.parts, "a copy that is begun")
        saver.kill()
        wait_until(lambda: not keepers_of(self.folder), "the keeper's end")

    def test_the_keeper_stands_back(self):
        saver = self.start()
        number = wait_until(lambda: keepers_of(self.folder), "the keeper")[0]
        wait_until(lambda: os.getpriority(os.PRIO_PROCESS, number) == 19, "the least priority on the processor")
        wait_until(lambda: self.disk_priority(number) == "idle", "the least priority on the disk")
        self.end(saver)

    def disk_priority(self, number):
        shown = subprocess.run(["ionice", "-p", str(number)], capture_output=True, text=True, check=True, timeout=BOUND)
        return shown.stdout.strip()

    def test_a_movie_that_comes_in_part_is_not_played(self):
        self.serve("/green.mp4", movie("kept-green", "green", seconds=30), up_to(1000))
        saver = self.start()
        wait_until(self.parts, "a copy that is begun")
        os.kill(keepers_of(self.folder)[0], signal.SIGKILL)
        self.end(saver)
        self.assertCopiesAreWhole()
        self.serve("/green.mp4", movie("kept-green", "green", seconds=30))
        self.play_and_keep()
        self.assertCopiesAreWhole()
        self.assertEqual(self.parts(), [])

    def test_a_full_disk_does_not_disturb(self):
        smallest = min(len(body) for body in self.served())

        def no_large_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (smallest // 2, resource.RLIM_INFINITY))
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)

        environment = self.home.environment(DISPLAY=self.screen.display, DBUS_SYSTEM_BUS_ADDRESS=self.bus.address)
        with self.log.open("a") as log:
            saver = subprocess.Popen([KESTRO], env=environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                     start_new_session=True, preexec_fn=no_large_files)
        hear_end_of(saver)
        self.addCleanup(saver.wait)
        self.addCleanup(saver.kill)
        wait_until(lambda: "Movies are not kept any more: " in self.log.read_text(), "a line in the log")
        wait_until(lambda: self.screen.picture().is_near(320, 240, RED), "the movie")
        saver.terminate()
        self.assertEqual(saver.wait(timeout=BOUND), 0)
        self.assertEqual(self.log.read_text().count("not kept"), 1)
        self.assertEqual((self.copies(), self.parts()), ([], []))

    def test_a_metered_connection_is_spared(self):
        service = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--system", *MANAGER],
                                   env=self.home.environment(DBUS_SYSTEM_BUS_ADDRESS=self.bus.address),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(service.wait)
        self.addCleanup(service.kill)
        self.tell_manager("AddProperty", "ssv", MANAGER[0], "Metered", "u", "1")
        saver = self.start()
        wait_until(lambda: "the connection is metered" in self.log.read_text(), "a line in the log")
        self.assertEqual(self.server.count("/green.mp4"), 0)
        self.assertFalse(self.folder.exists())
        self.tell_manager("UpdateProperties", "sa{sv}", MANAGER[0], "1", "Metered", "u", "2")
        self.until_kept()
        self.end(saver)

    def tell_manager(self, *words):
        call = ["busctl", f"--address={self.bus.address}", "call", *MANAGER[:2], "org.freedesktop.DBus.Mock", *words]
        wait_until(lambda: subprocess.run(call, capture_output=True, timeout=BOUND).returncode == 0, "NetworkManager")

    def test_doctor_tells_what_is_kept(self):
        self.play_and_keep()
        self.assertRegex(self.doctor(), r"2 movies, [\d.]+ kB of 20\.0 MB, the last one of \d{4}-")
        self.home.configure("")
        self.assertNotIn("Kept movies", self.doctor())

    def doctor(self):
        """What it says, whether it finds something broken or not."""
        return subprocess.run([KESTRO, "doctor"], env=self.home.environment(DISPLAY=""), capture_output=True, text=True,
                              timeout=BOUND, stdin=subprocess.DEVNULL).stdout


class Keeper(KeeperTest):
    def test_two_do_not_fetch_the_same(self):
        goes_on = threading.Event()

        def held(server, request, body):
            goes_on.wait(BOUND)
            whole(server, request, body)

        entry = [self.serve("/red.mp4", movie("kept-red", "red", seconds=30), held)]
        first = self.start_keeper(entry)
        wait_until(lambda: self.server.count("/red.mp4") == 1, "the first request")
        second = self.start_keeper(entry)
        goes_on.set()
        wait_until(lambda: len(self.copies()) == 1 and not self.parts(), "the copy")
        self.close(first)
        wait_until(lambda: said(second), "what the second has to say")
        self.close(second)
        self.assertEqual(self.server.count("/red.mp4"), 1)

    def test_another_takes_over_from_one_that_is_killed(self):
        entry = [self.serve("/red.mp4", movie("kept-red", "red", seconds=30), up_to(1000))]
        first = self.start_keeper(entry)
        wait_until(self.parts, "a copy that is begun")
        second = self.start_keeper(entry)
        self.serve("/red.mp4", movie("kept-red", "red", seconds=30))
        first.kill()
        wait_until(lambda: len(self.copies()) == 1 and not self.parts(), "the copy")
        self.close(second)
        self.assertCopiesAreWhole()

    def test_it_ends_with_wrong_usage(self):
        for words in ([], [str(self.folder)], [str(self.folder), "0"], [str(self.folder), "much"]):
            done = subprocess.run([keeper_program(), *words], stdin=subprocess.DEVNULL, timeout=BOUND,
                                  env=self.home.environment(DBUS_SYSTEM_BUS_ADDRESS="disabled:"))
            self.assertEqual(done.returncode, 2, words)
        self.assertFalse(self.folder.exists())


def said(process):
    """What it has said since, or nothing."""
    os.set_blocking(process.stderr.fileno(), False)
    return process.stderr.read()


if __name__ == "__main__":
    unittest.main()
