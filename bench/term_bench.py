"""Measures how long Kestro takes to leave a window that it was handed, from the TERM to the end of the process.

usage: term_bench.py KESTRO DEAD_DISK
"""

import gzip
import os
import pathlib
import signal
import socket
import statistics
import subprocess
import sys
import tempfile
import threading
import time

import desk
from movie_bench import bar, make_home, make_movie
from web_bench import tree

os.environ.update(KESTRO=sys.argv[1], DEAD_DISK=os.path.abspath(sys.argv[2]))
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "programs"))
import swf  # noqa: E402
from deaddisk import DeadDisk  # noqa: E402

ROUNDS = 30
MOST = 200  # milliseconds
LONGEST = 10  # seconds until a saver that does not end is helped
FEEDS = 36 * 1000 * 1000  # that a page names, as many as fit
AFTERWARDS = 2  # seconds in which the signal comes, at another moment in each round
QUIET = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


def window_of(screen):
    """A window of another program, and its number."""
    parent = subprocess.Popen(["xev", "-geometry", "1920x1080+0+0", "-bw", "0", "-name", "parent"],
                             env=screen.environment(), **QUIET)
    search = ["xdotool", "search", "--onlyvisible", "--name", "^parent$"]
    found = ""
    while not found:
        found = subprocess.run(search, env=screen.environment(), capture_output=True, text=True).stdout
        time.sleep(0.05)
    return parent, found.split()[0]


def milliseconds_to_end(kestro, screen, window, home, is_ready, settle=0.3):
    environment = screen.environment(KESTRO_HOME=home, XSCREENSAVER_WINDOW=window)
    process = subprocess.Popen([kestro, "--root"], env=environment, **QUIET)
    while not is_ready():
        time.sleep(0.02)
    time.sleep(settle)
    begun = time.monotonic()
    process.send_signal(signal.SIGTERM)
    status = process.wait()
    assert status == -signal.SIGTERM, status
    return (time.monotonic() - begun) * 1000


def report(name, values):
    print(f"  {name}: median {statistics.median(values):.1f} ms, longest {max(values):.1f} ms")
    bar(name + ", longest, ms", max(values), MOST)


def shows_movie(screen):
    """The parent window is white, a saver without a picture black."""
    return screen.pixel(960, 540) not in (0, 0xFFFFFF)


def playing(kestro, screen, window, folder, name, movie, **keys):
    home = make_home(folder, name, ["file://" + movie], Continue="1", **keys)
    return [milliseconds_to_end(kestro, screen, window, home, lambda: shows_movie(screen))
            for _ in range(ROUNDS)]


def loading(kestro, screen, window, folder):
    """While the movie loads from a server that takes the connection and never says a word."""
    with socket.create_server(("127.0.0.1", 0)) as silent:
        url = f"http://127.0.0.1:{silent.getsockname()[1]}/a.mp4"
        home = make_home(folder, "loading", [url], Continue="1")
        connections = []

        def is_asked():
            connections.append(silent.accept()[0])
            return True

        return [milliseconds_to_end(kestro, screen, window, home, is_asked) for _ in range(ROUNDS)]


def crawling(kestro, screen, window, folder, movie):
    """While a crawl for trailers waits for a page that never comes."""
    with socket.create_server(("127.0.0.1", 0)) as silent:
        home = trailer_home(folder, "crawling", f"http://127.0.0.1:{silent.getsockname()[1]}/trailers/",
                            ["file://" + movie, "auto://LatestTrailers/6/480"])
        connections = []

        def is_asked():
            connections.append(silent.accept()[0])
            return True

        return [milliseconds_to_end(kestro, screen, window, home, is_asked) for _ in range(ROUNDS)]


def trailer_home(folder, name, site, entries):
    """A home whose saver crawls that site."""
    home = make_home(folder, name, entries, Continue="1")
    configuration = os.path.join(home, ".config", "kestro")
    os.makedirs(configuration)
    with open(os.path.join(configuration, "kestro.conf"), "w", encoding="ascii") as file:
        file.write(f"[trailers]\nstart={site}\n")
    return home


