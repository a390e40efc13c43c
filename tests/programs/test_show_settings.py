"""`kestro show-settings` against settings files as Kestro and older releases wrote them."""

import json
import plistlib
import subprocess
import unittest

from harness import KESTRO, ProgramTest

NOTHING_SET = {
    "plistVersion": 0,
    "isSoundOn": False,
    "_isFlyMode": False,
    "_isBounceMode": False,
    "isFullScreen": True,
    "isDynamicMode": False,
    "partialMode": 0,
    "isFlyMode": False,
    "isBounceMode": False,
    "isRandomMode": False,
    "isContinue": False,
    "canContinue": False,
    "playMode": 0,
    "fadeoutEffect": False,
    "backAndForth": False,
    "scaleFactor": 1,
    "timeInterval": 4,
    "reposition": 0,
    "repostionWhenMovieEnds": False,
    "backSaver": None,
}

PARTIAL = {"isFullScreen": False, "isDynamicMode": True}

# (settings, what differs from NOTHING_SET)
CASES = [
    ({}, {}),
    ({"Ver": "5"}, {"plistVersion": 5}),
    ({"Ver": 4}, {"plistVersion": 4}),
    ({"SoundOn": "1"}, {"isSoundOn": True}),
    ({"SoundOn": "2"}, {"isSoundOn": True}),
    ({"SoundOn": "0"}, {}),
    ({"SoundOn": "yes"}, {}),
    ({"SoundOn": True}, {"isSoundOn": True}),
    ({"RandomMode": "1"}, {"isRandomMode": True}),
    ({"Continue": "1"}, {"isContinue": True, "canContinue": True}),
    ({"Fadeout": "1"}, {"fadeoutEffect": True}),
    ({"BackAndForth": 1}, {"backAndForth": True}),
    ({"Scale": "0.100000"}, {"scaleFactor": 0.1}),
    ({"Scale": 0.7}, {"scaleFactor": 0.7}),
    ({"Scale": "abc"}, {"scaleFactor": 0}),
    ({"Interval": "12.500000"}, {"timeInterval": 12.5}),
    ({"Interval": "0.3"}, {"timeInterval": 0.3}),
    ({"Interval": "abc"}, {"timeInterval": 0}),
    ({"Interval": ""}, {"timeInterval": 0}),
    ({"PlayMode": "2"}, {"playMode": 2}),
    ({"FullScreen": "2"}, {"playMode": 2}),
    ({"PlayMode": "1", "FullScreen": "2"}, {"playMode": 1}),
    ({"BackSaver": "/Library/Screen Savers/Flurry.saver"}, {"backSaver": "/Library/Screen Savers/Flurry.saver"}),
    # Full screen or partial, by the keys of older releases too.
    ({"FullScreenMode": "1"}, {}),
    ({"FullScreenMode": "0"}, {**PARTIAL}),
    ({"FullScreenMode": "1", "FlyMode": "1", "Bounce": "1"}, {"_isFlyMode": True, "_isBounceMode": True}),
    ({"FlyMode": "1"}, {"_isFlyMode": True}),
    ({"Bounce": "1"}, {"_isBounceMode": True, "partialMode": 1}),
    ({"FlyMode": "0", "Bounce": "0"}, {}),
    ({"FlyMode": "0", "Bounce": "1"}, {**PARTIAL, "_isBounceMode": True, "partialMode": 1, "isBounceMode": True}),
    ({"FlyMode": "1", "Bounce": "0"}, {**PARTIAL, "_isFlyMode": True, "isFlyMode": True}),
    # Fly, bounce, neither.
    ({"FullScreenMode": "0", "PartialMode": "0"}, {**PARTIAL, "isFlyMode": True}),
    ({"FullScreenMode": "0", "PartialMode": "1"}, {**PARTIAL, "partialMode": 1, "isBounceMode": True}),
    ({"FullScreenMode": "0", "PartialMode": "2"}, {**PARTIAL, "partialMode": 2}),
    ({"FullScreenMode": "1", "PartialMode": "1"}, {"partialMode": 1}),
    # Re-placed when the movie ends: only while partial.
    ({"Reposition": "1"}, {"reposition": 1}),
    ({"FullScreenMode": "0", "Reposition": "1"}, {**PARTIAL, "reposition": 1, "repostionWhenMovieEnds": True}),
    ({"FullScreenMode": "0", "Reposition": "2"}, {**PARTIAL, "reposition": 2}),
]

