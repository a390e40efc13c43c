"""A disk that goes bad: a mount whose files never answer to some questions, and a saver that plays from it."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from harness import BOUND, url, wait_until

DEAD_DISK = os.environ["DEAD_DISK"]
CANNOT_MOUNT = 77


class DeadDisk:
    """Shows copies of `movies` (name to path) under a mount. `rules` are words as "a.mp4=stat", "a.mp4=open",
    "a.mp4=read" or "a.mp4=read@BYTE", or ".=list" for the folder: what is not answered. Ended by close(), which frees whoever waits for it."""

    def __init__(self, movies, *rules):
        self._is_closed = False
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-disk-")
        folder = pathlib.Path(self._holder.name)
        source, self.path = folder / "source", folder / "disk"
        source.mkdir()
        self.path.mkdir()
        for name, movie in movies.items():
            shutil.copy(movie, source / name)
        self._said = folder / "said"
        self._errors = folder / "errors"
        with self._said.open("w") as said, self._errors.open("w") as errors:
            self._process = subprocess.Popen([DEAD_DISK, str(source), str(self.path), *rules], stdin=subprocess.DEVNULL,
                                             stdout=said, stderr=errors)
        wait_until(lambda: self._process.poll() is not None or "mounted" in self._lines(), "the mount")

    @property
    def refusal(self):
        """Why nothing could be mounted; nothing where it could."""
        if self._process.poll() is None:
            return None
        return self._errors.read_text().strip() or f"status {self._process.returncode}"

    def _lines(self):
        return self._said.read_text().splitlines()

    def url(self, name):
        return url(self.path / name)

    def was_asked(self, name, question):
        """Whether a question was put that has no answer."""
        return f"{name} {question}" in self._lines()

    def await_question(self, name, question):
        wait_until(lambda: self.was_asked(name, question), f"somebody to {question} {name}")

    def close(self):
        """Whoever waits is told that the disk has gone; the mount goes too."""
        if self._is_closed:
            return
        self._is_closed = True
        if self._process.poll() is None:
            self._process.send_signal(signal.SIGKILL)
        self._process.wait(timeout=BOUND)
        wait_until(lambda: not self._is_mounted(), "the mount to go")
        self._holder.cleanup()

    def _is_mounted(self):
        """Whether it still is; what is left of it is taken away."""
        if str(self.path) not in pathlib.Path("/proc/self/mounts").read_text():
            return False
        subprocess.run(["fusermount3", "-u", "-z", str(self.path)], capture_output=True, timeout=BOUND, check=False)
        return True


def refusal():
    """Why no disk can be mounted here; nothing where one can."""
    try:
        disk = DeadDisk({})
    except OSError as error:
        return str(error)
    answer = disk.refusal
    disk.close()
    return answer
