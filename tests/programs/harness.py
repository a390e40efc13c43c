"""What the tests of the program share: a home of their own, runs of kestro with a bound, movies, pictures, traces."""

import contextlib
import functools
import hashlib
import json
import os
import pathlib
import plistlib
import re
import selectors
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

from PIL import Image

KESTRO = os.environ["KESTRO"]
BOUND = 180  # seconds that anything here may take before it counts as hung
SHORTEST_PAUSE, LONGEST_PAUSE = 0.01, 0.08  # seconds between two looks

RED, GREEN, BLUE, BLACK = (255, 0, 0), (0, 128, 0), (0, 0, 255), (0, 0, 0)
IS_HALF = bytes(value >= 128 for value in range(256))  # tells bright bytes from dark ones
COLOURS = {"red": RED, "green": GREEN, "blue": BLUE}

_ends = selectors.DefaultSelector()  # of the processes that were started


def wait_until(condition, what, bound=BOUND):
    """Turns the event loop until `condition` is true, and answers what it answers; fails when that takes longer than the
    bound. The longer it takes, the less often it looks: a look may cost as much as what it waits for."""
    deadline = time.monotonic() + bound
    pause = SHORTEST_PAUSE
    while not (answer := condition()):
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {bound} s in vain for {what}")
        turn_event_loop(pause)
        pause = min(1.2 * pause, LONGEST_PAUSE)
    return answer


def turn_event_loop(longest):
    """Until a process has ended, or nothing is heard for so long."""
    for ended, _ in _ends.select(longest):
        _ends.unregister(ended.fileobj)
        os.close(ended.fd)


def hear_end_of(process):
    _ends.register(os.pidfd_open(process.pid), selectors.EVENT_READ)


@functools.cache
def movie_folder():
    """One folder for the movies of all tests of a run; it goes when the run ends."""
    holder = tempfile.TemporaryDirectory(prefix="kestro-movies-")
    movie_folder.holder = holder
    return pathlib.Path(holder.name)


@functools.cache
def movie(name, colour="red", seconds=2, size="160x120", rate=10, is_blinking=False):
    """A movie of one colour, every other second black if it blinks; `name` tells movies of the same looks apart."""
    source = f"color=c={colour}:s={size}:r={rate}:d={seconds}"
    if is_blinking:
        source += ",drawbox=color=black:t=fill:enable='lt(mod(t,2),1)'"
    path = movie_folder() / f"{name}.mp4"
    shutil.copyfile(drawn_movie(source), path)
    return path


def drawn_movie(source):
    """A movie of what ffmpeg's filters draw, made once for all programs of tests that share a folder of movies."""
    shared = pathlib.Path(os.environ.get("SHARED_MOVIES", movie_folder() / "drawn"))
    drawn = shared / f"{hashlib.sha256(source.encode()).hexdigest()}.mp4"
    if not drawn.exists():
        shared.mkdir(exist_ok=True)
        with tempfile.TemporaryDirectory(dir=shared) as holder:
            command = ["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", source, "-c:v", "libx264", "-preset", "ultrafast"]
            command += ["-pix_fmt", "yuv420p", "-g", "10", f"{holder}/new.mp4"]
            subprocess.run(command, check=True, timeout=BOUND, stdin=subprocess.DEVNULL)
            pathlib.Path(holder, "new.mp4").rename(drawn)
    return drawn


def url(path):
    return pathlib.Path(path).as_uri()


