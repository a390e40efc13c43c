"""What the tests of web content share: SWF files on disk, processes of the helper, and the variable that root needs."""

import os
import pathlib
import signal
import subprocess
import tempfile

from harness import BOUND, Pixels, ProgramTest, wait_until
from website import WebSite

# The browser's sandbox does not work for root, and users never do without it.
FOR_ROOT = {"QTWEBENGINE_DISABLE_SANDBOX": "1"} if os.geteuid() == 0 else {}


def processes():
    """All processes that live: identity to (parent, process group, command line)."""
    found = {}
    for folder in pathlib.Path("/proc").iterdir():
        if not folder.name.isdigit():
            continue
        try:
            stat = folder.joinpath("stat").read_text()
            command = folder.joinpath("cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
        except OSError:
            continue  # it has ended
        state, parent, group = stat.rsplit(")", 1)[1].split()[:3]
        if state not in "ZX":
            found[int(folder.name)] = (int(parent), int(group), command)
    return found


def helpers_of(process):
    """The helpers that a run of kestro has started."""
    return [pid for pid, (parent, _, command) in processes().items() if parent == process.pid and "kestro-web" in command]


def members_of(group):
    """The processes of a process group."""
    return [pid for pid, (_, its_group, _) in processes().items() if its_group == group]


def redirecting(site, path, target):
    usual = site.answer

    def answer(handler):
        if handler.path != path:
            return usual(handler)
        handler.send_response(302)
        handler.send_header("Location", target)
        handler.send_header("Access-Control-Allow-Origin", "*")
        handler.send_header("Content-Length", "0")
        handler.end_headers()

    return answer


class WebTest(ProgramTest):
    """A test with a folder for SWF files and pages, and web sites."""

    def setUp(self):
        super().setUp()
        self.folder = self.home.path / "content"
        self.folder.mkdir()
        real = self.home.environment
        self.home.environment = lambda **more: real(**{**FOR_ROOT, **more})

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content)
        return path

    def site(self, pages=None):
        site = WebSite(pages)
        self.addCleanup(site.close)
        return site

    def helper_of(self, process):
        """The helper of a running kestro, once there is one."""
        return wait_until(lambda: helpers_of(process), "the web helper")[0]

    def assertNothingLeft(self, group):
        wait_until(lambda: not members_of(group), "the helper's processes to end")
        self.assertEqual(list(self.home.runtime.glob("kestro/web-*")), [])


class LiveRendering:
    """A `kestro render` that runs until it is told to end, and the pictures that it has written so far."""

    def __init__(self, test, *words):
        self._test = test
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=test.home.path))
        self.process = test.start_kestro("render", "--out", str(self.folder), "--size", "320x240", "--seconds", "600",
                                         "--every", "0.1", *words)

    def paths(self, screen=0):
        """The pictures but for the newest, which may be half written."""
        return sorted(self.folder.glob(f"screen{screen}-*.png"))[:-1]

    def pictures(self, screen=0):
        return [Pixels.of_file(path) for path in self.paths(screen)]

    def wait_for(self, condition, screen=0):
        """Waits until a picture is as wanted, and answers it."""
        seen = []

        def newest():
            paths = self.paths(screen)
            if not paths or paths[-1] in seen:
                return None
            seen.append(paths[-1])
            picture = Pixels.of_file(paths[-1])
            return picture if condition(picture) else None

        return wait_until(newest, "the wanted picture")

    def wait_for_more(self, count):
        """Waits until some more pictures are there, and answers the newest."""
        least = len(self.paths()) + count
        wait_until(lambda: len(self.paths()) >= least, "more pictures")
        return Pixels.of_file(self.paths()[-1])

    def end(self):
        """Ends it, and answers what it has logged."""
        self.process.send_signal(signal.SIGTERM)
        _, log = self._test.ended(self.process)
        return log


class PageRun:
    """The probe that shows one address in a view, as a page or a movie. Ended by end()."""

    def __init__(self, test, address, **environment):
        folder = pathlib.Path(tempfile.mkdtemp(dir=test.home.path))
        self._picture, self._log = folder / "page.ppm", folder / "log"
        with self._log.open("wb") as log:
            self._process = subprocess.Popen([os.environ["WEB_PROBE"], address, str(self._picture)], text=True, bufsize=1,
                                             env=test.home.environment(QT_QPA_PLATFORM="offscreen", **environment),
                                             stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log)
        test.addCleanup(self.end)

    def show(self, address):
        """Shows another address in another view."""
        self._wish(address)

    def _wish(self, what):
        self._process.stdin.write(what + "\n")
        self._process.stdin.flush()
        assert self._process.stdout.readline() == "done\n"

    def at_centre(self):
        self._wish("picture")
        return Pixels.of_file(self._picture).at(160, 120)

    def wait_for(self, colour):
        wait_until(lambda: self.at_centre() == colour, f"the page to be {colour}")

    def helpers(self):
        return helpers_of(self._process)

    def wait_for_log(self, fragment):
        wait_until(lambda: fragment in self._log.read_text(), f"the log to say: {fragment}")

    def end(self):
        """Ends it, and answers what it has logged."""
        if self._process.returncode is None:
            self._process.communicate(timeout=BOUND)
        return self._log.read_text()
