"""Movies on a disk that never answers: the other entries play, and the saver can be ended. Where no file system can be
mounted, for want of /dev/fuse or of the right to, the module says so and ends with status 77."""

import pathlib
import plistlib
import signal
import sys
import unittest

import deaddisk
from deaddisk import DeadDisk
from harness import BLUE, Home, ProgramTest, movie, url, wait_until
from settingswindow import TITLE, SettingsTest
from specialmovies import heavy
from watching import Watch
from xserver import XServer

QUESTIONS = ("stat", "open", "read")
SHEET = "Screen Saver Options"
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

    def silent_disk(self, question):
        """One with a movie "silent.mp4" that does not answer to that question. A disk for each: whoever waits for the
        one movie holds up whoever looks for another in the same folder."""
        return self.disk(f"silent.mp4={question}", silent=movie("blue", "blue"))

    def watch(self, disk, entries, *words, **settings):
        """Starts a run with settings of its own. The disk goes before it where the test fails: nobody can end what waits
        for the disk."""
        self.home = Home()
        self.addCleanup(self.home.close)
        self.home.play(entries, **FULL_SCREEN, **settings)
        watch = Watch(self, *words)
        self.addCleanup(disk.close)
        return watch


class OtherEntries(DeadDiskTest):
    """In each test three runs go on side by side, each with an entry that does not answer to another question."""

    def check_runs(self, check, entries_of, *words, **settings):
        """`entries_of` answers the list to play, given the URL of the silent entry; `check` is called with each run once
        its question was put."""
        disks = [(question, self.silent_disk(question)) for question in QUESTIONS]
        runs = [(question, disk, self.watch(disk, entries_of(disk.url("silent.mp4")), *words, **settings))
                for question, disk in disks]
        for question, disk, run in runs:
            with self.subTest(question, **settings):
                disk.await_question("silent.mp4", question)
                check(run)
                run.end()

    def others_play(self, run):
        asked = run.now()
        for path in self.good:
            run.until_it_plays(url(path), since=asked)

    def test_they_play_where_it_comes_first(self):
        self.check_runs(self.others_play, lambda silent: [silent, *self.good])

    def test_they_play_where_it_comes_between_them(self):
        self.check_runs(self.others_play, lambda silent: [self.good[0], silent, self.good[1]])

    def test_they_play_in_random_order(self):
        self.check_runs(self.others_play, lambda silent: [silent, *self.good], RandomMode="1")

    def test_they_play_where_a_folder_before_them_does_not_answer(self):
        disk = self.disk("silent.mp4=stat", silent=movie("blue", "blue"))
        folder = disk.url("silent.mp4").removesuffix("/silent.mp4").replace("file:", "folder:")
        run = self.watch(disk, [folder, url(self.good[0]), url(self.good[1])])
        self.others_play(run)
        run.end()

    def test_they_play_where_a_list_before_them_does_not_answer(self):
        for question in QUESTIONS:
            with self.subTest(question):
                disk = DeadDisk({"silent.m3u": self.good[0]}, f"silent.m3u={question}")
                self.addCleanup(disk.close)
                run = self.watch(disk, [disk.url("silent.m3u"), url(self.good[0]), url(self.good[1])])
                disk.await_question("silent.m3u", question)
                self.others_play(run)
                run.end()

    def test_the_sign_moves_while_the_first_entry_does_not_answer(self):
        self.check_runs(lambda run: run.until_it_plays(url(self.good[0]), since=run.until_the_sign_moves()),
                        lambda silent: [silent, *self.good])

    def test_the_sign_moves_on_every_screen_where_nothing_else_is_there(self):
        for order in ("0", "1"):
            self.check_runs(lambda run: [run.until_the_sign_moves(since=run.now(), screen=screen) for screen in range(2)],
                            lambda silent: [silent], "--screens", "2", RandomMode=order)

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

    def check_it_ends(self, way, entries_of):
        for question in QUESTIONS:
            with self.subTest(question):
                disk = self.silent_disk(question)
                process = self.start(disk, entries_of(disk.url("silent.mp4")))
                wait_until(self.server.windows, "its window")
                disk.await_question("silent.mp4", question)
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

    def test_signals_reach_the_process_that_waits_for_the_disk(self):
        disk = self.silent_disk("stat")
        process = self.start(disk, [disk.url("silent.mp4")])
        disk.await_question("silent.mp4", "stat")
        self.assertRegex(self.status_of_look(process), "SigBlk:\t0+\n")
        self.terminate(process)
        self.check_it_has_ended(process, disk)

    @staticmethod
    def status_of_look(process):
        """What the kernel says of the process that looks for the file."""
        for folder in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                status = folder.joinpath("status").read_text()
            except OSError:
                continue  # it has ended
            if f"\nPPid:\t{process.pid}\n" in status and status.startswith("Name:\tkestro-file-loo"):
                return status
        raise AssertionError("nobody looks for the file")

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


