"""What is installed works wherever it stands, and needs nothing of the build.

usage: installed_tree.py CMAKE BUILD ROOT
"""

import configparser
import fnmatch
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

CMAKE, BUILD, ROOT = sys.argv[1:4]
MANAGED_VARIABLES = ("KESTRO_HOME", "KESTRO_ROOT", "LD_LIBRARY_PATH", "DISPLAY", "WAYLAND_DISPLAY")


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        first = os.path.join(cls.scratch.name, "first")
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", first], check=True, stdout=subprocess.DEVNULL)
        # Moved away from where it was installed: nothing in it may depend on that place.
        cls.prefix = shutil.move(first, os.path.join(cls.scratch.name, "moved"))

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def kestro(self, *words):
        home = os.path.join(self.scratch.name, "home")
        os.makedirs(home, exist_ok=True)
        environment = {name: value for name, value in os.environ.items() if name not in MANAGED_VARIABLES}
        command = [os.path.join(self.prefix, "bin/kestro"), *words]
        return subprocess.run(
            command, env={**environment, "HOME": home}, capture_output=True, text=True, timeout=240, check=False
        )

    def elf_files(self):
        for folder, _, names in os.walk(self.prefix):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    if file.read(4) == b"\x7fELF":
                        yield path

    def test_programAndLibraries_findEachOther_whenMoved(self):
        seen = 0
        for path in self.elf_files():
            needed = subprocess.run(["ldd", path], capture_output=True, text=True, check=True).stdout
            self.assertNotIn("not found", needed, path)
            for library in re.findall(r"libkestro-\S+ => (\S+)", needed):
                seen += 1
                self.assertTrue(os.path.realpath(library).startswith(os.path.realpath(self.prefix)), library)
        self.assertGreater(seen, 0)

    def test_programsAndLibraries_areTheBuiltOnes_whenInstalled(self):
        seen = 0
        for path in self.elf_files():
            with open(path, "rb") as one, open(os.path.join(BUILD, os.path.relpath(path, self.prefix)), "rb") as other:
                self.assertEqual(one.read(), other.read(), path)
            seen += 1
        self.assertGreater(seen, 0)

    def test_program_tellsItsVersion_whenInstalled(self):
        answer = self.kestro("--version")
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        newest = re.search(r"^## \[([0-9.]+)\]", pathlib.Path(ROOT, "CHANGELOG.md").read_text(encoding="utf-8"), re.M)
        self.assertEqual(answer.stdout, f"kestro {newest[1]}\n")

    def test_saver_playsTheMovieOfThePackage_whenNothingIsConfigured(self):
        pictures = os.path.join(self.scratch.name, "pictures")
        trace = os.path.join(self.scratch.name, "trace.jsonl")
        answer = self.kestro(
            "render", "--out", pictures, "--seconds", "1", "--every", "0.5", "--size", "320x180", "--trace", trace
        )
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertTrue([name for name in os.listdir(pictures) if name.endswith(".png")])
        with open(trace, encoding="utf-8") as file:
            self.assertIn(f"{self.prefix}/share/kestro/root/".replace(" ", "%20"), file.read())

    def test_settings_areInTheDesktopsMenu_whenInstalled(self):
        entry = os.path.join(self.prefix, "share/applications/kestro-settings.desktop")
        checked = subprocess.run(["desktop-file-validate", entry], capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual((checked.returncode, checked.stdout + checked.stderr), (0, ""))
        with open(entry, encoding="utf-8") as file:
            keys = dict(line.rstrip().split("=", 1) for line in file if "=" in line)
        program, *words = keys["Exec"].split()
        self.assertEqual(self.kestro(*words, "--help").returncode, 0)
        self.assertTrue(os.access(os.path.join(self.prefix, "bin", program), os.X_OK))
        self.assertTrue(os.path.isfile(os.path.join(self.prefix, f"share/icons/hicolor/scalable/apps/{keys['Icon']}.svg")))
        self.assertTrue(os.access(os.path.join(self.prefix, "lib/kestro/kestro-settings"), os.X_OK))

    def desktop_file(self, path):
        file = configparser.ConfigParser(interpolation=None, delimiters="=")
        file.optionxform = str
        file.read_string(pathlib.Path(self.prefix, path).read_text(encoding="utf-8"))
        return file["Desktop Entry"]

    def test_saver_isAmongThoseOfXscreensaver_whenInstalled(self):
        program = os.path.join(self.prefix, "libexec/xscreensaver/kestro")
        self.assertEqual(os.path.realpath(program), os.path.realpath(os.path.join(self.prefix, "bin/kestro")))
        self.assertEqual(subprocess.run([program, "--version"], check=False, timeout=60, capture_output=True).returncode, 0)
        self.assertTrue(os.path.isfile(os.path.join(self.prefix, "share/xscreensaver/config/kestro.xml")))

    def test_saver_isAThemeOfMate_whenInstalled(self):
        entry = self.desktop_file("share/applications/screensavers/kestro.desktop")
        self.assertEqual((entry["Categories"], entry["OnlyShowIn"]), ("Screensaver;", "MATE;"))
        # It looks for programs in the folders of savers alone.
        self.assertRegex(entry["Exec"], r"^/.*/libexec/xscreensaver/kestro --root$")

    def test_service_isStartedByNoSession_whenJustInstalled(self):
        entry = self.desktop_file("etc/xdg/autostart/kestro-idle.desktop")
        self.assertEqual((entry["Exec"], entry["Hidden"]), ("kestro idle", "true"))
        unit = os.path.join(self.prefix, "lib/systemd/user/kestro-idle.service")
        self.assertTrue(os.path.isfile(unit))
        self.assertEqual([name for _, _, names in os.walk(os.path.dirname(unit)) for name in names], ["kestro-idle.service"])

    def test_icon_isThereInTheUsualSizes_whenInstalled(self):
        for size in (16, 22, 24, 32, 48, 64, 128, 256):
            path = os.path.join(self.prefix, f"share/icons/hicolor/{size}x{size}/apps/kestro.png")
            seen = subprocess.run(["identify", "-format", "%wx%h", path], capture_output=True, text=True, timeout=60, check=True)
            self.assertEqual(seen.stdout, f"{size}x{size}")

    def test_description_isOfThisReleaseAndOfTheSettings_whenInstalled(self):
        root = xml.etree.ElementTree.parse(os.path.join(self.prefix, "share/metainfo/org.kestro.kestro.metainfo.xml")).getroot()
        launched = root.findtext("launchable")
        self.assertTrue(os.path.isfile(os.path.join(self.prefix, "share/applications", launched)), launched)
        self.assertEqual(f"kestro {root.find('releases/release').get('version')}\n", self.kestro("--version").stdout)
        for shown in root.iterfind("screenshots/screenshot/image"):
            self.assertTrue(os.path.isfile(os.path.join(ROOT, "docs", shown.text.rsplit("/", 1)[1])), shown.text)

    def test_shells_findTheirCompletions_whenInstalled(self):
        for path in ("bash-completion/completions/kestro", "zsh/site-functions/_kestro", "fish/vendor_completions.d/kestro.fish"):
            self.assertTrue(os.path.isfile(os.path.join(self.prefix, "share", path)), path)

    def test_packages_holdEachFileOnce_whenMade(self):
        """By the lists in debian/, and what debian/rules takes out before."""
        claims = {}
        for path in pathlib.Path(ROOT, "debian").glob("*.install"):
            if path.name == "kestro-web.install" and not os.path.exists(os.path.join(BUILD, "lib/kestro/kestro-web")):
                continue  # built without web content
            for line in path.read_text(encoding="utf-8").splitlines():
                pattern = re.sub(r"^usr/lib/\*/", "usr/lib/", line.split()[0])
                claims[pattern.removeprefix("usr/")] = 0
        self.assertGreater(len(claims), 30)
        for folder, _, names in os.walk(self.prefix):
            for name in names:
                path = os.path.relpath(os.path.join(folder, name), self.prefix)
                if name.startswith("LICENSE") or path == "share/kestro/ruffle/README.md":
                    continue
                holders = [pattern for pattern in claims if fnmatch.fnmatch(path, pattern) or path.startswith(pattern + "/")]
                self.assertEqual(len(holders), 1, f"{path}: {holders}")
                claims[holders[0]] += 1
        self.assertEqual([pattern for pattern, count in claims.items() if not count], [])

    def test_playlist_isTheIntroMovieAndTheLatestTrailers_whenNothingIsConfigured(self):
        root = pathlib.Path(self.prefix, "share/kestro/root")
        intro = root.joinpath(
            "System/Library/CoreServices/Setup Assistant.app/Contents/Resources",
            "TransitionSection.bundle/Contents/Resources/intro.mov",
        )
        self.assertTrue(intro.is_file())
        answer = self.kestro("playlist")
        self.assertEqual(answer.stdout.splitlines(), [intro.as_uri(), "auto://LatestTrailers/6/480"], answer.stderr)

    def test_package_holdsItsThemeMovies_whenInstalled(self):
        themes = pathlib.Path(self.prefix, "share/kestro/root/Applications/iDVD.app/Contents/Resources")
        self.assertEqual(len(list(themes.glob("*.theme/Contents/Resources/*.mov"))), 8)

    def test_package_holdsItsDocuments_whenInstalled(self):
        for path in ("share/man/man1/kestro.1", "share/man/man1/kestro-settings.1", "share/man/man1/kestro-idle.1",
                     "share/man/man5/kestro.conf.5", "share/doc/kestro/README.md", "share/doc/kestro/LICENSE",
                     "share/doc/kestro/docs/publishing.md", "share/doc/kestro/docs/trailer-site.jpg"):
            self.assertTrue(os.path.isfile(os.path.join(self.prefix, path)), path)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
