"""Measures how long Kestro takes to leave a window that it was handed, from the TERM to the end of the process.

usage: term_bench.py KESTRO
"""

import os
import signal
import socket
import statistics
import subprocess
import sys
import tempfile
import time

import desk
from movie_bench import bar, make_home, make_movie

ROUNDS = 20
MOST = 200  # milliseconds
QUIET = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


def window_of(screen):
    """A window of another program, and its number."""
    giver = subprocess.Popen(["xev", "-geometry", "1920x1080+0+0", "-bw", "0", "-name", "giver"],
                             env=screen.environment(), **QUIET)
    search = ["xdotool", "search", "--onlyvisible", "--name", "^giver$"]
    found = ""
    while not found:
        found = subprocess.run(search, env=screen.environment(), capture_output=True, text=True).stdout
        time.sleep(0.05)
    return giver, found.split()[0]


def milliseconds_to_end(kestro, screen, window, home, is_ready):
    environment = screen.environment(KESTRO_HOME=home, XSCREENSAVER_WINDOW=window)
    process = subprocess.Popen([kestro, "--root"], env=environment, **QUIET)
    while not is_ready():
        time.sleep(0.02)
    time.sleep(0.3)
    begun = time.monotonic()
    process.send_signal(signal.SIGTERM)
    status = process.wait()
    assert status == -signal.SIGTERM, status
    return (time.monotonic() - begun) * 1000


def report(name, values):
    print(f"  {name}: median {statistics.median(values):.1f} ms, longest {max(values):.1f} ms")
    bar(name + ", ms", statistics.median(values), MOST)


def shows_movie(screen):
    """The giver is white, a saver without a picture black."""
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
        home = make_home(folder, "crawling", ["file://" + movie, "auto://LatestTrailers/6/480"], Continue="1")
        configuration = os.path.join(home, ".config", "kestro")
        os.makedirs(configuration)
        with open(os.path.join(configuration, "kestro.conf"), "w", encoding="ascii") as file:
            file.write(f"[trailers]\nstart=http://127.0.0.1:{silent.getsockname()[1]}/trailers/\n")
        connections = []

        def is_asked():
            connections.append(silent.accept()[0])
            return True

        return [milliseconds_to_end(kestro, screen, window, home, is_asked) for _ in range(ROUNDS)]


def main():
    kestro = os.path.abspath(sys.argv[1])
    screen = desk.Screen()
    giver, window = window_of(screen)
    with tempfile.TemporaryDirectory() as folder:
        movie = make_movie(folder)
        report("TERM while playing full screen", playing(kestro, screen, window, folder, "full", movie))
        report("TERM while bouncing with a trail",
               playing(kestro, screen, window, folder, "bounce", movie, FullScreenMode="0", PartialMode="1",
                       Fadeout="1", Scale="0.6"))
        report("TERM while a server does not answer", loading(kestro, screen, window, folder))
        report("TERM while a crawl hangs", crawling(kestro, screen, window, folder, movie))
    desk.end(giver)
    screen.close()


if __name__ == "__main__":
    main()
