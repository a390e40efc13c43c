"""Measures movies on the screen: cost, memory and start, each beside its peer in the same run.

usage: movie_bench.py KESTRO [BENCH...]     benches: play mirror start sign list folder
"""

import os
import pathlib
import plistlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import desk

ROUNDS = 5
# What decoding costs goes up and down by a tenth from run to run, for each player on its own.
PLAY_ROUNDS = 9
QUIET = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
MPV = ["mpv", "--no-config", "--no-audio", "--really-quiet", "--loop-file=inf", "--no-osc"]


def make_movie(folder):
    path = os.path.join(folder, "bench.mp4")
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc2=size=1920x1080:rate=30:duration=20",
                    "-c:v", "libx264", "-preset", "fast", "-pix_fmt", "yuv420p", "-g", "60", path], check=True)
    return path


def make_home(folder, name, urls, **keys):
    """A home folder with settings that play these URLs."""
    home = os.path.join(folder, name)
    preferences = os.path.join(home, "Library/Preferences")
    os.makedirs(preferences)
    with open(os.path.join(preferences, "Kestro.plist"), "wb") as file:
        plistlib.dump({"Ver": "5", "FileList": urls, **keys}, file)
    return home


class Bench:
    def __init__(self, kestro, folder):
        self.kestro = kestro
        self.movie = make_movie(folder)
        url = "file://" + self.movie
        self.home = make_home(folder, "one", [url])
        self.sign_home = make_home(folder, "sign", [])
        self.two_home = make_home(folder, "two", [url, url])
        self.long_home = make_home(folder, "long", [url] + [f"file:///missing/{i}.mov" for i in range(9999)])

    def start(self, screen, command, home=None):
        more = {"KESTRO_HOME": home, "KESTRO_RENDERER": "software"} if home else {}
        return subprocess.Popen(command, env=screen.environment(**more), **QUIET)

    def run_cost(self, command, home=None):
        """Cost of the program and of the X server, and the program's peak memory."""
        screen = desk.Screen()
        process = self.start(screen, command, home)
        own, server = desk.cost([process.pid, screen.process.pid], 2, 8)
        peak = desk.peak_megabytes(process.pid)
        desk.end(process)
        screen.close()
        return own, server, peak

    def first_picture(self, command, home=None):
        """Seconds from the start of the program to the first picture at the middle of the screen."""
        screen = desk.Screen()
        begun = time.monotonic()
        process = self.start(screen, command, home)
        while screen.pixel(960, 540) == 0 and time.monotonic() - begun < 10:
            pass
        seconds = time.monotonic() - begun
        desk.end(process)
        screen.close()
        return seconds

    def peers(self):
        return {"kestro": ([self.kestro], self.home),
                "mpv --vo=null": (MPV + ["--vo=null", self.movie], None),
                "mpv --vo=x11": (MPV + ["--vo=x11", "--fs", self.movie], None)}

    def play(self):
        """Full screen 1080p30 in a 1920x1080 window."""
        rows = {name: [] for name in self.peers()}
        for _ in range(PLAY_ROUNDS):
            for name, (command, home) in self.peers().items():
                rows[name].append(self.run_cost(command, home))
        medians = {name: [statistics.median(column) for column in zip(*values)] for name, values in rows.items()}
        for name, (own, server, peak) in medians.items():
            each = " ".join(f"{row[0]:.3f}" for row in rows[name])
            print(f"  {name:14} {own:.3f} CPU s/s, X server {server:.3f}, peak {peak:.0f} MB; each {each}")
        ours, null, x11 = (medians[name] for name in ("kestro", "mpv --vo=null", "mpv --vo=x11"))
        bar("cost against mpv --vo=null", ours[0] / null[0], 1.2)
        bar("cost against mpv --vo=x11", ours[0] / x11[0], 0.75)
        bar("peak memory above mpv --vo=x11, MB", ours[2] - x11[2], 30)

    def cost_on_monitors(self, count, *words):
        """What `kestro` with these words, and the X server, cost on so many monitors side by side."""
        screen = desk.Screen(1920 * count)
        for number in range(count):
            screen.plug_in(f"M{number}", f"1920/508x1080/286+{1920 * number}+0", "none" if number else "screen")
        process = self.start(screen, [self.kestro, *words], self.home)
        own, server = desk.cost([process.pid, screen.process.pid], 2, 8)
        shown = sum(screen.pixel(1920 * number + 960, 300) != 0 for number in range(count))
        desk.end(process)
        screen.close()
        if shown != count:
            sys.exit(f"  {shown} of {count} monitors show the movie")
        return own, server

    def mirror(self):
        """The same movie full screen on three monitors of 1920x1080, against one such monitor, and one on each."""
        runs = {"one": (1,), "mirror": (3, "--mirror"), "each": (3, "--each")}
        rows = {name: [] for name in runs}
        for _ in range(ROUNDS):
            for name, (count, *words) in runs.items():
                rows[name].append(self.cost_on_monitors(count, *words))
        medians = {name: [statistics.median(column) for column in zip(*values)] for name, values in rows.items()}
        for name, (own, server) in medians.items():
            each = " ".join(f"{row[0]:.3f}" for row in rows[name])
            print(f"  {name:6} {own:.3f} CPU s/s, X server {server:.3f}; each {each}")
        bar("mirror on three against one", medians["mirror"][0] / medians["one"][0], 1.35)
        bar("a movie on each of three against one", medians["each"][0] / medians["one"][0], 3.1)

    def start_(self):
        """From the start of the program to the first picture of the movie."""
        command, home = self.peers()["kestro"]
        peer, _ = self.peers()["mpv --vo=x11"]
        ours, theirs = self.alternate(lambda: self.first_picture(command, home), lambda: self.first_picture(peer))
        print(f"  kestro {ours * 1000:.0f} ms, mpv --vo=x11 {theirs * 1000:.0f} ms")
        bar("start against mpv --vo=x11", ours / theirs, 1.2)

    def sign(self):
        """The sign picture alone."""
        own = statistics.median(self.run_cost([self.kestro], self.sign_home)[0] for _ in range(ROUNDS))
        bar("the sign, CPU s/s", own, 0.02)

    def list(self):
        """A playlist of 10,000 entries beside one of two."""
        long, short = self.alternate(lambda: self.first_picture([self.kestro], self.long_home),
                                     lambda: self.first_picture([self.kestro], self.two_home))
        print(f"  10,000 entries {long * 1000:.0f} ms, two {short * 1000:.0f} ms")
        bar("added by 10,000 entries, ms", (long - short) * 1000, 50)

    def folder(self):
        """A folder of 100,000 movies beside one movie: start to the first picture, and peak memory."""
        movies = self.fill_folder(100_000)
        home = make_home(movies.parent, "folder", [movies.as_uri().replace("file:", "folder:")])
        many, one = self.alternate(lambda: self.first_picture([self.kestro], home),
                                   lambda: self.first_picture([self.kestro], self.home))
        print(f"  the folder {many * 1000:.0f} ms, one movie {one * 1000:.0f} ms")
        bar("start against that of one movie", many / one, 1.05)
        of_many, of_one = self.run_cost([self.kestro], home), self.run_cost([self.kestro], self.home)
        print(f"  while it is read {of_many[0]:.3f} CPU s/s and {of_many[2]:.0f} MB, "
              f"one movie {of_one[0]:.3f} and {of_one[2]:.0f} MB")
        bar("peak memory above one movie's, MB", of_many[2] - of_one[2], 40)

    def fill_folder(self, count):
        """A folder with that many names of a few copies of the movie: a file has 65,000 names at most."""
        folder = pathlib.Path(self.movie).parent / "movies"
        folder.mkdir()
        for number in range(count):
            copy = folder / f"copy {number // 50_000}.mp4"
            if number % 50_000 == 0:
                shutil.copy(self.movie, copy)
            else:
                os.link(copy, folder / f"movie {number:06}.mp4")
        return folder

    @staticmethod
    def alternate(first, second):
        pairs = [(first(), second()) for _ in range(2 * ROUNDS + 1)]
        return [statistics.median(column) for column in zip(*pairs)]


def bar(name, value, most):
    print(f"  {name}: {value:.3f} (at most {most}) {'ok' if value <= most else 'MISSED'}")


def main():
    kestro, names = os.path.abspath(sys.argv[1]), sys.argv[2:] or ["play", "mirror", "start", "sign", "list", "folder"]
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(kestro, folder)
        for name in names:
            method = getattr(bench, "start_" if name == "start" else name)
            print(f"{name}: {method.__doc__}")
            method()


if __name__ == "__main__":
    main()
