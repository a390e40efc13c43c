"""Movies on a disk that never answers: the other entries play, and the saver can be ended. Where no file system can be
mounted, for want of /dev/fuse or of the right to, the module says so and ends with status 77."""

import signal
import sys
import unittest

import deaddisk
from deaddisk import DeadDisk
from harness import ProgramTest, movie, url, wait_until
from specialmovies import heavy
from watching import Watch
from xserver import XServer

QUESTIONS = ("stat", "open", "read")
FULL_SCREEN = {"FullScreenMode": "1", "PlayMode": "1"}


class DeadDiskTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.good = [movie("short-red", "red", seconds=0.6), movie("short-green", "green", seconds=0.6)]

    def disk(self, *rules, **movies):
        """A disk with those movies under "NAME.mp4"."""
        disk = DeadDisk({f"{name}.mp4": path for name, path in movies.items()}, *rules)
        self.addCleanup(disk.close)
        self.assertIsNone(disk.refusal)
        return disk

    def silent_disk(self):
        """One movie for each question that it does not answer: "stat.mp4", "open.mp4" and "read.mp4"."""
        return self.disk(*(f"{each}.mp4={each}" for each in QUESTIONS), **dict.fromkeys(QUESTIONS, movie("blue", "blue")))

    def watch(self, disk, entries, *words, **settings):
        """Starts a run. The disk goes before it where the test fails: nobody can end what waits for the disk."""
        self.home.play(entries, **FULL_SCREEN, **settings)
        watch = Watch(self, *words)
        self.addCleanup(disk.close)
        return watch


class OtherEntries(DeadDiskTest):
    """In each test three runs go on side by side, each with an entry that does not answer to another question."""

    def runs(self, entries_of, **settings):
        """(question, run) for each question; `entries_of` answers the list to play, given the URL of the silent entry."""
        disk = self.silent_disk()
        return disk, [(question, self.watch(disk, entries_of(disk.url(f"{question}.mp4")), **settings))
                      for question in QUESTIONS]

    def check_others_play(self, entries_of, **settings):
        disk, runs = self.runs(entries_of, **settings)
        for question, run in runs:
            with self.subTest(question):
                disk.await_question(f"{question}.mp4", question)
                asked = run.now()
                for path in self.good:
                    run.until_it_plays(url(path), since=asked)
                run.end()

    def test_they_play_where_it_comes_first(self):
        self.check_others_play(lambda silent: [silent, *self.good])

    def test_they_play_where_it_comes_between_them(self):
        self.check_others_play(lambda silent: [self.good[0], silent, self.good[1]])

    def test_they_play_in_random_order(self):
        self.check_others_play(lambda silent: [silent, *self.good], RandomMode="1")

    def test_the_sign_moves_while_the_first_entry_does_not_answer(self):
        disk, runs = self.runs(lambda silent: [silent, *self.good])
        for question, run in runs:
            with self.subTest(question):
                disk.await_question(f"{question}.mp4", question)
                run.until_it_plays(url(self.good[0]), since=run.until_the_sign_moves())
                run.end()

    def test_the_sign_moves_where_nothing_else_is_there(self):
        for order in ("0", "1"):
            disk, runs = self.runs(lambda silent: [silent], RandomMode=order)
            for question, run in runs:
                with self.subTest(question, order=order):
                    disk.await_question(f"{question}.mp4", question)
                    run.until_the_sign_moves(since=run.now())
                    run.end()
            disk.close()

    def test_they_play_where_it_goes_silent_in_the_middle(self):
        half = heavy()
        disk = self.disk(f"half.mp4=read@{half.stat().st_size // 2}", half=half)
        run = self.watch(disk, [disk.url("half.mp4"), *self.good])
        run.until_it_plays(disk.url("half.mp4"))
        disk.await_question("half.mp4", "read")
        silent = run.now()
        for path in self.good:
            run.until_it_plays(url(path), since=silent)
        run.end()

    def test_every_screen_goes_on(self):
        disk = self.silent_disk()
        run = self.watch(disk, [disk.url("stat.mp4")], "--screens", "2", RandomMode="1")
        for screen in range(2):
            run.until_the_sign_moves(screen=screen)
        run.end()


class Ending(DeadDiskTest):
    """The saver on a display, while it waits for the disk."""

    def setUp(self):
        super().setUp()
        self.server = XServer("320x240")
        self.addCleanup(self.server.close)
        self.server.move_pointer(100, 100)

    def start(self, disk, entries):
        self.home.play(entries, Continue="1", **FULL_SCREEN)
        process = self.start_kestro(DISPLAY=self.server.display)
        self.addCleanup(disk.close)
        return process

    def check_it_ends(self, way, entries_of, questions=QUESTIONS):
        for question in questions:
            with self.subTest(question):
                disk = self.silent_disk()
                process = self.start(disk, entries_of(disk.url(f"{question}.mp4")))
                wait_until(self.server.windows, "its window")
                disk.await_question(f"{question}.mp4", question)
                way(process)
                self.check_it_has_ended(process, disk)

    def check_it_has_ended(self, process, disk):
        try:
            self.assertEqual(process.wait(timeout=20), 0)
            self.assertEqual(self.server.windows(), [])
        finally:
            disk.close()

    def terminate(self, process):
        process.send_signal(signal.SIGTERM)

    def test_a_signal_ends_it_where_nothing_else_is_there(self):
        self.check_it_ends(self.terminate, lambda silent: [silent])

    def test_a_signal_ends_it_where_the_silent_entry_comes_first(self):
        self.check_it_ends(self.terminate, lambda silent: [silent, *self.good])

    def test_a_signal_ends_it_where_the_silent_entry_comes_second(self):
        self.check_it_ends(self.terminate, lambda silent: [self.good[0], silent])

    def test_a_key_ends_it(self):
        self.check_it_ends(lambda _: self.server.run("xdotool", "key", "a"), lambda silent: [silent])

    def test_a_click_ends_it(self):
        self.check_it_ends(lambda _: self.server.run("xdotool", "click", "1"), lambda silent: [silent])

    def test_a_signal_ends_it_in_the_middle_of_a_movie_that_went_silent(self):
        half = heavy()
        disk = self.disk(f"half.mp4=read@{half.stat().st_size // 2}", half=half)
        process = self.start(disk, [disk.url("half.mp4")])
        disk.await_question("half.mp4", "read")
        self.terminate(process)
        self.check_it_has_ended(process, disk)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "half.mp4")


if __name__ == "__main__":
    reason = deaddisk.refusal()
    if reason:
        print(f"skipped: no file system can be mounted here: {reason}")
        sys.exit(deaddisk.CANNOT_MOUNT)
    unittest.main()
