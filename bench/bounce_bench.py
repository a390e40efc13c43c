"""Measures the moving movie and what it leaves behind: cost beside mpv's, stills, and growth over many switches.

usage: bounce_bench.py KESTRO [BENCH...]     benches: bounce stills remote soak
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from countingserver import CountingServer
from movie_bench import MPV, QUIET, ROUNDS, bar, make_home

SOAK_SECONDS = int(os.environ.get("SOAK_SECONDS", "3600"))


def make_movie(folder, name, size, seconds):
    path = os.path.join(folder, name)
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"testsrc2=size={size}:rate=24:duration={seconds}",
                    "-c:v", "libx264", "-preset", "fast", "-pix_fmt", "yuv420p", "-g", "48", path], check=True)
    return path


class Bench:
    def __init__(self, kestro, folder):
        self.kestro, self.folder = kestro, folder

    def home(self, name, movies, **keys):
        urls = ["file://" + movie for movie in movies]
        return make_home(self.folder, name, urls, FullScreenMode="0", PartialMode="1", Fadeout="1", **keys)

    def start(self, screen, command, home=None):
        more = {"KESTRO_HOME": home, "KESTRO_RENDERER": "software"} if home else {}
        return subprocess.Popen(command, env=screen.environment(**more), **QUIET)

    def cost(self, command, home=None):
        screen = desk.Screen()
        process = self.start(screen, command, home)
        costs = desk.cost([process.pid, screen.process.pid], 5, 10)
        desk.end(process)
        screen.close()
        return costs

    def bounce(self):
        """Bounce with fade-out, a 640x360 movie on a 1920x1080 screen, drawn in software."""
        movie = make_movie(self.folder, "small.mp4", "640x360", 20)
        home = self.home("bounce", [movie])
        rows = [(self.cost([self.kestro], home), self.cost(MPV + ["--vo=null", movie])) for _ in range(ROUNDS)]
        own, server = (statistics.median(ours[i] for ours, _ in rows) for i in range(2))
        null = statistics.median(theirs[0] for _, theirs in rows)
        print(f"  kestro {own:.3f} CPU s/s, X server {server:.3f}; mpv --vo=null {null:.3f}")
        bar("cost against mpv --vo=null", own / null, 2.2)

    def stills(self):
        """Stills of a 1080p movie, each 0.55 s after the one before, and the pictures of the movie meanwhile."""
        movie = make_movie(self.folder, "large.mp4", "1920x1080", 20)
        program = os.path.join(os.path.dirname(self.kestro), "../bench/still_bench")
        answer = subprocess.run([program, movie], check=True, capture_output=True, text=True).stdout
        numbers = dict((words[0], [float(word) for word in words[1:]]) for words in map(str.split, answer.splitlines()))
        print(f"  longest still {numbers['still'][1]:.0f} ms")
        bar("processor time of a still, ms", numbers["still"][0], 47)
        without, taken = numbers["pictures"]
        print(f"  pictures in ten seconds: {without:.0f} without stills, {taken:.0f} with")
        bar("pictures lost because of stills", without - taken, 1)

    def remote(self):
        """A remote 1080p movie, bouncing and leaving its trail: what its server sends over one pass."""
        seconds = 20
        movie = make_movie(self.folder, "remote.mp4", "1920x1080", seconds)
        server = CountingServer(self.folder)
        home = make_home(self.folder, "remote", [server.url("remote.mp4")], FullScreenMode="0", PartialMode="1", Fadeout="1")
        screen = desk.Screen()
        process = self.start(screen, [self.kestro], home)
        time.sleep(seconds - 1)
        desk.end(process)
        screen.close()
        print(f"  {server.requests} requests, {server.sent / 1e6:.1f} MB sent of a file of {os.path.getsize(movie) / 1e6:.1f} MB")
        bar("bytes sent against the file's", server.sent / os.path.getsize(movie), 2.1)

    def soak(self):
        """Movies of two seconds, bouncing: memory and descriptors at the end beside those after the first minute."""
        movies = [make_movie(self.folder, f"two{i}.mp4", "640x360", 2) for i in range(2)]
        screen = desk.Screen()
        process = self.start(screen, [self.kestro], self.home("soak", movies))
        time.sleep(60)
        early = self.holds(process.pid)
        time.sleep(SOAK_SECONDS - 60)
        late = self.holds(process.pid)
        desk.end(process)
        screen.close()
        print(f"  after a minute {early[0]:.0f} MB and {early[1]} descriptors, at the end {late[0]:.0f} MB and {late[1]}")
        bar("memory", late[0] / early[0], 1.05)
        bar("descriptors", late[1] / early[1], 1.05)

    @staticmethod
    def holds(pid):
        """Memory in MiB and open descriptors, each the median of some looks: both go up and down at a switch."""
        looks = []
        for _ in range(40):
            looks.append((desk.megabytes(pid), len(os.listdir(f"/proc/{pid}/fd"))))
            time.sleep(0.25)
        return [statistics.median(column) for column in zip(*looks)]


def main():
    kestro, names = os.path.abspath(sys.argv[1]), sys.argv[2:] or ["bounce", "stills", "remote", "soak"]
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(kestro, folder)
        for name in names:
            method = getattr(bench, name)
            print(f"{name}: {method.__doc__}", flush=True)
            method()


if __name__ == "__main__":
    main()
