"""Kills each kind of save at random moments and looks whether every file is whole: what it was before, or what it was to be.

usage: SAVE_PROBE=build/dev/tests/save_probe bench/kill_bench.py [KILLS]
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
    """Whether the process was killed before it came to its end."""
    process = subprocess.Popen(save.command(number))
    try:
        process.wait(moment)
    except subprocess.TimeoutExpired:
        process.kill()
    return process.wait() == -signal.SIGKILL


def measure(kind, kills, chance):
    save = kind()
    save.start()
    usual = duration(save)
    killed = new = broken = number = 0
    before = save.state()
    while killed < kills:
        number += 1
        # Parity is all that some kinds keep of a number.
        target = before + 1
        if not kill(save, target, chance.uniform(0, 1.2 * usual)):
            before = save.state()
            continue
        killed += 1
        try:
            now = save.state()
        except Exception as error:  # whatever a file that is not whole makes its reader say
            broken += 1
            print(f"{save.name}, kill {killed}: {error!r}")
            save.start()
            now = 0
        else:
            if now not in (before, target) and now != target % 2:
                broken += 1
                print(f"{save.name}, kill {killed}: {now}, neither {before} nor {target}")
        new += now != before
        before = now
    left = len(save.leftovers())
    save.close()
    print(f"{save.name}: {kills} kills, {broken} files not whole, {new} times the new one, {left} files left behind", flush=True)
    return broken


if __name__ == "__main__":
    seed = 20261122
    random_moments = random.Random(seed)
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1000
    sys.exit(1 if sum([measure(kind, count, random_moments) for kind in KINDS]) else 0)
