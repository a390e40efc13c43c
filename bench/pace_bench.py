"""Counts what a screen of 60 Hz would show too long or not at all of movies of 24 to 60 frames a second, beside mpv.

usage: pace_bench.py KESTRO [RATE...]
"""

import math
import os
import subprocess
import sys
import tempfile
import time

import desk
from movie_bench import MPV, QUIET, bar, make_home

HERTZ = 60
PHASES = 4  # the screen's, of which the best one counts: nobody knows how a player's clock stands to it
SETTLE, SPAN = 3, 12  # seconds
BITS = 12
# Sixteen columns, of which the first twelve say the frame's number in black and white.
NUMBERED = f"geq=lum='16+219*mod(floor(N/pow(2,X)),2)*lt(X,{BITS})':cb=128:cr=128,scale=1920:1080:flags=neighbor"


def make_movie(folder, rate):
    path = os.path.join(folder, f"numbered{rate}.mp4")
    source = f"color=black:s=16x9:r={rate}:d={SETTLE + SPAN + 10},format=yuv420p,{NUMBERED}"
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", source, "-c:v", "libx264", "-preset", "fast",
                    "-g", str(rate), "-pix_fmt", "yuv420p", path], check=True)
    return path


def shown_number(screen):
    """The number of the frame on the screen."""
    row = screen.row(screen.height // 2)
    return sum((row[4 * (120 * bit + 60)] > 127) << bit for bit in range(BITS))


def sample(screen):
    """The number at each phase of each of the screen's moments."""
    begun, found = time.monotonic(), []
    for moment in range(HERTZ * PHASES * SPAN):
        time.sleep(max(0, begun + moment / (HERTZ * PHASES) - time.monotonic()))
        found.append(shown_number(screen))
    return [found[phase::PHASES] for phase in range(PHASES)]


def faults(numbers, rate):
    """(frames shown too long, frames never shown) of what was seen at one phase; the first and the last may be cut."""
    counts = {number: numbers.count(number) for number in range(min(numbers) + 1, max(numbers))}
    return (sum(count > math.ceil(HERTZ / rate) for count in counts.values()), sum(count == 0 for count in counts.values()))


def run(command, rate, **more):
    screen = desk.Screen()
    process = subprocess.Popen(command, env=screen.environment(**more), **QUIET)
    time.sleep(SETTLE)
    seen = [faults(numbers, rate) for numbers in sample(screen)]
    desk.end(process)
    screen.close()
    return min(seen, key=sum)


def main():
    kestro, rates = os.path.abspath(sys.argv[1]), [int(rate) for rate in sys.argv[2:]] or [24, 25, 30, 50, 60]
    with tempfile.TemporaryDirectory() as folder:
        for rate in rates:
            movie = make_movie(folder, rate)
            home = make_home(folder, f"home{rate}", ["file://" + movie])
            ours = run([kestro], rate, KESTRO_HOME=home, KESTRO_RENDERER="software")
            theirs = run(MPV + ["--vo=x11", "--fs", "--keepaspect=no", movie], rate)
            print(f"  {rate} a second: Kestro {ours[0]} too long, {ours[1]} never; mpv {theirs[0]} and {theirs[1]}; "
                  f"of {rate * SPAN}")
            bar("more than mpv", sum(ours) - sum(theirs), 0)


if __name__ == "__main__":
    main()
