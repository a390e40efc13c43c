"""`kestro settings`: its window from outside, used with keys as a person would."""

import os
import pathlib
import shutil
import signal
import subprocess
import unittest

from harness import BOUND, KESTRO, RED, end_process, movie, wait_until
from inputclient import InputClient
from settingswindow import PROGRAM, TITLE, SettingsTest


class SettingsWindow(SettingsTest):
    def setUp(self):
        super().setUp()
        self.home.play([movie("red")])

    def test_preview_showsTheMovie_whenTheWindowOpens(self):
        process, window = self.start_window()
        wait_until(lambda: self.shows(window, RED), "the movie")
        self.close_window(process)

    def test_window_speaksThePersonsLanguage(self):
        process = self.start_kestro("settings", DISPLAY=self.server.display, LANGUAGE="de:fr")
        self.window("Kestro-Einstellungen")
        self.close_window(process)

    def test_window_speaksEnglish_whenThePersonReadsThatBeforeAnother(self):
        process, _ = self.start_window(LANGUAGE="en:de")
        self.close_window(process)

    def test_process_hasBecomeTheSettingsProgram(self):
        process, _ = self.start_window()
        self.assertEqual(pathlib.Path(os.readlink(f"/proc/{process.pid}/exe")), PROGRAM)
        self.close_window(process)

    def test_window_hasTheIcon(self):
        process, window = self.start_window()
        wait_until(lambda: "Icon (" in self.server.run("xprop", "-id", window, "_NET_WM_ICON"), "the icon")
        self.close_window(process)

    def test_program_needsNothingThatPlaysMovies_toShowItsWindow(self):
        needed = subprocess.run(["ldd", PROGRAM], capture_output=True, text=True, check=True).stdout
        self.assertIn("libQt6Widgets", needed)
        for library in ("libkestro-movie", "libkestro-display", "libmpv", "libavcodec", "libcurl"):
            self.assertNotIn(library, needed)
        self.assertNotRegex(subprocess.run(["ldd", KESTRO], capture_output=True, text=True, check=True).stdout, "libkestro|libQt6")

    def test_preview_hasTheShapeOfTheScreen(self):
        process, window = self.start_window()
        wait_until(lambda: self.shows(window, RED), "the movie")
        # A movie of four by three fills the preview of a screen of 1024 by 768.
        picture = self.server.picture()
        x, y = self.middle_of_preview(window)
        width = sum(picture.is_near(column, y, RED) for column in range(picture.width))
        height = sum(picture.is_near(x, row, RED) for row in range(picture.height))
        self.assertAlmostEqual(width / height, 4 / 3, delta=0.02)
        self.close_window(process)

    def test_preview_showsMoviesToTheScaleOfTheScreen(self):
        # A movie of half the screen's width takes half of the preview's.
        whole = self.width_of_movie(FullScreenMode="1")
        half = self.width_of_movie(FullScreenMode="0", PartialMode="0", Scale="1", Interval="1000")
        self.assertAlmostEqual(half / whole, 0.5, delta=0.02)

    def width_of_movie(self, **settings):
        self.home.play([movie("half-red", "red", seconds=60, size="512x384")], **settings)
        process, _ = self.start_window()
        width = wait_until(self.longest_red_row, "the movie")
        self.close_window(process)
        return width

    def longest_red_row(self):
        picture = self.server.picture()
        return max(sum(picture.is_near(x, y, RED) for x in range(picture.width)) for y in range(0, picture.height, 8))

    def test_window_endsCleanly_whenSignalled(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number):
                process, _ = self.start_window()
                process.send_signal(number)
                self.assertEqual(self.ended(process)[0], 0)

    def test_window_comesBackAtItsPlace(self):
        process, window = self.start_window()
        self.server.run("xdotool", "windowsize", "--sync", window, "500", "450")
        self.close_window(process)
        process, window = self.start_window()
        self.assertEqual(self.place(window)[2:], (500, 450))
        self.close_window(process)

    def test_window_isWhole_onASmallScreenAtTwiceTheScale(self):
        process, window = self.start_window(QT_SCALE_FACTOR="2")
        wait_until(lambda: self.shows(window, RED), "the movie")
        x, y, width, height = self.place(window)
        self.assertTrue(x >= 0 and y >= 0 and x + width <= 1024 and y + height <= 768, (x, y, width, height))
        self.close_window(process)

    def test_window_staysOpen_whenNoMovieCanBePlayed(self):
        self.home.play(["file:///nowhere/a.mov", "http://127.0.0.1:1/b.mp4"])
        process, window = self.start_window()
        x, y, width, height = self.place(window)

        def sign_shows():
            picture = self.server.picture()
            preview = [picture.at(x + i, y + height // 3) for i in range(width // 5, width * 4 // 5, 3)]
            return len(set(preview)) > 1 or picture.at(*self.middle_of_preview(window)) == (0, 0, 0)

        wait_until(sign_shows, "the preview")
        self.assertIsNone(process.poll())
        self.close_window(process)


class Trial(SettingsTest):
    def setUp(self):
        super().setUp()
        self.home.play([movie("red")])

    def try_it(self):
        process, window = self.start_window()
        wait_until(lambda: self.shows(window, RED), "the movie")
        self.press("alt+t")
        corners = [(2, 2), (1021, 2), (2, 765), (1021, 765)]
        wait_until(lambda: all(self.server.picture().is_near(*at, RED) for at in corners), "the saver, full screen")
        return process, window

    def test_saver_runsFullScreenAndEnds_whenAKeyIsPressed(self):
        process, window = self.try_it()
        self.assertEqual(len(self.children(process)), 1)
        self.press("a")
        wait_until(lambda: not self.children(process), "the saver's end")
        wait_until(lambda: not self.server.picture().is_near(2, 2, RED), "the window")
        wait_until(lambda: self.shows(window, RED), "the movie in the preview again")
        self.window(TITLE)
        self.close_window(process)

    def test_saver_endsWithTheWindow(self):
        process, _ = self.try_it()
        children = self.children(process)
        process.send_signal(signal.SIGTERM)
        self.assertEqual(self.ended(process)[0], 0)
        wait_until(lambda: not any(os.path.exists(f"/proc/{child}") for child in children), "the saver's end")

    def test_saver_ends_whenTheWindowIsKilled(self):
        process, _ = self.try_it()
        children = self.children(process)
        process.kill()
        process.wait(timeout=60)
        wait_until(lambda: not any(os.path.exists(f"/proc/{child}") for child in children), "the saver's end")

    def test_locker_getsKeyboardAndPointer_whileTheSaverRuns(self):
        self.try_it()
        locker = InputClient(self.server)
        self.addCleanup(locker.close)
        self.assertTrue(locker.grabs(locker.cover(1024, 768)))

    def test_windowBelow_hearsNothingOfTheKeyThatEndsTheSaver(self):
        process, window = self.try_it()
        self.server.run("xdotool", "keydown", "ctrl", "keydown", "w")
        wait_until(lambda: not self.server.picture().is_near(2, 2, RED), "the window")
        self.server.run("xdotool", "keyup", "w", "keyup", "ctrl")
        wait_until(lambda: not self.children(process), "the saver's end")
        self.assertEqual(self.window(TITLE), window)
        self.close_window(process)


class Xscreensaver(SettingsTest):
    def setUp(self):
        super().setUp()
        self.home.play([movie("red")])
        self.file = self.home.path / ".xscreensaver"
        self.file.write_text("# mine\nprograms:\\\n  maze --root \\n\\\n\nselected: 0\n")

    def test_button_editsTheUsersList(self):
        before = self.file.read_text()
        process, _ = self.start_window()
        self.press("alt+a")
        wait_until(lambda: "kestro --root" in self.file.read_text(), "the entry")
        self.assertIn("maze --root", self.file.read_text())
        self.assertIn(f"{pathlib.Path(KESTRO).resolve()} --root", self.file.read_text())
        self.press("alt+r")
        wait_until(lambda: self.file.read_text() == before, "the file as it was")
        self.close_window(process)

    def test_button_isNotThere_whenXscreensaverIsNotInstalled(self):
        folder = self.home.path / "bin"
        folder.mkdir()
        before = self.file.read_text()
        process, _ = self.start_window(PATH=str(folder))
        self.press("alt+a", "alt+r")
        self.close_window(process)
        self.assertEqual(self.file.read_text(), before)


class Failure(SettingsTest):
    def test_command_saysWhy_whenThereIsNoDisplay(self):
        done = self.run_kestro("settings", status=1)
        self.assertOneLine(done.stderr, "No display can be reached")

    def package(self, *missing):
        """A copy of the package in which programs or libraries are missing; answers its program."""
        prefix = self.home.path / "prefix"
        source = pathlib.Path(KESTRO).resolve().parent.parent
        shutil.copytree(source / "lib/kestro", prefix / "lib/kestro", ignore=shutil.ignore_patterns("kestro-web", *missing))
        (prefix / "bin").mkdir()
        return pathlib.Path(shutil.copy(KESTRO, prefix / "bin"))

    def run_package(self, program, *words):
        """Its one line on standard error."""
        environment = self.home.environment(DISPLAY=self.server.display, LD_LIBRARY_PATH=str(program.parent.parent / "lib/kestro"))
        done = subprocess.run([program, *words], env=environment, capture_output=True, text=True, timeout=BOUND, check=False)
        self.assertEqual(done.returncode, 1)
        return done.stderr

    def test_command_saysWhy_whenTheProgramIsMissing(self):
        program = self.package("kestro-settings")
        missing = program.parent.parent / "lib/kestro/kestro-settings"
        self.assertOneLine(self.run_package(program, "settings"), f"Cannot start {missing}: No such file")

    def test_kestro_saysWhy_whenTheCommandsAreMissing(self):
        program = self.package("kestro")
        missing = program.parent.parent / "lib/kestro/kestro"
        self.assertOneLine(self.run_package(program, "--version"), f"kestro: Cannot start {missing}: No such file")

    def test_window_saysWhy_whenWhatPlaysMoviesIsMissing(self):
        program = self.package("libkestro-live.so")
        process = subprocess.Popen([program, "settings"], env=self.display(LD_LIBRARY_PATH=str(program.parent.parent / "lib/kestro")),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.addCleanup(end_process, process)
        wait_until(lambda: self.titles().count(TITLE) == 2, "the window and its alert")
        process.send_signal(signal.SIGTERM)
        errors = process.communicate(timeout=BOUND)[1]
        self.assertEqual(process.returncode, 0)
        self.assertIn("libkestro-live.so", errors)

    def test_command_refusesWhatItDoesNotKnow(self):
        done = self.run_kestro("settings", "--fast", status=2)
        self.assertOneLine(done.stderr, "--fast")

    def test_command_hasHelp(self):
        self.assertIn("kestro settings", self.run_kestro("settings", "--help").stdout)

    def test_kestro_linksNoWidgets(self):
        process = self.start_kestro("--root", DISPLAY=self.server.display)
        maps = pathlib.Path(f"/proc/{process.pid}/maps")
        wait_until(lambda: "Kestro.so" in maps.read_text() or "libKestro" in maps.read_text(), "the saver")
        self.assertNotIn("Qt6Widgets", maps.read_text())
        process.terminate()


if __name__ == "__main__":
    unittest.main(verbosity=2)
