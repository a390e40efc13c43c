"""An X server of a test's own, a home of its own, and programs that end with the test."""

import contextlib
import os
import select
import subprocess
import tempfile
import time

BOUND = 60  # seconds until something counts as hung


@contextlib.contextmanager
def started(*command, **options):
    process = subprocess.Popen(command, **options)
    try:
        yield process
    finally:
        process.kill()
        process.wait()


@contextlib.contextmanager
def display():
    """An X server; the environment leads to it, and to an empty home, while it is there."""
    readable, writable = os.pipe()
    with tempfile.TemporaryDirectory() as home, started(
        "Xvfb", "-displayfd", str(writable), "-screen", "0", "640x360x24", pass_fds=[writable]
    ):
        os.close(writable)
        with os.fdopen(readable) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        os.environ.pop("WAYLAND_DISPLAY", None)
        os.environ.update(KESTRO_HOME=home, HOME=home, XDG_RUNTIME_DIR=home)
        yield


def wait_until(condition, what):
    deadline = time.monotonic() + BOUND
    while not condition():
        if time.monotonic() > deadline:
            raise SystemExit(f"waited {BOUND} s in vain for {what}")
        select.select([], [], [], 0.1)


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, timeout=BOUND).stdout