class Sheet(SettingsTest):
    """The sheet of `kestro settings`, while it waits for the disk."""

    def open_sheet(self, *rules, entries=None, on_disk=()):
        self.disk = DeadDisk({"a.mp4": movie("blue", "blue")}, *rules)
        self.addCleanup(self.disk.close)
        self.assertIsNone(self.disk.refusal)
        self.home.play([*([movie("red")] if entries is None else entries), *(self.disk.path / name for name in on_disk)])
        self.home.name_videos_folder(self.disk.path)
        self.process, _ = self.start_window()
        self.press("alt+o")
        self.sheet = self.window(SHEET)
        self.settle()

    def stored(self):
        return plistlib.loads((self.home.preferences / "Kestro.plist").read_bytes())

    def drop_folder(self):
        x, y, width, height = self.place(self.sheet)
        self.drop([self.disk.path], x + width // 4, y + height // 3)

    def shows_blue_row(self):
        """Whether the list has a row with a blue picture at its left."""
        x, y, _, height = self.place(self.sheet)
        picture = self.server.picture()
        return any(picture.is_near(x + 50, y + below, BLUE) for below in range(0, height // 2, 4))

    def check_that_ok_stores_and_the_program_ends(self):
        self.press_slowly("alt+s")
        self.press("Return")
        self.window(TITLE)
        wait_until(lambda: self.stored().get("SoundOn") == "1", "the file")
        wait_until(lambda: self.process.poll() is not None or self.press("ctrl+w"), "the end of the program")
        self.assertEqual(self.process.returncode, 0)

    def test_movies_of_a_folder_that_was_dropped_are_added(self):
        self.open_sheet()
        self.drop_folder()
        wait_until(self.shows_blue_row, "the row of the movie")
        self.server.run("xdotool", "windowactivate", self.sheet)
        self.window(SHEET)
        self.press("Return")
        # A slow sheet is dragged to again until it has taken the folder, and may have it twice.
        wait_until(lambda: self.disk.url("a.mp4") in self.stored()["FileList"], "the entry")
        self.assertEqual(set(self.stored()["FileList"]), {url(movie("red")), self.disk.url("a.mp4")})
        self.close_window(self.process)

    def test_it_can_be_used_once_a_person_gave_up_a_folder_that_does_not_answer(self):
        self.open_sheet(".=list")
        self.drop_folder()
        self.disk.await_question(".", "list")
        self.window("Add Movie")
        self.press("Escape")
        self.window(SHEET)
        self.check_that_ok_stores_and_the_program_ends()
        self.assertEqual(self.stored()["FileList"], [url(movie("red"))])

    def test_it_can_be_used_where_the_folder_of_videos_does_not_answer(self):
        self.open_sheet(".=list", entries=())
        self.disk.await_question(".", "list")
        self.check_that_ok_stores_and_the_program_ends()

    def test_it_can_be_used_where_the_videos_that_it_offers_do_not_answer(self):
        self.open_sheet("a.mp4=open", entries=())
        self.disk.await_question("a.mp4", "open")
        self.check_that_ok_stores_and_the_program_ends()

    def test_it_can_be_used_where_an_entry_does_not_answer(self):
        for question in ("stat", "open", "read"):
            with self.subTest(question):
                self.open_sheet(f"a.mp4={question}", on_disk=["a.mp4"])
                self.disk.await_question("a.mp4", question)
                self.check_that_ok_stores_and_the_program_ends()
                self.disk.close()

    def test_the_panel_for_files_opens_elsewhere_where_its_folder_does_not_answer(self):
        state = self.home.path / ".config/kestro/settings-window.conf"
        state.parent.mkdir(parents=True, exist_ok=True)
        self.open_sheet(".=list")
        self.press("Escape")
        self.window(TITLE)
        self.close_window(self.process)
        state.write_text(f"{state.read_text()}\n[General]\nSSLastPath={self.disk.path}\n")
        self.process, _ = self.start_window()
        self.press("alt+o")
        self.window(SHEET)
        self.press("alt+m")
        self.disk.await_question(".", "list")
        self.window("Add Movie")
        self.press("Escape")
        self.window(SHEET)
        self.check_that_ok_stores_and_the_program_ends()


if __name__ == "__main__":
    reason = deaddisk.refusal()
    if reason:
        print(f"skipped: no file system can be mounted here: {reason}")
        sys.exit(deaddisk.CANNOT_MOUNT)
    unittest.main()
