"""What a process loads: the decoders and the web's part are for those that show something, and cost all others their start.

The loader tells of each library that it brings into a process, in order, also of those that are opened later.
"""

import pathlib
import re
import unittest

from harness import ProgramTest, wait_until
from settingswindow import SettingsTest

HEAVY = re.compile(r"lib(mpv|av[a-z]+|sw[a-z]+|kestro-(movie|web|presentation|engine)|Qt6(WebEngine|Quick|Qml)\w*)\.so")


class Loaded:
    """The files that the processes of a program load, and the environment that has the loader say so."""

    def __init__(self, home):
        self.path = home.path / "loader"
        self.environment = {"LD_DEBUG": "files", "LD_DEBUG_OUTPUT": str(self.path)}

    def names(self):
        """In the order in which they were first asked for."""
        text = "".join(path.read_text() for path in sorted(self.path.parent.glob("loader.*")))
        return list(dict.fromkeys(pathlib.Path(name).name for name in re.findall(r"\bfile=(\S+) \[\d+\]", text)))


def heavy(names):
    return [name for name in names if HEAVY.match(name)]


class Commands(ProgramTest):
    def loaded_by(self, *words):
        loaded = Loaded(self.home)
        self.run_kestro(*words, environment=self.home.environment(**loaded.environment))
        names = loaded.names()
        self.assertTrue([name for name in names if name.startswith("libkestro-base.so")], names)
        return names

    def test_command_loadsNoDecoders_whenItShowsNothing(self):
        self.home.play(["http://m/a.mov", "auto://LatestTrailers/2/480"])
        for words in (("--help",), ("show-settings",), ("playlist",), ("playlist", "--expanded"), ("latest", "2", "480"),
                      ("publish", "--help")):
            with self.subTest(words):
                self.assertEqual(heavy(self.loaded_by(*words)), [])

    def test_publish_loadsTheDecoders_onceItRuns(self):
        movies = self.home.path / "movies"
        movies.mkdir()
        loaded = Loaded(self.home)
        self.run_kestro("publish", str(movies), str(self.home.path / "site"), status=1,
                        environment=self.home.environment(**loaded.environment))
        self.assertIn("libkestro-movie.so", heavy(loaded.names()))


class Window(SettingsTest):
    def test_settings_loadNoDecoders_beforeTheWindowIsThere(self):
        self.home.play(["http://m/a.mov"])
        loaded = Loaded(self.home)
        self.start_window(**loaded.environment)
        wait_until(lambda: "libkestro-movie.so" in loaded.names(), "the preview's library")
        names = loaded.names()
        self.assertEqual(heavy(names[: names.index("libkestro-live.so")]), [])


if __name__ == "__main__":
    unittest.main()
