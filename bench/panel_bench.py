"""The trailer browser with 100,000 trailers beside a plain table of Qt Widgets with the same rows of the same file, read by
Qt's own reader of XML. usage: panel_bench.py PANEL_BENCH

Each round starts both anew, one after the other, with the file in memory. What is measured is what a person waits for: until
the window is seen with its rows, until the rows are seen in another order, until the last row that a search can come to is
seen, and until the window is closed, which saves the list.
"""

import os
import statistics
import subprocess
import sys
import tempfile

import desk

ROUNDS = 5
MOST = 1000  # milliseconds


def times(program, what, home, screen):
    """What was done, and the milliseconds it took."""
    done = subprocess.run([program, what, home], env=screen.environment(HOME=home), stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True, check=True)
    return {line.split()[0]: float(line.split()[1]) for line in done.stdout.splitlines()}


def medians(rounds):
    return {name: statistics.median(one[name] for one in rounds) for name in rounds[0]}


def main():
    program = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as home:
        screen = desk.Screen(1280, 800)
        times(program, "make", home, screen)
        own, peer = [], []
        for _ in range(ROUNDS):
            peer.append(times(program, "table", home, screen))
            own.append(times(program, "panel", home, screen))
        screen.close()
    own, peer = medians(own), medians(peer)
    missed = False
    for name, milliseconds in own.items():
        beside = f", plain table {peer[name]:.0f} ms, {milliseconds / peer[name]:.2f} times" if name in peer else ""
        missed = missed or milliseconds > MOST
        print(f"  {name}: {milliseconds:.0f} ms (at most {MOST}) {'MISSED' if milliseconds > MOST else 'ok'}{beside}")
    sys.exit(missed)


if __name__ == "__main__":
    main()