FORMS = {"XML": plistlib.FMT_XML, "binary": plistlib.FMT_BINARY}


class ShowSettings(ProgramTest):
    def shown(self):
        done = self.run_kestro("show-settings")
        self.assertEqual(done.stderr, "")
        return json.loads(done.stdout)

    def check_all_cases(self, form):
        for settings, answers in CASES:
            with self.subTest(settings=settings):
                self.home.write(settings, FORMS[form])
                self.assertEqual(self.shown(), {**NOTHING_SET, **answers})

    def test_every_accessor_of_an_xml_file(self):
        self.check_all_cases("XML")

    def test_every_accessor_of_a_binary_file(self):
        self.check_all_cases("binary")

    def test_flags_are_flags_and_numbers_are_numbers(self):
        for name, answer in self.shown().items():
            with self.subTest(name=name):
                if name != "backSaver":
                    self.assertIs(type(answer), type(NOTHING_SET[name]))

    def test_no_file_reads_as_nothing_set(self):
        self.assertEqual(self.shown(), NOTHING_SET)

    def test_malformed_files_read_as_nothing_set(self):
        for content in [b"", b"not a property list", b"<plist><dict>", b"bplist00" + b"\xff" * 40,
                        plistlib.dumps(["an", "array"])]:
            with self.subTest(content=content[:20]):
                (self.home.preferences / "Kestro.plist").write_bytes(content)
                self.assertEqual(self.shown(), NOTHING_SET)

    def test_reals_are_written_with_no_more_digits_than_they_need(self):
        self.home.write({"Scale": "0.1", "Interval": "3.3"})
        text = self.run_kestro("show-settings").stdout
        self.assertIn('"scaleFactor": 0.1,', text)
        self.assertIn('"timeInterval": 3.3\n', text)

    def test_the_resume_file_changes_nothing(self):
        self.home.write({"Ver": "9", "SoundOn": "1"}, name="Kestro.def.plist")
        self.assertEqual(self.shown(), NOTHING_SET)

    def test_it_writes_no_file(self):
        self.shown()
        self.assertEqual(list(self.home.preferences.iterdir()), [])

    def conf(self, text=None):
        path = self.home.path / ".config/kestro/kestro.conf"
        if text is not None:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        done = self.run_kestro("show-settings", "--all")
        return json.loads(done.stdout), done.stderr, path

    def test_all_adds_the_usual_of_kestro_conf(self):
        shown, said, _ = self.conf()
        self.assertEqual(said, "")
        added = shown.pop("kestro.conf")
        self.assertEqual(shown, NOTHING_SET)
        self.assertEqual(added["movies"]["shuffle"], {"value": "random", "from": "default"})
        self.assertEqual(added["idle"]["after"], {"value": "5", "from": "default"})
        self.assertNotIn("marks", added)

    def test_all_says_what_counts_and_where_it_is_from(self):
        shown, said, path = self.conf('# mine\n[movies]\nlongest=5\nlongest="90s"\nshuffle=soon\n[marks]\n'
                                      '3=star night https://m.example/a.mp4\n4=moon x\n')
        added = shown["kestro.conf"]
        self.assertEqual(added["movies"]["longest"], {"value": "90s", "from": f"{path}:4"})
        self.assertEqual(added["movies"]["shuffle"], {"value": "random", "from": "default"})
        self.assertEqual(added["marks"], {"3": {"value": "star night https://m.example/a.mp4", "from": f"{path}:7"}})
        self.assertIn("line 5", said)
        self.assertIn("line 8", said)

    def test_all_comes_after_the_settings_one_key_a_line(self):
        text = self.run_kestro("show-settings", "--all").stdout
        plain = self.run_kestro("show-settings").stdout
        self.assertTrue(text.startswith(plain.removesuffix("\n}\n") + ',\n    "kestro.conf": {\n'), text)
        self.assertIn('            "dissolve": {"value": "0", "from": "default"},\n', text)

    def test_a_full_disk_is_a_failure(self):
        with open("/dev/full", "w") as full:
            done = subprocess.run([KESTRO, "show-settings"], env=self.home.environment(), stdout=full,
                                  stderr=subprocess.PIPE, text=True, timeout=240)
        self.assertEqual(done.returncode, 1)
        self.assertOneLine(done.stderr, "standard output")


if __name__ == "__main__":
    unittest.main()
