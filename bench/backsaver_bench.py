"""Measures what it costs to show another program's saver, beside that saver run alone, and what is left of it.

usage: backsaver_bench.py SAVER_HOST [BENCH...]     benches: hack still left

SAVER_HOST runs the saver bundle that it is given, full screen.
"""

import os
import plistlib
import signal
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from movie_bench import QUIET, bar

ROUNDS = 5
HACKS = "/usr/libexec/xscreensaver/"
MOVING = ("fuzzyflakes", "galaxy", "deco")


def make_bundle(folder, name, program, *arguments):
    path = os.path.join(folder, name + ".saver")
    os.makedirs(os.path.join(path, "Contents"), exist_ok=True)
    with open(os.path.join(path, "Contents/Info.plist"), "wb") as file:
        plistlib.dump({"NSPrincipalClass": "HackHost", "KestroProgram": program,
                       "KestroArguments": list(arguments)}, file)
    return path


def children(pid):
    """Every process that a process started, and that those started."""
    parents = {}
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{name}/stat") as file:
                state, parent = file.read().rpartition(")")[2].split()[:2]
        except OSError:
            continue
        if state != "Z":
            parents[int(name)] = int(parent)
    found = {pid}
    while more := {child for child, parent in parents.items() if parent in found} - found:
        found |= more
    return found - {pid}


def hosted(host, bundle):
    """Cost of the host, of its screen's server and of the hack below it."""
    screen = desk.Screen()
    process = subprocess.Popen([host, bundle], env=screen.environment(KESTRO_RENDERER="software"), **QUIET)
    time.sleep(2)
    below = sorted(children(process.pid))
    own, server, *rest = desk.cost([process.pid, screen.process.pid, *below], 1, 8)
    desk.end(process)
    screen.close()
    return own, server, sum(rest)


def alone(program):
    """Cost of the hack in a window of its own over the whole screen, and of the server."""
    screen = desk.Screen()
    process = subprocess.Popen([program, "--geometry", "1920x1080+0+0"], env=screen.environment(), **QUIET)
    own, server = desk.cost([process.pid, screen.process.pid], 3, 8)
    desk.end(process)
    screen.close()
    return own, server


def bench_hack(host, folder):
    for name in MOVING:
        bundle = make_bundle(folder, name, HACKS + name)
        rounds = [(hosted(host, bundle), alone(HACKS + name)) for _ in range(ROUNDS)]
        own, server, hack = (statistics.median(with_host[i] for with_host, _ in rounds) for i in range(3))
        lone, lone_server = (statistics.median(without[i] for _, without in rounds) for i in range(2))
        print(f"  {name}: host {own:.3f}, server {server:.3f}, hack {hack:.3f}; alone {lone:.3f}, server {lone_server:.3f}")
        more = statistics.median(sum(a) - sum(b) for a, b in rounds)
        bar(f"{name} hosted, above it alone, CPU s/s", more, 0.15)


def bench_still(host, folder):
    script = os.path.join(folder, "still.sh")
    with open(script, "w") as file:
        file.write("#!/bin/sh\nexec sleep 1000\n")
    os.chmod(script, 0o755)
    costs = [hosted(host, make_bundle(folder, "still", script))[0] for _ in range(ROUNDS)]
    bar("a background that does not change, CPU s/s", statistics.median(costs), 0.01)


def bench_left(host, folder):
    """Fifty runs ended by a TERM or a KILL; a second later nothing may be left."""
    screen = desk.Screen()
    left = 0
    for number in range(50):
        process = subprocess.Popen([host, make_bundle(folder, "left", HACKS + MOVING[number % 3])],
                                   env=screen.environment(), **QUIET)
        while len(children(process.pid)) < 2:
            time.sleep(0.02)
        below = children(process.pid)
        process.send_signal(signal.SIGKILL if number % 2 else signal.SIGTERM)
        process.wait()
        time.sleep(1)
        left += sum(os.path.exists(f"/proc/{pid}") and not is_over(pid) for pid in below)
    screen.close()
    bar("processes left a second after 50 ends", left, 0)


def is_over(pid):
    """Whether a process only waits to be taken leave of."""
    try:
        with open(f"/proc/{pid}/stat") as file:
            return file.read().rpartition(")")[2].split()[0] == "Z"
    except OSError:
        return True


def main():
    benches = {"hack": bench_hack, "still": bench_still, "left": bench_left}
    with tempfile.TemporaryDirectory() as folder:
        for name in sys.argv[2:] or benches:
            print(name)
            benches[name](os.path.abspath(sys.argv[1]), folder)


if __name__ == "__main__":
    main()
