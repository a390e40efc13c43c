"""Help, version, and what is said of a command line that is none."""

import pathlib
import plistlib
import shutil
import subprocess
import unittest

from harness import BOUND, KESTRO, ProgramTest

WRONG = [
    ["frobnicate"],
    ["--frobnicate"],
    ["-x"],
    ["--platform", "offscreen"],
    ["--version=3"],
    ["--version", "now"],
    ["--window-id"],
    ["-window-id", "window"],
    ["--window-id=0x1ffffffff"],
    ["--root=yes"],
    ["--mode", "sideways"],
    ["--scale", "0"],
    ["--fade", "--no-fade"],
    ["show-settings", "now"],
    ["doctor", "now"],
    ["doctor", "--graphics"],
    ["install-xscreensaver", "now"],
    ["install-xscreensaver", "--remove=yes"],
    ["show-settings", "--json"],
    ["show-settings", "--help=yes"],
    ["playlist", "--expanded", "yes"],
    ["playlist", "--expanded=yes"],
    ["scan", "now"],
    ["scan", "--start"],
    ["scan", "--forget=yes"],
    ["latest"],
    ["latest", "6"],
    ["latest", "six", "480"],
    ["latest", "6", "480x"],
    ["latest", "6", "480", "more"],
    ["inspect-page"],
    ["inspect-page", "page.html"],
    ["inspect-page", "--base", "http://h/"],
    ["inspect-page", "page.html", "--base"],
    ["inspect-page", "a.html", "b.html", "--base", "http://h/"],
    ["publish"],
    ["publish", "movies"],
    ["publish", "movies", "DIR", "more"],
    ["publish", "movies", ""],
    ["publish", "movies", "DIR", "--copy=yes"],
    *[["publish", "movies", "DIR", "--base-url", url] for url in ["", "host", "ftp://host/", "http://host/?a=1"]],
    ["render"],
    ["render", "--out"],
    ["render", "--out", ""],
    ["render", "--out=DIR", "stray"],
    ["render", "--out=DIR", "--trace", ""],
    *[["render", "--out=DIR", option, value]
      for option, values in {
          "--seconds": ["", "ten", "0", "-1", "nan", "inf", "1e9", "3,5"],
          "--every": ["", "0", "x"],
          "--screens": ["0", "9", "1.5", "two"],
          "--size": ["", "640", "640x", "x480", "640x480x1", "640x-480", "0x0", "9000x10", "8193x480", "640 x 480"],
      }.items() for value in values],
    ["render", "--out=DIR", "--size=8192x8192", "--screens=8"],
]

COMMANDS = ["show-settings", "playlist", "scan", "latest", "inspect-page", "publish", "render", "install-xscreensaver"]


class Usage(ProgramTest):
    def test_wrong_usage_is_one_line_and_status_2(self):
        for words in WRONG:
            with self.subTest(words=words):
                done = self.run_kestro(*[word.replace("DIR", str(self.home.path / "out")) for word in words], status=2)
                self.assertEqual(done.stdout, "")
                self.assertOneLine(done.stderr, "--help")
                self.assertTrue(done.stderr.startswith("kestro: "), done.stderr)
        self.assertFalse((self.home.path / "out").exists())

    def test_the_word_that_is_wrong_is_named(self):
        self.assertIn('"frobnicate"', self.run_kestro("frobnicate", status=2).stderr)
        self.assertIn('"--seecret"', self.run_kestro("render", "--seecret", status=2).stderr)
        self.assertIn("--seconds", self.run_kestro("render", "--out=x", "--seconds=x", status=2).stderr)

    def test_help_lists_every_command(self):
        text = self.run_kestro("--help").stdout
        self.assertTrue(text.startswith("Usage: kestro"), text)
        for command in COMMANDS:
            self.assertIn(f"kestro {command}", text)

    def test_each_command_has_help_with_its_options(self):
        options = {"show-settings": ["--all"], "playlist": ["--expanded"], "inspect-page": ["FILE", "--base URL"],
                   "scan": ["--start URL", "--host NAME", "--forget", "--verbose"], "latest": ["N ", "W "],
                   "publish": ["MOVIES", "SITE", "--base-url URL", "--copy"],
                   "install-xscreensaver": ["--remove"],
                   "render": ["--out DIR", "--seconds S", "--size WxH", "--screens N", "--every S", "--trace FILE"]}
        for command in COMMANDS:
            with self.subTest(command=command):
                text = self.run_kestro(command, "--help").stdout
                self.assertTrue(text.startswith(f"Usage: kestro {command}"), text)
                for option in options[command]:
                    self.assertIn(option, text)

    def test_version_is_one_line(self):
        self.assertRegex(self.run_kestro("--version").stdout, r"^kestro \d+\.\d+\.\d+\n$")

    def test_a_locale_without_utf8_changes_nothing(self):
        environment = self.home.environment(LC_ALL="C", LANG="C")
        self.home.play([pathlib.Path("/tmp/ü.mov")])
        done = self.run_kestro("playlist", environment=environment)
        self.assertEqual((done.stdout, done.stderr), ("file:///tmp/%C3%BC.mov\n", ""))
        done = self.run_kestro("ünknown", status=2, environment=environment)
        self.assertIn('"ünknown"', done.stderr)

    def test_no_display_is_one_line_and_status_1(self):
        for variables in [{}, {"DISPLAY": ":9999"}, {"QT_QPA_PLATFORM": "no-such-platform"}]:
            with self.subTest(variables=variables):
                done = self.run_kestro(status=1, environment=self.home.environment(**variables))
                self.assertOneLine(done.stderr, "No display")


