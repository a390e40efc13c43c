"""A saver of somebody else's, built against nothing but what is installed, is loaded and draws.

usage: third_party_saver.py CMAKE BUILD ROOT DRAWER
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

CMAKE, BUILD, ROOT, DRAWER = sys.argv[1:5]


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=240, **options).stdout


class ThirdPartySaver(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.holder = tempfile.TemporaryDirectory()
        folder = cls.holder.name
        cls.prefix = os.path.join(folder, "prefix")
        run(CMAKE, "--install", BUILD, "--prefix", cls.prefix)
        cls.source = shutil.copytree(os.path.join(cls.prefix, "share/doc/kestro/examples/drifting-dots"),
                                     os.path.join(folder, "dots"))
        cls.built = os.path.join(folder, "built")
        run(CMAKE, "-S", cls.source, "-B", cls.built, f"-DCMAKE_PREFIX_PATH={cls.prefix}",
            "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror")
        run(CMAKE, "--build", cls.built)
        cls.bundle = os.path.join(cls.built, "DriftingDots.saver")

    @classmethod
    def tearDownClass(cls):
        cls.holder.cleanup()

    def draw(self, bundle):
        picture = os.path.join(self.holder.name, "picture.png")
        done = subprocess.run([DRAWER, bundle, picture], capture_output=True, text=True, timeout=240,
                              env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
        return done, picture

    def test_bundle_isLoadedAndDraws_whenBuiltAgainstTheInstalledHeaders(self):
        done, picture = self.draw(self.bundle)
        self.assertEqual(done.returncode, 0, done.stderr)
        colours = int(run("identify", "-format", "%k", picture))
        self.assertGreater(colours, 20)
        self.assertEqual(run("convert", picture, "-format", "%[fx:mean<0.5]", "info:"), "1", "mostly black")

    def test_saver_isBuilt_whenPkgConfigTellsHow(self):
        found = {**os.environ, "PKG_CONFIG_PATH": os.path.join(self.prefix, "lib/pkgconfig")}
        how = run("pkg-config", "--cflags", "--libs", "kestro", env=found).split()
        source = os.path.join(self.holder.name, "middle.cpp")
        with open(source, "w", encoding="utf-8") as file:
            file.write("#include <platform/saver/ScreenSaverFunctions.h>\n"
                       "kestro::Rect middle(kestro::Rect a, kestro::Rect b) { return kestro::SSCenteredRectInRect(a, b); }\n")
        library = os.path.join(self.holder.name, "middle.so")
        run("c++", "-std=c++20", "-fPIC", "-shared", "-Wl,--no-undefined", source, "-o", library, *how)
        self.assertIn("libkestro-saver.so", run("readelf", "-d", library))

    def test_saver_linksToWhatTheHeadersDeclare_andNothingElseOfOurs(self):
        names = run("readelf", "--dyn-syms", "--wide", os.path.join(self.bundle, "Contents/Linux/DriftingDots.so"))
        versions = set(re.findall(r" UND \S+@(KESTRO_\w+)", names))
        self.assertEqual(versions, {"KESTRO_1"})

    def test_libraries_tellWhatTheHeadersDeclareFromWhatIsTheirOwn(self):
        listed = run("nm", "--dynamic", "--with-symbol-versions", "--demangle",
                     os.path.join(self.prefix, "lib/kestro/libkestro-base.so.1"))
        self.assertRegex(listed, r"T kestro::logLine\(QString const&\)@@KESTRO_1\n")
        self.assertRegex(listed, r"T kestro::replaceFile\(.*\)@@KESTRO_PRIVATE\n")

    def test_headers_areThoseOfTheSource_whenInstalled(self):
        installed = os.path.join(self.prefix, "include/kestro")
        count = 0
        for folder, _, names in os.walk(installed):
            for name in names:
                path = os.path.join(folder, name)
                source = os.path.join(ROOT, "src", os.path.relpath(path, installed))
                with open(path, "rb") as one, open(source, "rb") as other:
                    self.assertEqual(one.read(), other.read())
                count += 1
        self.assertGreater(count, 10)

    def test_headers_needNothingThatIsNotInstalled(self):
        """That each can be included alone is seen in the source."""
        includes = run("pkg-config", "--cflags", "Qt6Gui").split() + ["-I", os.path.join(self.prefix, "include/kestro")]
        headers = [os.path.join(folder, name)
                   for folder, _, names in os.walk(os.path.join(self.prefix, "include/kestro")) for name in names]
        self.assertGreater(len(headers), 10)
        for header in headers:
            includes += ["-include", header]
        run("c++", "-std=c++20", "-fPIC", "-fsyntax-only", *includes, "-x", "c++", os.devnull)

    def test_bundle_isRefused_whenItsLibraryIsForAnotherInterface(self):
        other = os.path.join(self.holder.name, "other")
        shutil.copytree(self.source, other)
        path = os.path.join(other, "DriftingDots.cpp")
        with open(path, encoding="utf-8") as file:
            text = file.read()
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.replace("Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)",
                                    'Q_PLUGIN_METADATA(IID "org.kestro.SaverPlugin/99")'))
        built = os.path.join(self.holder.name, "other-built")
        run(CMAKE, "-S", other, "-B", built, f"-DCMAKE_PREFIX_PATH={self.prefix}")
        run(CMAKE, "--build", built)
        done, _ = self.draw(os.path.join(built, "DriftingDots.saver"))
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("version 99", done.stderr)

    def test_picturesSaver_isLoaded_whereTheDesktopHasIt(self):
        for folder in ("Frameworks/ScreenSaver.framework/Versions/A/Resources", "Screen Savers"):
            saver = f"share/kestro/root/System/Library/{folder}/Pictures Folder.saver"
            done, _ = self.draw(os.path.join(self.prefix, saver))
            self.assertEqual(done.returncode, 0, done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
