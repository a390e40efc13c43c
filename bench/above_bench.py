"""Measures the movies above another saver: what that costs beside both apart, and what is left of it at the end.

usage: above_bench.py KESTRO [BENCH...]     benches: above still left
"""

import os
import signal
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from backsaver_bench import HACKS, MOVING, alone, children, is_over, make_bundle
from bounce_bench import make_movie
from movie_bench import QUIET, ROUNDS, bar, make_home

FLY = {"FullScreenMode": "0", "PartialMode": "0", "Scale": "1", "Fadeout": "1", "Interval": "4"}


class Bench:
    def __init__(self, kestro, folder):
        self.kestro, self.folder = kestro, folder
        self.movie = make_movie(folder, "small.mp4", "640x360", 20)
        self.homes = 0

    def start(self, screen, hack=None):
        """Kestro on that screen, above a hack: a program's path, or nothing."""
        self.homes += 1
        name = f"home{self.homes}"
        keys = dict(FLY)
        if hack:
            keys["BackSaver"] = self.install(os.path.join(self.folder, name, "Library/Screen Savers"), hack)
        home = make_home(self.folder, name, ["file://" + self.movie], **keys)
        more = {"KESTRO_HOME": home, "KESTRO_RENDERER": "software"}
        return subprocess.Popen([self.kestro], env=screen.environment(**more), **QUIET)

    @staticmethod
    def install(savers, hack):
        """A bundle of the hack where savers are looked for."""
        os.makedirs(savers)
        return make_bundle(savers, os.path.basename(hack), hack)

    def cost(self, hack=None):
        """Cost of Kestro, of its screen's server, and of what Kestro started."""
        screen = desk.Screen()
        process = self.start(screen, hack)
        time.sleep(3)
        below = sorted(children(process.pid))
        if bool(below) != bool(hack):
            sys.exit(f"above_bench.py: {len(below)} processes behind the movies, with {hack}")
        own, server, *rest = desk.cost([process.pid, screen.process.pid, *below], 2, 10)
        desk.end(process)
        screen.close()
        return own, server, sum(rest)

    def above(self):
        """A movie of 640x360 that flies above a hack on 1920x1080, less the same without it, less the hack alone."""
        for hack in MOVING:
            rounds = [(self.cost(HACKS + hack), self.cost(), alone(HACKS + hack))
                      for _ in range(ROUNDS)]
            for title, place in (("with", 0), ("without", 1), ("the hack alone", 2)):
                medians = [statistics.median(column) for column in zip(*(each[place] for each in rounds))]
                print(f"  {hack}, {title}: " + ", ".join(f"{cost:.3f}" for cost in medians))
            more = statistics.median(sum(both) - sum(movies) - sum(lone) for both, movies, lone in rounds)
            bar(f"movies above {hack}, more than both apart, CPU s/s", more, 0.15)

    def still(self):
        """The same above a hack that draws nothing."""
        script = os.path.join(self.folder, "still.sh")
        with open(script, "w") as file:
            file.write("#!/bin/sh\nexec sleep 1000\n")
        os.chmod(script, 0o755)
        rounds = [(self.cost(script), self.cost()) for _ in range(ROUNDS)]
        bar("movies above what does not change, more than without, CPU s/s",
            statistics.median(sum(both) - sum(movies) for both, movies in rounds), 0.01)

    def left(self):
        """Fifty runs ended by a TERM or a KILL; a second later nothing may be left."""
        screen = desk.Screen()
        left = 0
        for number in range(50):
            process = self.start(screen, HACKS + MOVING[number % 3])
            while len(children(process.pid)) < 2:
                time.sleep(0.02)
            time.sleep(0.02 * (number % 25))  # before, while and after the movie begins
            below = children(process.pid)
            process.send_signal(signal.SIGKILL if number % 2 else signal.SIGTERM)
            process.wait()
            time.sleep(1)
            left += sum(os.path.exists(f"/proc/{pid}") and not is_over(pid) for pid in below)
        screen.close()
        bar("processes left a second after 50 ends", left, 0)


def main():
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(os.path.abspath(sys.argv[1]), folder)
        for name in sys.argv[2:] or ["above", "still", "left"]:
            print(name)
            getattr(bench, name)()


if __name__ == "__main__":
    main()