class RenderOutput(ProgramTest):
    def test_a_folder_that_cannot_be_made_is_one_line_and_status_1(self):
        blocked = self.home.path / "file"
        blocked.touch()
        done = self.run_kestro("render", "--out", str(blocked / "pictures"), status=1)
        self.assertOneLine(done.stderr, str(blocked / "pictures"))

    def test_a_trace_that_cannot_be_made_is_one_line_and_status_1(self):
        done = self.run_kestro("render", "--out", str(self.home.path), "--trace", "/no/such/folder/t", status=1)
        self.assertOneLine(done.stderr, "/no/such/folder/t")

    def test_a_trace_that_cannot_be_written_is_one_line_and_status_1(self):
        self.home.play([])
        done = self.run_kestro("render", "--out", str(self.home.path / "out"), "--trace", "/dev/full", status=1)
        self.assertIn("kestro: Cannot write /dev/full", done.stderr)


class BrokenPackage(ProgramTest):
    """A package that lacks what the program needs: its own saver bundle."""

    def setUp(self):
        super().setUp()
        prefix = self.home.path / "package"
        libraries = prefix / "lib" / "kestro"
        libraries.mkdir(parents=True)
        package = pathlib.Path(KESTRO).parent.parent / "lib" / "kestro"
        for file in [package / "kestro", *package.glob("libkestro-*.so*")]:
            shutil.copy(file, libraries)
        (prefix / "bin").mkdir()
        self.program = shutil.copy(KESTRO, prefix / "bin")
        self.bundle = libraries / "Kestro.saver"

    def make_bundle(self, info, library=None):
        contents = self.bundle / "Contents"
        (contents / "Linux").mkdir(parents=True)
        (contents / "Info.plist").write_bytes(info)
        if library is not None:
            (contents / "Linux" / "Kestro.so").write_bytes(library)

    def assertRefused(self):
        for words, variables in [(["render", "--out", str(self.home.path / "out")], {}),
                                 ([], {"QT_QPA_PLATFORM": "offscreen"})]:
            done = subprocess.run([self.program, *words], env=self.home.environment(**variables), capture_output=True,
                                  text=True, timeout=BOUND)
            self.assertEqual(done.returncode, 1)
            self.assertOneLine(done.stderr, str(self.bundle))

    def test_a_missing_bundle_is_one_line_and_status_1(self):
        self.assertRefused()

    def test_a_malformed_bundle_is_one_line_and_status_1(self):
        self.make_bundle(b"<plist>")
        self.assertRefused()

    def test_a_bundle_without_its_library_is_one_line_and_status_1(self):
        self.make_bundle(plistlib.dumps({"NSPrincipalClass": "MySaver", "CFBundleExecutable": "Kestro.so"}))
        self.assertRefused()

    def test_a_bundle_with_a_broken_library_is_one_line_and_status_1(self):
        self.make_bundle(plistlib.dumps({"NSPrincipalClass": "MySaver", "CFBundleExecutable": "Kestro.so"}), b"no ELF")
        self.assertRefused()


if __name__ == "__main__":
    unittest.main()
