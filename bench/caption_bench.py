"""Measures what the caption costs: a movie with title and clock over it, beside the same movie without, in turn.

usage: caption_bench.py KESTRO
"""

import os
import statistics
import subprocess
import sys
import tempfile

import desk
from movie_bench import QUIET, bar, make_home

ROUNDS = 9
SETTLING, SECONDS = 3, 20
CAPTION = "[caption]\ntitle=yes\nclock=yes\n"


def has_letters(screen):
    """Whether anything on the screen is white."""
    return any(b"\xff\xff\xff" in screen.row(y) for y in range(screen.height))


def cost(kestro, home, is_captioned):
    """Cost of Kestro and of its screen's server, the one and the other."""
    screen = desk.Screen()
    more = {"KESTRO_HOME": home, "KESTRO_RENDERER": "software"}
    process = subprocess.Popen([kestro], env=screen.environment(**more), **QUIET)
    own, server = desk.cost([process.pid, screen.process.pid], SETTLING, SECONDS)
    if screen.pixel(960, 300) == 0 or has_letters(screen) != is_captioned:
        sys.exit("caption_bench.py: the screen does not show what it should")
    desk.end(process)
    screen.close()
    return own, server


def make_plain_movie(folder):
    """1080p30 of one colour: next to nothing to decode, which would go up and down by more than a caption costs."""
    path = os.path.join(folder, "plain.mp4")
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=0x305080:size=1920x1080:rate=30:duration=20",
                    "-c:v", "libx264", "-preset", "fast", "-pix_fmt", "yuv420p", "-g", "60", path], check=True)
    return path


def with_caption(home):
    folder = os.path.join(home, ".config/kestro")
    os.makedirs(folder)
    with open(os.path.join(folder, "kestro.conf"), "w") as file:
        file.write(CAPTION)
    return home


def main():
    kestro = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        url = "file://" + make_plain_movie(folder)
        plain = make_home(folder, "plain", [url])
        captioned = with_caption(make_home(folder, "captioned", [url]))
        print("caption")
        rounds = [(cost(kestro, captioned, True), cost(kestro, plain, False)) for _ in range(ROUNDS)]
        for title, place in (("with", 0), ("without", 1)):
            own, server = (statistics.median(column) for column in zip(*(each[place] for each in rounds)))
            each = " ".join(f"{pair[place][0]:.3f}" for pair in rounds)
            print(f"  {title:8} {own:.4f} CPU s/s, X server {server:.4f}; each {each}")
        more = statistics.median(sum(captions) - sum(none) for captions, none in rounds)
        bar("caption and clock over 1080p30, more than without, CPU s/s", more, 0.002)


if __name__ == "__main__":
    main()
