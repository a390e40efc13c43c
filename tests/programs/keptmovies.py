"""What the tests with movies that are kept share."""

import contextlib
import pathlib
import subprocess

from harness import BOUND, KESTRO, hear_end_of, movie, wait_until
from remotetest import FULL_SCREEN, RemoteTest


def keeper_program():
    """Beside the libraries, wherever this system has those."""
    found = sorted(pathlib.Path(KESTRO).parent.parent.glob("lib/**/kestro-keep"))
    return str(found[0])


def keepers_of(folder):
    """The numbers of the processes that keep movies there."""
    numbers = []
    for entry in pathlib.Path("/proc").iterdir():
        with contextlib.suppress(OSError):
            words = (entry / "cmdline").read_bytes().split(b"\0") if entry.name.isdigit() else []
            if words and words[0].endswith(b"/kestro-keep") and str(folder).encode() in words[1:2]:
                numbers.append(int(entry.name))
    return numbers


class KeptTest(RemoteTest):
    """Two movies on a server, of which copies may be kept."""

    def setUp(self):
        super().setUp()
        self.entries = [self.serve("/red.mp4", movie("kept-red", "red", seconds=30)),
                        self.serve("/green.mp4", movie("kept-green", "green", seconds=30))]
        self.folder = self.home.path / ".cache" / "kestro" / "movies"
        self.home.play(self.entries, **FULL_SCREEN)
        self.home.configure("[cache]\nsize=20 MB\n")

    def copies(self):
        return sorted(self.folder.glob("*.movie"))

    def parts(self):
        return sorted(self.folder.glob("*.part"))

    def served(self):
        """The bytes of the movies that are on the server."""
        return {body for body, _ in self.server._movies.values()}

    def assertCopiesAreWhole(self):
        for copy in self.copies():
            self.assertIn(copy.read_bytes(), self.served(), copy)


class KeeperTest(KeptTest):
    """The process by itself, told what is wanted as the saver tells it."""

    def keep(self, entries, **more):
        """Runs it until it has nothing left to do, or ends."""
        keeper = self.start_keeper(entries, **more)
        wanted = len(entries)
        wait_until(lambda: keeper.poll() is not None or len(self.copies()) == wanted and not self.parts(), "the copies")
        self.close(keeper)
        return keeper

    def start_keeper(self, entries, **more):
        keeper = subprocess.Popen([keeper_program(), str(self.folder), "20000000"], stdin=subprocess.PIPE,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, start_new_session=True,
                                  env=self.home.environment(DBUS_SYSTEM_BUS_ADDRESS="disabled:", **more))
        hear_end_of(keeper)
        self.addCleanup(self.close, keeper)
        with contextlib.suppress(BrokenPipeError):
            keeper.stdin.write("".join(f"\n{entry}" for entry in entries).encode() + b"\n\n")
            keeper.stdin.flush()
        return keeper

    def close(self, keeper):
        """As the saver's end does."""
        with contextlib.suppress(BrokenPipeError):
            keeper.stdin.close()
        keeper.wait(timeout=BOUND)
        keeper.stderr.close()