class Home:
    """A home folder of one test, with its settings files."""

    def __init__(self):
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-home-")
        self.path = pathlib.Path(self._holder.name)
        self.preferences = self.path / "Library" / "Preferences"
        self.preferences.mkdir(parents=True)
        self.root = self.path / "platform-root"
        self.root.mkdir()
        self.runtime = self.path / "run"
        self.runtime.mkdir(mode=0o700)

    def close(self):
        self._holder.cleanup()

    def write(self, settings, fmt=plistlib.FMT_XML, name="Kestro.plist"):
        (self.preferences / name).write_bytes(plistlib.dumps(settings, fmt=fmt))

    def play(self, movies, **settings):
        """Settings of the present version with these movies (paths, or URLs as text)."""
        entries = [entry if isinstance(entry, str) else url(entry) for entry in movies]
        self.write({"Ver": "5", "FileList": entries, **settings})

    def trailer_site(self, start):
        """Names the page that scans begin with."""
        self.configure(f"[trailers]\nstart={start}\n")

    def name_videos_folder(self, path):
        """As the desktop does."""
        folder = self.path / ".config"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "user-dirs.dirs").write_text(f'XDG_VIDEOS_DIR="{path}"\n')

    def configure(self, text):
        """The text of kestro.conf."""
        folder = self.path / ".config" / "kestro"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "kestro.conf").write_text(text)

    def forget_scans(self):
        for path in self.preferences.glob("Kestro_Scanned_Trailers*"):
            path.unlink()

    def resume_point(self):
        path = self.preferences / "Kestro.def.plist"
        return plistlib.loads(path.read_bytes()) if path.exists() else {}

    def forget_resume_point(self):
        """What is stored afterwards was stored after this, even where it is the same."""
        (self.preferences / "Kestro.def.plist").unlink()

    def environment(self, **more):
        kept = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        kept.pop("QT_QPA_PLATFORM", None)
        kept.update(KESTRO_HOME=str(self.path), HOME=str(self.path), KESTRO_ROOT=str(self.root),
                    XDG_RUNTIME_DIR=str(self.runtime))
        kept["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"  # else a bus is started, where it can be, and outlives the test
        kept.setdefault("KESTRO_RENDERER", "software")
        kept.setdefault("KESTRO_PATIENCE", "5000")  # tests run side by side, on machines of any speed
        kept.update(more)
        return kept


def thread_names(number):
    """The names of the threads that a process has."""
    names = []
    for task in pathlib.Path(f"/proc/{number}/task").iterdir():
        with contextlib.suppress(OSError):  # it may be over by now
            names.append((task / "comm").read_text().strip())
    return names


def player_threads(number):
    """The names of the threads that libmpv has in a process. Up to 0.36 each begins with its own."""
    newer = ("core", "demux", "vo", "worker")
    return [name for name in thread_names(number) if name.startswith("mpv") or name in newer]


class ProgramTest(unittest.TestCase):
    """A test with a home and an output folder of its own."""

    def setUp(self):
        self.home = Home()
        self.addCleanup(self.home.close)

    def leave_session(self):
        """Runs are those of a user without a session from now on. Answers the folder in the place of /tmp."""
        scratch = self.home.path / "tmp"
        scratch.mkdir()
        real = self.home.environment

        def environment(**more):
            kept = {name: value for name, value in real(**more).items() if not name.startswith("XDG_")}
            return kept | {"TMPDIR": str(scratch)}

        self.home.environment = environment
        return scratch

    def run_kestro(self, *words, status=0, environment=None):
        """Runs kestro to its end, which must have the status; answers the finished process, its output as text."""
        done = subprocess.run([KESTRO, *words], env=environment or self.home.environment(), capture_output=True,
                              text=True, timeout=BOUND, stdin=subprocess.DEVNULL)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def start_kestro(self, *words, stderr=subprocess.PIPE, **environment):
        """Starts kestro in a process group of its own; it is ended with the test."""
        process = subprocess.Popen([KESTRO, *words], env=self.home.environment(**environment), text=True,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=stderr,
                                   start_new_session=True)
        self.addCleanup(end_process, process)
        hear_end_of(process)
        return process

    def ended(self, process):
        """(exit status, what it said on standard error) of a process that is about to end."""
        _, errors = process.communicate(timeout=BOUND)
        return process.returncode, errors

    def assertOneLine(self, text, fragment):
        self.assertEqual(text.count("\n"), 1, text)
        self.assertIn(fragment, text)


def end_process(process):
    if process.poll() is None:
        os.killpg(process.pid, signal.SIGKILL)
    process.communicate(timeout=BOUND)


class Rendering:
    """One finished `kestro render`: its pictures, its trace, what it logged."""

    def __init__(self, test, *words, size="320x240", seconds=2, every=1, **environment):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=test.home.path))
        trace = self.folder / "trace.jsonl"
        done = test.run_kestro("render", "--out", str(self.folder), "--size", size, "--seconds", str(seconds),
                               "--every", str(every), "--trace", str(trace), *words,
                               environment=test.home.environment(**environment))
        self.log = done.stderr
        self.trace = read_trace(trace)

    def names(self):
        return sorted(path.name for path in self.folder.glob("*.png"))

    def pictures(self, screen=0):
        return [Pixels.of_file(path) for path in sorted(self.folder.glob(f"screen{screen}-*.png"))]

    def last_picture(self, screen=0):
        return Pixels.of_file(max(self.folder.glob(f"screen{screen}-*.png")))

    def movie_lines(self, screen=0):
        return [line for line in self.trace if line["screen"] == screen and line["movie"]]

    def urls(self):
        """The movies shown on the first screen, in order, each once for as long as it stayed."""
        shown = [line["movie"]["url"] for line in self.movie_lines()]
        return [now for before, now in zip([None, *shown], shown) if before != now]

    def movie_frames(self, screen=0):
        """The places of the movie with a size, in order, each once for as long as it stayed."""
        frames = [line["movie"]["frame"] for line in self.movie_lines(screen)]
        frames = [frame for frame in frames if frame[2] > 0]
        return [now for before, now in zip([None, *frames], frames) if before != now]


def read_trace(path):
    return [json.loads(line) for line in path.read_text().splitlines()]


class Pixels:
    """A picture, three bytes a pixel; positions count from the top left."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.bytes = width, height, pixels

    @classmethod
    def of_file(cls, path):
        """Of a file of any kind."""
        with Image.open(path) as picture:
            return cls(*picture.size, picture.convert("RGB").tobytes())

    def at(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self.bytes[start : start + 3])

    def is_near(self, x, y, colour, tolerance=24):
        """Whether the pixel has the colour, but for what packing a movie does to it."""
        return all(abs(a - b) < tolerance for a, b in zip(self.at(x, y), colour))

    def box_of_red(self, left, top, width, height):
        """(left, top, width, height) of what is red in a part of the picture; nothing where nothing is."""
        rows = [self._red_columns(left, top + row, width) for row in range(height)]
        red = [(row, columns) for row, columns in enumerate(rows) if columns]
        if not red:
            return None
        first, last = min(columns[0] for _, columns in red), max(columns[1] for _, columns in red)
        return left + first, top + red[0][0], last - first + 1, red[-1][0] - red[0][0] + 1

    def _red_columns(self, left, y, width):
        """The first and the last red column of a row, counted from its left end."""
        start = 3 * (y * self.width + left)
        row = self.bytes[start : start + 3 * width : 3].translate(IS_HALF)
        return (row.find(1), row.rfind(1)) if 1 in row else None

    def is_blank(self):
        return not any(self.bytes)


def seconds_of(name):
    """The seconds in a picture's name."""
    return float(re.fullmatch(r"screen\d+-(\d+\.\d{3})\.png", name)[1])
