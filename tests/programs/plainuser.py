"""An installed Kestro and a home for a user without rights: xscreensaver runs nothing for root."""

import os
import pathlib
import shutil
import subprocess
import tempfile

from harness import BOUND, KESTRO

BUILD = pathlib.Path(KESTRO).parent.parent
NOBODY = 65534


class PlainUser:
    """Runs programs as "nobody" where the tests run as root, else as whoever runs them. Ended by close()."""

    def __init__(self):
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-user-")
        top = pathlib.Path(self._holder.name)
        top.chmod(0o755)
        self.prefix = top / "usr"
        subprocess.run(["cmake", "--install", str(BUILD), "--prefix", str(self.prefix)], check=True, timeout=BOUND,
                       stdout=subprocess.DEVNULL)
        self.kestro = str(self.prefix / "bin" / "kestro")
        self.home = top / "home"
        self.preferences = self.home / "Library" / "Preferences"
        self.preferences.mkdir(parents=True)
        self.runtime = top / "run"
        self.runtime.mkdir(mode=0o700)
        self.owns(self.home, self.home / "Library", self.preferences, self.runtime)

    def close(self):
        self._holder.cleanup()

    def takes(self, path):
        """A copy of a file where the user can read it."""
        copy = self.prefix / pathlib.Path(path).name
        shutil.copy(path, copy)
        copy.chmod(0o644)
        return copy

    def owns(self, *paths):
        if os.getuid() == 0:
            for path in paths:
                os.chown(path, NOBODY, NOBODY)

    def environment(self, **more):
        kept = {name: value for name, value in os.environ.items() if name.startswith(("LC_", "ASAN_", "LSAN_", "UBSAN_"))}
        # Tests run side by side, on machines of any speed: a saver that is ended may take its time to store where it was.
        return {**kept, "HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.runtime), "KESTRO_PATIENCE": "5000",
                "PATH": f"{self.prefix / 'bin'}:/usr/bin:/bin", **more}

    @staticmethod
    def command(*words):
        if os.getuid() != 0:
            return list(words)
        return ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", "--", *words]

    def run(self, *words, **variables):
        return subprocess.run(self.command(*words), env=self.environment(**variables), cwd=self.home,
                              capture_output=True, text=True, timeout=BOUND, stdin=subprocess.DEVNULL)

    def start(self, *words, output, **variables):
        """Starts a program in a process group of its own; `output` is the file that takes what it says."""
        return subprocess.Popen(self.command(*words), env=self.environment(**variables), cwd=self.home, stdout=output,
                                stderr=output, stdin=subprocess.DEVNULL, start_new_session=True)
