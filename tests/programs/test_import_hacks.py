"""`kestro import-hacks`: savers made of the hacks of xscreensaver that are installed here."""

import pathlib
import plistlib
import re
import unittest

from harness import ProgramTest

DESCRIPTIONS = pathlib.Path("/usr/share/xscreensaver/config")
PROGRAMS = pathlib.Path("/usr/libexec/xscreensaver")


class ImportHacks(ProgramTest):
    def setUp(self):
        super().setUp()
        self.folder = self.home.path / "Library" / "Screen Savers"

    def run_import(self, *words, status=0):
        return self.run_kestro("import-hacks", *words, status=status)

    def info(self, bundle):
        return plistlib.loads((self.folder / bundle / "Contents" / "Info.plist").read_bytes())

    def test_hacks_are_listed_and_nothing_is_written_without_arguments(self):
        lines = self.run_import().stdout.splitlines()
        self.assertIn(["fuzzyflakes", "Fuzzy Flakes", "-"], [re.split("  +", line) for line in lines])
        self.assertFalse(self.folder.exists())

    def test_a_hack_is_imported_by_its_name_or_label_and_marked_in_the_list(self):
        self.run_import("fuzzyflakes", "gl MATRIX")
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()),
                         ["Fuzzy Flakes.saver", "GL Matrix.saver"])
        self.assertEqual(self.info("GL Matrix.saver")["KestroProgram"], str(PROGRAMS / "glmatrix"))
        self.assertTrue(self.info("GL Matrix.saver")["KestroOpenGL"])
        self.assertFalse(self.info("Fuzzy Flakes.saver")["KestroOpenGL"])
        self.assertNotIn("--root", self.info("Fuzzy Flakes.saver")["KestroArguments"])
        imported = [line for line in self.run_import().stdout.splitlines() if line.endswith("  imported")]
        self.assertEqual([line.split()[0] for line in imported], ["fuzzyflakes", "glmatrix"])

    def test_all_makes_one_bundle_a_hack_and_a_second_time_none(self):
        self.run_import("--all")
        names = {path.stem for path in DESCRIPTIONS.glob("*.xml")} - {"kestro"}
        expected = {name for name in names if (PROGRAMS / name).exists()}
        self.assertEqual({self.info(path.name)["CFBundleIdentifier"] for path in self.folder.iterdir()},
                         {f"org.kestro.hack.{name}" for name in expected})
        before = {path: path.stat().st_mtime_ns for path in self.folder.rglob("Info.plist")}
        again = self.run_import("--all").stdout.splitlines()
        self.assertEqual(len(again), len(expected))
        self.assertTrue(all(line.startswith("Nothing to change in ") for line in again), again)
        self.assertEqual({path: path.stat().st_mtime_ns for path in self.folder.rglob("Info.plist")}, before)

    def test_a_bundle_of_another_maker_stays_as_it_is(self):
        foreign = self.folder / "Deco.saver" / "Contents" / "Info.plist"
        foreign.parent.mkdir(parents=True)
        foreign.write_bytes(plistlib.dumps({"CFBundleIdentifier": "com.example.deco"}))
        before = foreign.read_bytes()
        self.run_import("deco")
        self.assertEqual(foreign.read_bytes(), before)
        self.assertEqual(self.info("Deco (deco).saver")["KestroProgram"], str(PROGRAMS / "deco"))

    def test_an_unknown_name_is_refused_and_nothing_is_imported(self):
        done = self.run_import("deco", "no-such-hack", status=1)
        self.assertOneLine(done.stderr, "no-such-hack")
        self.assertFalse(self.folder.exists())

    def test_a_folder_that_cannot_be_written_is_told(self):
        (self.home.path / "Library" / "Screen Savers").write_text("a file in the way")
        self.assertOneLine(self.run_import("deco", status=1).stderr, "Cannot write ")


if __name__ == "__main__":
    unittest.main()
