"""`kestro settings` with the keyboard alone: whatever a person does there, from opening the window to OK."""

import plistlib
import unittest

from harness import movie, url, wait_until
from settingswindow import TITLE, SettingsTest

SHEET = "Screen Saver Options"


class Keys(SettingsTest):
    def setUp(self):
        super().setUp()
        self.movies = [movie("red"), movie("blue", "blue")]
        self.urls = [url(path) for path in self.movies]
        self.server.run("xdotool", "mousemove", "1023", "767")

    def open_sheet(self, **settings):
        self.home.play(self.movies, **settings)
        self.process, _ = self.start_window()
        self.press("alt+o")
        self.window(SHEET)

    def type(self, text):
        self.server.run("xdotool", "type", text)

    def ok(self):
        """What is stored once OK was pressed."""
        before = self.file().stat().st_mtime_ns
        self.press("Return")
        self.window(TITLE)
        wait_until(lambda: self.file().stat().st_mtime_ns != before, "the file")
        stored = plistlib.loads(self.file().read_bytes())
        self.close_window(self.process)
        return stored

    def file(self):
        return self.home.preferences / "Kestro.plist"

    def put_trailers(self, *urls):
        day = {"Size": "480 x 204", "Date": "2026/11/01"}
        self.home.preferences.mkdir(parents=True, exist_ok=True)
        (self.home.preferences / "Kestro_Scanned_Trailers.lst").write_bytes(
            plistlib.dumps({"Ver": "010901", "Sites": [], "Trailers": [{"URL": each, **day} for each in urls]}))

    def test_aMovieIsAdded(self):
        self.open_sheet()
        added = self.home.path / "added.mp4"
        added.write_bytes(self.movies[1].read_bytes())
        self.press("alt+m")
        self.window("Add Movie")
        self.type(str(added))
        self.press("Return")
        self.window(SHEET)
        self.assertEqual(self.ok()["FileList"], [*self.urls, url(added)])

    def test_aURLIsAdded(self):
        self.open_sheet()
        self.press("alt+u")
        self.window("Add URL")
        self.type("http://127.0.0.1:1/b.mp4")
        self.press("Return")
        self.window(SHEET)
        self.assertEqual(self.ok()["FileList"], [*self.urls, "http://127.0.0.1:1/b.mp4"])

    def test_anEntryIsEdited(self):
        self.open_sheet()
        self.press_slowly("F2", "ctrl+a")
        self.type("http://127.0.0.1:1/c.mp4")
        self.press_slowly("Return")
        self.assertEqual(self.ok()["FileList"], ["http://127.0.0.1:1/c.mp4", self.urls[1]])

    def test_anEntryIsDeleted(self):
        self.open_sheet()
        self.press_slowly("Down", "Delete")
        self.assertEqual(self.ok()["FileList"], self.urls[:1])

    def test_anEntryIsMoved_fromTheMenu(self):
        self.open_sheet()
        self.press_slowly("Menu", *6 * ["Up"], "Return")  # upwards to "Move Down"
        self.assertEqual(self.ok()["FileList"], self.urls[::-1])

    def test_anEntryIsMarked_fromTheMenu(self):
        self.open_sheet()
        self.press_slowly("Menu", "s", "Menu", "p", "n")  # "Star", "Plays", "At Night"
        self.ok()
        stored = (self.home.path / ".config/kestro/kestro.conf").read_text()
        self.assertIn(f"[marks]\n1=star night {self.urls[0]}\n", stored)

    def test_everyOptionChanges(self):
        self.open_sheet(FullScreenMode="1", PlayMode="0", Scale="1.0", Interval="4", Reposition="0", PartialMode="0")
        self.press_slowly("alt+s", "alt+r", "alt+l", "alt+h", "alt+f", "alt+v", "Tab", "ctrl+a")
        self.type("2.5")
        self.press_slowly("alt+w", "alt+a", "Right", "alt+g")
        stored = self.ok()
        expected = {"SoundOn": "1", "RandomMode": "1", "Continue": "1", "PlayMode": "1", "FullScreenMode": "0",
                    "Interval": "2.500000", "Reposition": "1", "Scale": "1.050000", "Fadeout": "1", "PartialMode": "0"}
        self.assertEqual({key: stored[key] for key in expected}, expected)

    def test_trailersAreAdded(self):
        self.put_trailers("http://127.0.0.1:1/a.mov", "http://127.0.0.1:1/b.mov")
        self.open_sheet()
        self.press("alt+t")
        self.window("Trailers")
        self.press_slowly("alt+f")
        self.type("b.mov")
        self.press_slowly("Return", "alt+d", "alt+o")
        self.window(SHEET)
        self.assertEqual(self.ok()["FileList"], [*self.urls, "http://127.0.0.1:1/b.mov"])

    def test_theNewestTrailersAreAdded(self):
        self.put_trailers("http://127.0.0.1:1/a.mov")
        self.open_sheet()
        self.press("alt+t")
        self.window("Trailers")
        self.press("alt+l")
        self.window("Latest Trailers")
        self.type("3")
        self.press("Return")
        self.window("Trailers")
        self.press("Escape")
        self.window(SHEET)
        self.assertEqual(self.ok()["FileList"], [*self.urls, "auto://LatestTrailers/3/480"])

    def test_themeMoviesAreAdded(self):
        theme = self.home.root / "Applications/iDVD.app/Contents/Resources/loop.mov"
        theme.parent.mkdir(parents=True)
        theme.write_bytes(self.movies[1].read_bytes())
        self.open_sheet()
        self.press("alt+e")
        self.window("Theme Movies")
        self.press("Return")
        self.window(SHEET)
        self.assertRegex(self.ok()["FileList"][2], r"iDVD\.app/Contents/Resources/loop\.mov$")

    def test_everyControlOfTheSheetIsComeToWithTab(self):
        """The frame around what has the keys changes at each step, and comes round to the list again."""
        self.open_sheet(FullScreenMode="0")
        self.settle()
        shown = [self.server.picture().bytes]
        while len(shown) == 1 or shown[-1] != shown[0]:
            self.press("Tab")
            wait_until(lambda: self.server.picture().bytes != shown[-1], "another control with the keys")
            self.settle()
            shown.append(self.server.picture().bytes)
        self.assertEqual(len(shown) - 1, 20)


if __name__ == "__main__":
    unittest.main(verbosity=2)
