"""Measures movies that are larger or smaller than the screen, or brighter: cost beside mpv's, and how true the picture is.

usage: scaling_bench.py KESTRO [BENCH...]     benches: scaling truth hdr
"""

import math
import os
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from movie_bench import MPV, QUIET, bar, make_home

ROUNDS = 5
LOWER = 2  # Kestro's movies stand so many rows lower
X264 = ["-c:v", "libx264", "-preset", "fast", "-g", "60", "-pix_fmt", "yuv420p"]
PQ = ["-color_primaries", "bt2020", "-color_trc", "smpte2084", "-colorspace", "bt2020nc"]
TO_PQ = "format=gbrp,zscale=tin=bt709:t=linear:npl=203,format=gbrpf32le," \
        "zscale=pin=bt709:p=bt2020:t=smpte2084:npl=203:m=bt2020nc:r=limited,format=yuv420p10le"
# Rings that are a pixel wide where they are narrowest: whatever a scaler does wrong shows in them.
ZONE_PLATE = "geq=lum='125+109*cos(PI*((X-W/2)*(X-W/2)+(Y-H/2)*(Y-H/2))/W*0.8)':cb=128:cr=128"


def make(folder, name, source, *options):
    path = os.path.join(folder, name)
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i", source, *options, path], check=True)
    return path


class Bench:
    def __init__(self, kestro, folder):
        self.kestro, self.folder = kestro, folder

    def moving(self, size, rate=30):
        return make(self.folder, f"moving{size}.mp4", f"testsrc2=size={size}:rate={rate}:duration=10", *X264)

    def players(self, movie):
        home = make_home(self.folder, "home-" + os.path.basename(movie), ["file://" + movie])
        ours = {"KESTRO_HOME": home, "KESTRO_RENDERER": "software"}
        return {"kestro": ([self.kestro], ours),
                "mpv --vo=null": (MPV + ["--vo=null", movie], {}),
                "mpv --vo=x11": (MPV + ["--vo=x11", "--fs", "--keepaspect=no", movie], {})}

    def costs(self, movie):
        """The median cost of each player, all in turn."""
        players = self.players(movie)
        rows = {name: [] for name in players}
        for _ in range(ROUNDS):
            for name, (command, more) in players.items():
                screen = desk.Screen()
                process = subprocess.Popen(command, env=screen.environment(**more), **QUIET)
                rows[name] += desk.cost([process.pid], 2, 6)
                desk.end(process)
                screen.close()
        for name, row in rows.items():
            print(f"  {name:14} {statistics.median(row):.3f} CPU s/s; each " + " ".join(f"{cost:.3f}" for cost in row))
        return {name: statistics.median(row) for name, row in rows.items()}

    def scaling(self):
        """2160p30 and 480p30 full screen at 1920x1080."""
        large = self.costs(self.moving("3840x2160"))
        bar("2160p30 against mpv --vo=null", large["kestro"] / large["mpv --vo=null"], 1.2)
        bar("2160p30 against mpv --vo=x11", large["kestro"] / large["mpv --vo=x11"], 0.65)
        small = self.costs(self.moving("854x480"))
        bar("480p30 against mpv --vo=x11", small["kestro"] / small["mpv --vo=x11"], 0.65)

    def hdr(self):
        """1080p24 in PQ, in HEVC, full screen at 1920x1080."""
        movie = make(self.folder, "pq.mp4", "testsrc2=size=1920x1080:rate=24:duration=8", "-vf", TO_PQ, "-c:v", "libx265",
                     "-preset", "superfast", "-x265-params", "log-level=none:keyint=48", *PQ)
        costs = self.costs(movie)
        bar("CPU s/s more than mpv --vo=null", costs["kestro"] - costs["mpv --vo=null"], 0.5)

    def truth(self):
        """A zone plate scaled to 1920x1080, against Lanczos in floating point."""
        for size in ("3840x2160", "854x480"):
            movie = make(self.folder, f"plate{size}.mp4", f"color=gray:s={size}:r=5:d=4,format=yuv420p,{ZONE_PLATE}",
                         "-c:v", "libx264", "-preset", "ultrafast", "-qp", "1", "-aspect", "16:9")
            lanczos = "scale=1920:1080:flags=lanczos+accurate_rnd+full_chroma_int,format=bgr0"
            true = subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-i", movie, "-frames:v", "1", "-vf", lanczos,
                                   "-f", "rawvideo", "-"], check=True, capture_output=True).stdout
            found = {}
            for name, (command, more) in self.players(movie).items():
                if name != "mpv --vo=null":
                    found[name] = likeness(true, picture(command, more), LOWER if more else 0)
            print(f"  {size}: " + ", ".join(f"{name} {value:.1f} dB" for name, value in found.items()))
            bar("mpv's likeness above Kestro's, dB", found["mpv --vo=x11"] - found["kestro"], 0)


def picture(command, more):
    """What the player shows after a while, blue first."""
    screen = desk.Screen()
    process = subprocess.Popen(command, env=screen.environment(**more), **QUIET)
    time.sleep(3)
    rows = [screen.row(y) for y in range(screen.height)]
    desk.end(process)
    screen.close()
    return b"".join(rows)


def likeness(true, seen, lower):
    """PSNR of the blue of grey pictures, the second some rows lower."""
    row = len(true) // 1080
    pairs = list(zip(true[:len(true) - lower * row:4], seen[lower * row::4]))
    squares = sum((one - other) ** 2 for one, other in pairs)
    return 10 * math.log10(255 * 255 * len(pairs) / max(squares, 1))


def main():
    kestro, names = os.path.abspath(sys.argv[1]), sys.argv[2:] or ["scaling", "truth", "hdr"]
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(kestro, folder)
        for name in names:
            method = getattr(bench, name)
            print(f"{name}: {method.__doc__}")
            method()


if __name__ == "__main__":
    main()
