"""Measures web content: what it costs, what it costs those who never show any, and whether memory stays bounded.

usage: web_bench.py KESTRO WEB_HOST KESTRO_WITHOUT [BENCH...]
       KESTRO_WITHOUT is built with -DKESTRO_WEB=OFF; benches: never swf still ends switches
"""

import os
import pathlib
import signal
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from movie_bench import QUIET, bar, make_home, make_movie

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "programs"))
import swf  # noqa: E402  (the tests' maker of Flash movies)

ROUNDS = 11
ENDS = 20
LONGEST_END = 200  # milliseconds
SWITCHES = 200
if os.geteuid() == 0:
    os.environ["QTWEBENGINE_DISABLE_SANDBOX"] = "1"


def tree(pid):
    """A process and all below it."""
    below = {}
    for folder in pathlib.Path("/proc").iterdir():
        if folder.name.isdigit():
            try:
                parent = int(folder.joinpath("stat").read_text().rsplit(")", 1)[1].split()[1])
            except OSError:
                continue
            below.setdefault(parent, []).append(int(folder.name))
    found = [pid]
    for each in found:
        found += below.get(each, [])
    return found


def is_alive(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()[0] not in "ZX"
    except OSError:
        return False


def tree_cost(pid, settle, span):
    """Processor seconds a second of the whole tree."""
    time.sleep(settle)
    return sum(desk.cost(tree(pid), 0, span))


def private_megabytes(pids):
    """Memory that the processes hold, shared memory counted once."""
    total = 0
    for pid in pids:
        try:
            lines = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
        except OSError:
            continue
        total += sum(int(line.split()[1]) for line in lines if line.startswith("Pss:"))
    return total / 1024


def helpers_among(pids, parent):
    """The web helpers that the parent has started itself."""
    found = set()
    for pid in pids:
        try:
            program = pathlib.Path(f"/proc/{pid}/cmdline").read_bytes().split(b"\0")[0]
            its_parent = int(pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()[1])
        except OSError:
            continue
        if its_parent == parent and program.endswith(b"kestro-web"):
            found.add(pid)
    return found


class Bench:
    def __init__(self, kestro, host, without, folder):
        self.kestro, self.host, self.without = map(os.path.abspath, (kestro, host, without))
        self.folder = folder
        self.movie = make_movie(folder)
        self.flash = self.write("bench.swf", swf.avm1(swf.move_clip("box", 2), size=(640, 480), rate=24, side=200))
        self.hung = self.write("hung.swf", swf.avm1(swf.endless_loop()))
        self.page = self.write("still.html", b"<body style='background:#246'><h1>Still</h1></body>")
        self.movie_home = make_home(folder, "movie", ["file://" + self.movie])
        self.flash_home = make_home(folder, "flash", [self.flash.as_uri()])
        self.hung_home = make_home(folder, "hung", [self.hung.as_uri()])

    def write(self, name, content):
        path = pathlib.Path(self.folder, name)
        path.write_bytes(content)
        return path

    def first_picture(self, program):
        """Milliseconds to the first picture, and the memory then."""
        screen = desk.Screen(640, 480)
        begun = time.monotonic()
        process = subprocess.Popen([program], env=screen.environment(KESTRO_HOME=self.movie_home, KESTRO_RENDERER="software"),
                                   **QUIET)
        while screen.pixel(320, 240) == 0 and time.monotonic() - begun < 10:
            pass
        passed = (time.monotonic() - begun) * 1000
        time.sleep(1)
        memory = private_megabytes([process.pid])
        desk.end(process)
        screen.close()
        return passed, memory

    def code_of(self, program):
        """What a build installs of the saver, without what only debuggers and packagers read: path to bytes."""
        top = pathlib.Path(program).parent.parent
        stripped = pathlib.Path(self.folder, "stripped")
        code = {}
        for path in [pathlib.Path(program), *sorted((top / "lib" / "kestro").rglob("*.so"))]:
            subprocess.run(["strip", "--remove-section=.note.gnu.build-id", "-o", stripped, path], check=True)
            code[path.relative_to(top)] = stripped.read_bytes()
        return code

    def never(self):
        """Movies alone, built with and without web content, in turn, each first every other time."""
        own, other = self.code_of(self.kestro), self.code_of(self.without)
        different = [path for path in own.keys() | other.keys() if own.get(path) != other.get(path)]
        bar(f"of {len(own)} programs and libraries, different without web content", len(different), 0)
        rounds = []
        for turn in range(2 * ROUNDS):
            order = (self.kestro, self.without) if turn % 2 == 0 else (self.without, self.kestro)
            taken = {program: self.first_picture(program) for program in order}
            rounds.append((taken[self.kestro], taken[self.without]))
        # The least: whatever else the machine does only adds to it.
        slower = min(own[0] for own, _ in rounds) - min(other[0] for _, other in rounds)
        larger = statistics.median(own[1] - other[1] for own, other in rounds)
        print(f"  start {min(own[0] for own, _ in rounds):.0f} ms, {slower:+.1f} ms; memory {larger:+.2f} MB")
        bar("slower to start than without web content, ms", slower, 2)
        bar("larger than without web content, MB", larger, 1)

    def swf(self):
        """A Flash movie of 640x480 at 24 frames a second, full screen at that size, all processes."""
        screen = desk.Screen(640, 480)
        process = subprocess.Popen([self.kestro], env=screen.environment(KESTRO_HOME=self.flash_home,
                                                                         KESTRO_RENDERER="software"), **QUIET)
        own = tree_cost(process.pid, 8, 10)
        print(f"  {own:.3f} CPU s/s in {len(tree(process.pid))} processes, {private_megabytes(tree(process.pid)):.0f} MB")
        desk.end(process)
        screen.close()
        bar("SWF 640x480 at 24 frames, CPU s/s", own, 0.25)

    def still(self):
        """A page on which nothing moves, all processes."""
        process = subprocess.Popen([self.host, self.page.as_uri()], env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, **QUIET)
        own = tree_cost(process.pid, 8, 20)
        desk.end(process)
        bar("still page, CPU s/s", own, 0.01)

    def end(self, screen, home, is_ready, settle):
        """Milliseconds from the TERM to the end of the process, and what is left some time later: processes, folders."""
        with tempfile.TemporaryDirectory() as runtime:
            environment = screen.environment(KESTRO_HOME=home, KESTRO_RENDERER="software", XDG_RUNTIME_DIR=runtime)
            process = subprocess.Popen([self.kestro], env=environment, **QUIET)
            while not is_ready(tree(process.pid)):
                time.sleep(0.005)
            time.sleep(settle)
            members = tree(process.pid)[1:]
            begun = time.monotonic()
            process.send_signal(signal.SIGTERM)
            process.wait()
            passed = (time.monotonic() - begun) * 1000
            time.sleep(2)
            left = [pid for pid in members if is_alive(pid)]
            return passed, len(left) + len(list(pathlib.Path(runtime).glob("kestro/web-*")))

    def ends(self):
        """A TERM while the helper starts, while a Flash movie plays, and while one hangs."""
        screen = desk.Screen(640, 480)
        cases = {
            "starts": (self.flash_home, lambda members: len(members) > 1, 0),
            "plays": (self.flash_home, lambda members: len(members) > 4 and screen.pixel(320, 100) != 0, 1),
            "hangs": (self.hung_home, lambda members: len(members) > 4, 3),
        }
        for name, (home, is_ready, settle) in cases.items():
            ends = [self.end(screen, home, is_ready, settle) for _ in range(ENDS)]
            passed = [each for each, _ in ends]
            print(f"  while it {name}: median {statistics.median(passed):.0f} ms, longest {max(passed):.0f} ms")
            bar(f"TERM while it {name}, longest, ms", max(passed), LONGEST_END)
            bar("left two seconds later, processes and folders", sum(left for _, left in ends), 0)
        screen.close()

    def switches(self):
        """A Flash movie and a movie in turn."""
        process = subprocess.Popen([self.host, self.flash.as_uri(), self.movie, str(SWITCHES)], text=True,
                                   env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, stdout=subprocess.PIPE)
        memory, helpers = {}, set()
        for line in process.stdout:
            turn = int(line.split()[1])
            if turn % 20 == 19 or turn == SWITCHES - 1:
                members = tree(process.pid)
                memory[turn] = private_megabytes(members)
                helpers |= helpers_among(members, process.pid)
        process.wait()
        print("  MB after turns:", {turn: round(value) for turn, value in memory.items()})
        bar("helpers in all", len(helpers), 1)
        turns = sorted(memory)
        bar("memory gained from turn 39 to the last, MB", memory[turns[-1]] - memory[turns[1]], 40)


def main():
    benches = sys.argv[4:] or ["never", "swf", "still", "ends", "switches"]
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(*sys.argv[1:4], folder)
        for name in benches:
            print(f"{name}: {getattr(bench, name).__doc__}")
            getattr(bench, name)()


if __name__ == "__main__":
    main()
