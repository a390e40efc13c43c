"""`kestro install-xscreensaver`: the user's list of savers, with Kestro in it and without."""

import os
import pathlib
import stat
import unittest

from harness import KESTRO, ProgramTest
from plainuser import PlainUser

LIST = b"""# XScreenSaver Preferences File
timeout:\t0:10:00
selected:\t1

programs:\t\t\t      \\
\t\t\tmaze --root\t\t    \\n\\
- GL: \t\t\tpipes --root\t\t    \\n\\


pointerHysteresis:\t10
"""


def with_entry(command):
    entry = b'  "Kestro"  ' + os.fsencode(command) + b" --root \\n\\\n"
    head, tail = LIST.split(b"- GL:")
    first, rest = tail.split(b"\n", 1)
    return head + b"- GL:" + first + b"\n" + entry + rest


class InstallTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.file = self.home.path / ".xscreensaver"
        self.backup = self.home.path / ".xscreensaver.kestro-backup"
        self.on_path = self.home.environment(PATH=f"{pathlib.Path(KESTRO).parent}:{os.environ['PATH']}")

    def install(self, *words, status=0):
        return self.run_kestro("install-xscreensaver", *words, status=status, environment=self.on_path)


class Installing(InstallTest):
    def test_the_entry_is_added_and_taken_out_and_nothing_else_changes(self):
        self.file.write_bytes(LIST)
        self.assertIn(str(self.backup), self.install().stdout)
        self.assertEqual(self.file.read_bytes(), with_entry("kestro"))
        self.assertEqual(self.backup.read_bytes(), LIST)
        self.install("--remove")
        self.assertEqual(self.file.read_bytes(), LIST)
        self.assertEqual(self.backup.read_bytes(), LIST)

    def test_a_second_time_changes_nothing(self):
        self.file.write_bytes(LIST)
        self.install()
        before = self.file.stat()
        self.assertIn("Nothing to change", self.install().stdout)
        self.assertEqual((self.file.stat().st_mtime_ns, self.file.stat().st_ino), (before.st_mtime_ns, before.st_ino))
        self.assertEqual(self.backup.read_bytes(), LIST)

    def test_it_is_switched_off_for_the_user_where_everybody_has_it(self):
        everybodys = self.home.root / "etc/X11/app-defaults/XScreenSaver"
        everybodys.parent.mkdir(parents=True)
        everybodys.write_bytes(b"*programs:\t\\\n\tkestro --root \\n\\\n\tmaze --root \\n\n")
        self.file.write_bytes(LIST)
        self.assertIn("Nothing to change", self.install().stdout)
        self.install("--remove")
        self.assertEqual(self.file.read_bytes(), with_entry("kestro").replace(b'  "Kestro"', b'- "Kestro"'))
        self.install()
        self.assertEqual(self.file.read_bytes(), with_entry("kestro"))

    def test_the_whole_path_is_written_where_the_name_leads_elsewhere(self):
        elsewhere = self.home.path / "elsewhere"
        elsewhere.mkdir()
        (elsewhere / "kestro").write_text("#!/bin/sh\n")
        (elsewhere / "kestro").chmod(0o755)
        for path in (str(elsewhere), "/usr/bin:/bin"):
            with self.subTest(path=path):
                self.file.write_bytes(LIST)
                self.run_kestro("install-xscreensaver", environment=self.home.environment(PATH=path))
                self.assertEqual(self.file.read_bytes(), with_entry(os.path.realpath(KESTRO)))

    def test_a_missing_file_is_made_with_the_entry_alone(self):
        self.install()
        self.assertEqual(self.file.read_bytes(), b'programs:\t\\\n  "Kestro"  kestro --root \\n\\\n\n')
        self.assertFalse(self.backup.exists())

    def test_there_is_nothing_to_remove_from_a_missing_file(self):
        self.install("--remove")
        self.assertFalse(self.file.exists())

    def test_a_link_and_the_mode_stay(self):
        real = self.home.path / "dotfiles"
        real.write_bytes(LIST)
        real.chmod(0o640)
        self.file.symlink_to(real)
        self.install()
        self.assertTrue(self.file.is_symlink())
        self.assertEqual(real.read_bytes(), with_entry("kestro"))
        self.assertEqual(stat.S_IMODE(real.stat().st_mode), 0o640)


class Refusing(InstallTest):
    def test_a_folder_in_the_way_is_one_line_and_status_1(self):
        self.file.mkdir()
        self.assertOneLine(self.install(status=1).stderr, str(self.file))

    def test_a_file_that_may_not_be_written_stays_whole(self):
        user = PlainUser()
        self.addCleanup(user.close)
        file = user.home / ".xscreensaver"
        file.write_bytes(LIST)
        user.owns(file)
        file.chmod(0o444)
        done = user.run(user.kestro, "install-xscreensaver")
        self.assertEqual(done.returncode, 1)
        self.assertOneLine(done.stderr, str(file))
        self.assertEqual(file.read_bytes(), LIST)


if __name__ == "__main__":
    unittest.main()
