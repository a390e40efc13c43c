"""Measures the window with the settings: its start beside a plain window of Qt Widgets, how fast the sheet opens, and what
restarts of the preview leave behind.

usage: settings_bench.py KESTRO PLAIN_WINDOW [RESTARTS]
"""

import contextlib
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from movie_bench import bar, make_home, make_movie

ROUNDS = 11
QUIET = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
LONGEST = 20  # seconds that anything may take
WARM = 200  # restarts until what is kept from one to the next is there
STRAY_PLACES = 3  # of some 400 on the screen, that may look otherwise
LOOKS = 40  # at what a process holds
WIDTH, HEIGHT = 1280, 800
CORNER = (4, 4)  # in the margin of a window, which without a window manager stands in the corner of the screen
PICTURE = (291, 150)  # well inside the preview


def wait_for(condition, what):
    begun = time.monotonic()
    while not condition():
        if time.monotonic() - begun > LONGEST:
            raise SystemExit(f"{what} did not come")


def first_pictures(command, home, *places):
    """Milliseconds from the start of the program until the screen is no longer black at each of these places."""
    # Each time as the first time: no window comes back to a place of its own.
    shutil.rmtree(os.path.join(home, ".config"), ignore_errors=True)
    screen = desk.Screen(WIDTH, HEIGHT)
    begun = time.monotonic()
    process = subprocess.Popen(command, env=screen.environment(KESTRO_HOME=home, HOME=home), **QUIET)
    times = []
    for place in places:
        wait_for(lambda at=place: screen.pixel(*at) != 0, f"the picture of {command[0]}")
        times.append((time.monotonic() - begun) * 1000)
    desk.end(process)
    screen.close()
    return times


def report(name, values):
    print(f"  {name}: median {statistics.median(values):.0f} ms, {min(values):.0f} to {max(values):.0f}")


def start(kestro, plain, home):
    own, peer = [], []
    for _ in range(ROUNDS):
        peer += first_pictures([plain], home, CORNER)
        own.append(first_pictures([kestro, "settings"], home, CORNER, PICTURE))
    windows = [times[0] for times in own]
    report("a plain window with an empty table", peer)
    report("kestro settings, its window", windows)
    report("kestro settings, the movie in the preview", [times[1] for times in own])
    bar("the window beside a plain one, times", statistics.median(windows) / statistics.median(peer), 1.3)


class Person:
    """Keys pressed without the start of a program for each."""

    def __init__(self, screen):
        self.process = subprocess.Popen(["xdotool", "-"], env=screen.environment(), text=True, bufsize=1,
                                        stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)

    def press(self, key):
        self.process.stdin.write(f"key --delay 0 {key}\n")
        self.process.stdin.flush()

    def close(self):
        self.process.stdin.close()
        self.process.wait()


class Window:
    """The settings on a screen with a window manager."""

    def __init__(self, kestro, home):
        self.screen = desk.Screen(WIDTH, HEIGHT)
        self.manager = subprocess.Popen(["openbox"], env=self.screen.environment(), **QUIET)
        time.sleep(1)
        self.process = subprocess.Popen([kestro, "settings"], env=self.screen.environment(KESTRO_HOME=home, HOME=home), **QUIET)
        wait_for(self.is_there, "the window")
        time.sleep(3)
        self.person = Person(self.screen)

    def run(self, *words):
        return subprocess.run(["xdotool", *words], env=self.screen.environment(), capture_output=True, text=True).stdout

    def is_there(self):
        return bool(self.run("search", "--onlyvisible", "--name", "Kestro Settings"))

    def samples(self):
        """The colours at the screen's places outside the window, which the sheet covers in part."""
        return [self.screen.pixel(x, y) for y in range(60, HEIGHT, 40) for x in range(60, WIDTH, 40)
                if not self.covers(x, y)]

    def covers(self, x, y):
        left, top, width, height = self.place
        return left - 10 <= x < left + width + 10 and top - 40 <= y < top + height + 10

    def find(self):
        self.window = self.run("search", "--onlyvisible", "--name", "Kestro Settings").split()[0]
        shown = dict(line.split("=") for line in self.run("getwindowgeometry", "--shell", self.window).split())
        self.place = tuple(int(shown[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def has_focus(self):
        return self.run("getwindowfocus").strip() == self.window

    def use(self):
        """What the process holds between two movies: (MiB, descriptors, threads), the least of some seconds each, for a
        movie that is just being put away is there twice."""
        folder = f"/proc/{self.process.pid}"
        looks = []
        for _ in range(LOOKS):
            time.sleep(0.1)
            looks.append((desk.megabytes(self.process.pid), len(os.listdir(f"{folder}/fd")), len(os.listdir(f"{folder}/task"))))
        return tuple(map(min, zip(*looks)))

    def looks_like(self, picture):
        """Whether the samples are those, but for a caret or the like."""
        return sum(shown != known for shown, known in zip(self.samples(), picture)) <= STRAY_PLACES

    def learn(self):
        """What the screen looks like without the sheet and with it."""
        self.find()
        self.closed = self.samples()
        # The first time the window manager may yet put it elsewhere, and the rows learn of their movies.
        for _ in range(2):
            wait_for(self.has_focus, "the focus of the window")
            self.click_options()
            wait_for(lambda: not self.looks_like(self.closed), "the sheet")
            time.sleep(2)
            self.opened = self.samples()
            self.press_ok()

    def click_options(self):
        """The space bar on the button, which has the focus, clicks it as the mouse would; Alt+O holds it down first."""
        self.person.press("space")

    def press_ok(self):
        wait_for(lambda: not self.has_focus(), "the focus of the sheet")
        self.person.press("Return")
        wait_for(lambda: self.looks_like(self.closed), "the end of the sheet")

    def sheet_opens(self):
        """Milliseconds from the click to the whole picture of the sheet, which is then closed with OK."""
        wait_for(self.has_focus, "the focus of the window")
        begun = time.monotonic()
        self.click_options()
        wait_for(lambda: self.looks_like(self.opened), "the sheet")
        milliseconds = (time.monotonic() - begun) * 1000
        self.press_ok()
        return milliseconds

    def close(self):
        self.person.close()
        desk.end(self.process)
        desk.end(self.manager)
        self.screen.close()


def restarts(kestro, home, count):
    with contextlib.closing(Window(kestro, home)) as window:
        window.learn()
        opened = [window.sheet_opens() for _ in range(WARM)]
        before = window.use()
        begun = time.monotonic()
        opened += [window.sheet_opens() for _ in range(count)]
        minutes = (time.monotonic() - begun) / 60
        after = window.use()
    report(f"the sheet opens ({len(opened) - 1} times, the first {opened[0]:.0f} ms)", opened[1:])
    bar("the sheet opens, ms", statistics.median(opened[1:]), 150)
    print(f"  {count} restarts of the preview in {minutes:.0f} minutes: {before[0]:.0f} MB, {before[1]} descriptors, {before[2]} "
          f"threads before; {after[0]:.0f} MB, {after[1]}, {after[2]} after")
    bar("memory after the restarts, times", after[0] / before[0], 1.05)
    bar("descriptors more after the restarts", after[1] - before[1], 2)


def main():
    kestro, plain = map(os.path.abspath, sys.argv[1:3])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 300
    with tempfile.TemporaryDirectory() as folder:
        home = make_home(folder, "settings", ["file://" + make_movie(folder)])
        start(kestro, plain, home)
        restarts(kestro, home, count)


if __name__ == "__main__":
    main()
