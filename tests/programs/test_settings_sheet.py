"""The sheet of `kestro settings` from outside: what OK writes, what Cancel leaves, and the panels that it opens."""

import plistlib
import unittest

from harness import BLUE, RED, movie, url, wait_until
from inputclient import InputClient
from movieserver import MovieServer
from settingswindow import TITLE, SettingsTest
from specialmovies import streamed

SHEET = "Screen Saver Options"


class Sheet(SettingsTest):
    def setUp(self):
        super().setUp()
        self.movies = [movie("red"), movie("blue", "blue")]

    def open_sheet(self):
        process, window = self.start_window()
        wait_until(lambda: self.shows(window, RED), "the movie")
        self.open_again()
        return process, window

    def open_again(self):
        self.press("alt+o")
        self.window(SHEET)

    def file(self):
        return self.home.preferences / "Kestro.plist"

    def stored(self):
        return plistlib.loads(self.file().read_bytes())

    def close_sheet(self, key):
        self.press(key)
        self.window(TITLE)

    def test_ok_writesEveryKey(self):
        self.home.play(self.movies, FullScreenMode="0", PartialMode="1", PlayMode="2", RandomMode="1", Fadeout="1", Scale="0.5",
                       Interval="7", Reposition="1", Unknown="x")
        process, window = self.start_window()
        wait_until(lambda: self.preview_is_alive(window), "the movie")
        self.open_again()
        self.press_slowly("alt+s")
        self.close_sheet("Return")
        expected = {"Ver": "5", "FileList": [url(path) for path in self.movies], "SoundOn": "1", "PartialMode": "1",
                    "RandomMode": "1", "Continue": "0", "FullScreenMode": "0", "PlayMode": "2", "Fadeout": "1",
                    "BackAndForth": "0", "Interval": "7.000000", "Reposition": "1", "Scale": "0.500000"}
        wait_until(lambda: self.stored().get("SoundOn") == "1", "the file")
        stored = self.stored()
        for key in sorted(expected.keys() | stored.keys()):
            with self.subTest(key):
                self.assertEqual(stored.get(key), expected.get(key))
        self.close_window(process)

    def preview_is_alive(self, window):
        """Whether anything but black shows in the preview."""
        x, y, width, height = self.place(window)
        picture = self.server.picture()
        return any(sum(picture.at(x + column, y + row)) > 150
                   for column in range(width // 4, width * 3 // 4, 8) for row in range(height // 6, height // 2, 8))

    def test_cancel_leavesTheFileByteForByte(self):
        self.home.play(self.movies, Unknown="x")
        before = self.file().read_bytes()
        process, _ = self.open_sheet()
        self.press_slowly("alt+s", "alt+r")
        self.close_sheet("Escape")
        self.assertEqual(self.file().read_bytes(), before)
        self.open_again()
        self.close_sheet("Return")
        wait_until(lambda: self.file().read_bytes() != before, "the file")
        self.assertEqual(self.stored()["SoundOn"], "0")
        self.assertEqual(self.stored()["RandomMode"], "0")
        self.close_window(process)

    def test_preview_restartsWithTheNewOrder_whenARowIsMovedDown(self):
        self.home.play(self.movies)
        process, window = self.open_sheet()
        self.press_slowly("Down", "Up", "alt+Down")
        self.close_sheet("Return")
        wait_until(lambda: self.stored()["FileList"] == [url(path) for path in reversed(self.movies)], "the order")
        wait_until(lambda: self.shows(window, BLUE), "the other movie")
        self.close_window(process)

    def test_preview_playsAListThatWasPutRight_afterOneThatFailed(self):
        movies = MovieServer()
        self.addCleanup(movies.close)
        entries = [movies.url("/a.mp4"), movies.url("/b.mp4")]
        self.home.play(entries)
        process, window = self.start_window()
        wait_until(lambda: all(movies.count(path) for path in ("/a.mp4", "/b.mp4")), "both to fail")
        wait_until(lambda: self.preview_is_alive(window), "the sign")
        self.open_again()
        movies.serve("/a.mp4", streamed(movie("long", seconds=8)))
        self.press_slowly("Down", "Up", "alt+Down")
        self.close_sheet("Return")
        wait_until(lambda: self.stored()["FileList"] == entries[::-1], "the order")
        wait_until(lambda: self.shows(window, RED), "the movie")
        self.close_window(process)

    def test_window_closes_whenTheSheetIsOpen(self):
        self.home.play(self.movies)
        before = self.file().read_bytes()
        process, _ = self.open_sheet()
        self.press("alt+s")
        process.terminate()
        self.assertEqual(self.ended(process)[0], 0)
        self.assertEqual(self.file().read_bytes(), before)

    def put_theme_movie(self):
        theme = self.home.root / "Applications/iDVD.app/Contents/Resources/loop.mov"
        theme.parent.mkdir(parents=True)
        theme.write_bytes(self.movies[1].read_bytes())

    def check_place(self, key, title, parent):
        """Opens a window by its key twice; the second time it is where it was moved to."""
        place = (60, 40)
        self.press(key)
        window = self.window(title)
        self.settle()
        self.assertNotEqual(self.place(window)[:2], place)
        self.server.run("xdotool", "windowmove", "--sync", window, *map(str, place))
        # What the window itself had asked for may have been done first, and was a movement, too.
        wait_until(lambda: self.place(window)[:2] == place, f"{title} where it was moved to")
        moved = self.place(window)
        self.press("Escape")
        self.window(parent)
        self.press(key)
        wait_until(lambda: self.place(self.window(title)) == moved, f"{title} where it was")
        self.settle()
        self.assertEqual(self.place(self.window(title)), moved)

    def test_windows_comeBackWhereTheyWere(self):
        self.put_theme_movie()
        self.home.play(self.movies)
        self.start_window()
        self.check_place("alt+o", SHEET, TITLE)
        for key, title in (("alt+t", "Trailers"), ("alt+u", "Add URL"), ("alt+e", "Theme Movies")):
            with self.subTest(title):
                self.check_place(key, title, SHEET)
                self.press("Escape")
                self.window(SHEET)

    def test_menu_leavesKeyboardAndPointerToALocker(self):
        self.home.play(self.movies)
        self.open_sheet()
        self.press("alt+u")
        self.window("Add URL")
        before = len(self.server.windows())
        self.press("Menu")
        wait_until(lambda: len(self.server.windows()) == before + 1, "the menu")
        locker = InputClient(self.server)
        self.addCleanup(locker.close)
        self.assertTrue(locker.grabs(locker.cover(1024, 768)))

    def test_trailers_openFromTheSheetAndCloseWithIt(self):
        self.home.play(self.movies)
        process, _ = self.open_sheet()
        self.press("alt+t")
        self.window("Trailers")
        sheet = next(number for number in self.client_numbers() if self.title(number) == SHEET)
        self.server.run("xdotool", "windowactivate", "--sync", sheet)
        self.close_sheet("Escape")
        wait_until(lambda: "Trailers" not in self.titles(), "the end of the panel")
        self.close_window(process)

    def test_latestTrailers_areAddedToThePlaylist(self):
        self.home.play(self.movies)
        process, _ = self.open_sheet()
        self.press("alt+t")
        self.window("Trailers")
        self.press("alt+l")
        self.window("Latest Trailers")
        self.press("Return")
        self.window("Trailers")
        sheet = next(number for number in self.client_numbers() if self.title(number) == SHEET)
        self.server.run("xdotool", "windowactivate", "--sync", sheet)
        self.window(SHEET)
        self.close_sheet("Return")
        wait_until(lambda: len(self.stored()["FileList"]) == 3, "the entry")
        self.assertRegex(self.stored()["FileList"][2], r"^auto://LatestTrailers/\d+/\d+$")
        self.close_window(process)

    def test_themeMovies_areAddedToThePlaylist(self):
        self.put_theme_movie()
        self.home.play(self.movies)
        process, _ = self.open_sheet()
        self.press("alt+e")
        self.window("Theme Movies")
        self.press_slowly("space")
        self.press("alt+a")
        self.window(SHEET)
        self.close_sheet("Return")
        wait_until(lambda: len(self.stored()["FileList"]) == 3, "the entry")
        self.assertTrue(self.stored()["FileList"][2].endswith("iDVD.app/Contents/Resources/loop.mov"))
        self.close_window(process)


if __name__ == "__main__":
    unittest.main(verbosity=2)