class HostileSite:
    """A site of one page, which counts how often it was asked for."""

    def __init__(self, page):
        self._page = b"HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n" + page
        self._server = socket.create_server(("127.0.0.1", 0))
        self.served = 0
        threading.Thread(target=self._serve, daemon=True).start()

    def url(self):
        return f"http://127.0.0.1:{self._server.getsockname()[1]}/trailers/"

    def _serve(self):
        while True:
            client, _ = self._server.accept()
            with client:
                is_page = client.recv(65536).startswith(b"GET /trailers/ ")
                client.sendall(self._page if is_page else b"HTTP/1.0 404 Not Found\r\n\r\n")
            self.served += is_page


def parsing(kestro, screen, window, folder, movie):
    """While a page is unpacked and read that names more feeds than anybody wants."""
    site = HostileSite(gzip.compress(b"'.json" * FEEDS + b"'", compresslevel=1, mtime=0))
    values = []
    for each in range(ROUNDS):
        home = trailer_home(folder, f"parsing-{each}", site.url(), ["file://" + movie, "auto://LatestTrailers/6/480"])
        before = site.served
        values.append(milliseconds_to_end(kestro, screen, window, home, lambda: site.served > before,
                                          0.2 + AFTERWARDS * each / ROUNDS))
    return values


def program_of(pid):
    """The name that a process was started by; none once it is gone."""
    try:
        return pathlib.Path(f"/proc/{pid}/cmdline").read_bytes().split(b"\0")[0]
    except OSError:
        return b""


def helper_starting(kestro, screen, window, folder):
    """While the helper for web content starts."""
    flash = pathlib.Path(folder, "bench.swf")
    flash.write_bytes(swf.avm1(swf.move_clip("box", 2), size=(640, 480), rate=24, side=200))
    home = make_home(folder, "flash", [flash.as_uri()], Continue="1")

    def is_there():
        return any(program_of(pid).endswith(b"kestro-web") for pid in tree(os.getpid()))

    return [milliseconds_to_end(kestro, screen, window, home, is_there, AFTERWARDS * each / ROUNDS)
            for each in range(ROUNDS)]


def on_dead_disk(kestro, screen, window, folder, question, entries):
    """While a movie's disk does not answer to that question; `entries` answers the list to play, given its URL."""
    values = []
    for _ in range(ROUNDS):
        disk = DeadDisk({"silent.mp4": os.path.join(folder, "bench.mp4")}, f"silent.mp4={question}")
        home = make_home(folder, f"dead-{len(os.listdir(folder))}", entries(disk.url("silent.mp4")), Continue="1")
        # Nothing else would bring it back.
        rescue = threading.Timer(LONGEST, disk.close)
        rescue.start()
        values.append(milliseconds_to_end(kestro, screen, window, home, lambda: disk.was_asked("silent.mp4", question)))
        rescue.cancel()
        disk.close()
    return values


def dead_disks(kestro, screen, window, folder, movie):
    good = "file://" + movie
    places = [("alone", lambda silent: [silent]), ("first", lambda silent: [silent, good]),
              ("between others", lambda silent: [make_short(folder), silent, good])]
    for place, entries in places:
        for question in ("stat", "open", "read"):
            report(f"TERM while a disk does not answer to {question}, {place}",
                   on_dead_disk(kestro, screen, window, folder, question, entries))


def make_short(folder):
    """The URL of half a second, so that the next entry is soon asked for."""
    path = os.path.join(folder, "short.mp4")
    if not os.path.exists(path):
        subprocess.run(["ffmpeg", "-v", "error", "-t", "0.5", "-i", os.path.join(folder, "bench.mp4"), "-c", "copy", path],
                       check=True)
    return "file://" + path


def main():
    kestro = os.path.abspath(sys.argv[1])
    screen = desk.Screen()
    parent, window = window_of(screen)
    with tempfile.TemporaryDirectory() as folder:
        movie = make_movie(folder)
        report("TERM while playing full screen", playing(kestro, screen, window, folder, "full", movie))
        report("TERM while bouncing with a trail",
               playing(kestro, screen, window, folder, "bounce", movie, FullScreenMode="0", PartialMode="1",
                       Fadeout="1", Scale="0.6"))
        report("TERM while a server does not answer", loading(kestro, screen, window, folder))
        report("TERM while a crawl hangs", crawling(kestro, screen, window, folder, movie))
        report("TERM while a page of 36 million names of feeds is read", parsing(kestro, screen, window, folder, movie))
        report("TERM while the helper for web content starts", helper_starting(kestro, screen, window, folder))
        dead_disks(kestro, screen, window, folder, movie)
    desk.end(parent)
    screen.close()


if __name__ == "__main__":
    main()
