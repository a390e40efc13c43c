"""Kills a process that saves again and again, at random moments, for each kind of save, and looks whether every file is whole.

usage: SAVE_PROBE=build/dev/tests/save_probe SITE_PROBE=build/dev/tests/site_probe bench/kill_bench.py [KILLS]
"""

import pathlib
import random
import signal
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests/programs"))

from saves import KINDS  # noqa: E402


def duration(save):
    """Seconds that a save takes from the start of its process, the median of nine."""
    taken = []
    for number in range(1, 10):
        before = time.monotonic()
        save.save(number).check_returncode()
        taken.append(time.monotonic() - before)
    return statistics.median(taken)


def kill(save, number, moment):
    """Lets it save again and again and kills it in the middle."""
    process = subprocess.Popen(save.command(number) + ["1000000"])
    try:
        process.wait(moment)
    except subprocess.TimeoutExpired:
        process.kill()
    if process.wait() != -signal.SIGKILL:
        sys.exit(f"{save.name}: ended by itself")


def measure(kind, kills, chance):
    save = kind()
    save.start()
    usual = duration(save)
    newer = broken = 0
    before = save.state()
    for number in range(kills):
        kill(save, before + 1, chance.uniform(0.5 * usual, 2.5 * usual))
        try:
            now = save.state()
        except Exception as error:  # whatever a file that is not whole makes its reader say
            broken += 1
            print(f"{save.name}, kill {number}: {error!r}")
            save.start()
            now = 0
        newer += now != before
        before = now
    left = len(save.leftovers())
    save.close()
    print(f"{save.name}: {kills} kills, {broken} files not whole, {newer} times a newer one, {left} files left behind", flush=True)
    return broken


if __name__ == "__main__":
    seed = 20261122
    random_moments = random.Random(seed)
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1000
    sys.exit(1 if sum([measure(kind, count, random_moments) for kind in KINDS]) else 0)
