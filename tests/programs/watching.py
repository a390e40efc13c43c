"""`kestro render` as it runs: its trace is read line by line while it is written."""

import json
import pathlib
import signal
import tempfile

from harness import wait_until

AT_ONCE = 20  # seconds, on a machine that has much else to do
FOR_LONG = "3600"  # seconds; each run is ended once it has shown what it is about


def is_playing(line):
    """Whether the line shows a movie that has a place and moves on."""
    movie = line["movie"]
    return movie is not None and movie["frame"][2] > 0 and movie["time"] > 0


class Watch:
    """One run that goes on until it is ended, its trace so far and what it logged so far."""

    def __init__(self, test, *words, size="64x48", **environment):
        self._test = test
        folder = pathlib.Path(tempfile.mkdtemp(dir=test.home.path))
        self._trace_path, self._log_path = folder / "trace.jsonl", folder / "log"
        self._rest = ""
        self._stream = None
        self.trace = []
        self._log = self._log_path.open("w")
        test.addCleanup(self._log.close)
        self.process = test.start_kestro("render", "--out", str(folder / "pictures"), "--size", size, "--seconds", FOR_LONG,
                                         "--every", FOR_LONG, "--trace", str(self._trace_path), *words,
                                         stderr=self._log, **environment)

    def read(self):
        """Takes in what was written since; answers the whole trace."""
        if self._stream is None and self._trace_path.exists():
            self._stream = self._trace_path.open()
            self._test.addCleanup(self._stream.close)
        if self._stream is not None:
            *whole, self._rest = (self._rest + self._stream.read()).split("\n")
            self.trace += [json.loads(line) for line in whole]
        return self.trace

    def log(self):
        return self._log_path.read_text()

    def until(self, condition, what):
        """Waits until the condition is true of the trace; answers what it answered. Fails where the run ends first."""
        answer = wait_until(lambda: condition(self.read()) or self.process.poll() is not None, what)
        self._test.assertIsNone(self.process.poll(), self.log())
        return answer

    def until_it_plays(self, url, since=0):
        """The number of the first line from `since` on that shows that movie at play."""
        found = []

        def is_there(trace):
            found[:] = [number for number, line in enumerate(trace[since:], since)
                        if is_playing(line) and line["movie"]["url"] == url][:1]
            return found

        self.until(is_there, f"{url} to play")
        return found[0]

    def until_the_sign_moves(self, since=0, screen=0, places=5):
        """Waits until the sign was at so many places from that line on; answers the number of the last line."""

        def has_moved(trace):
            signs = [tuple(line["sign"]) for line in trace[since:] if line["screen"] == screen and line["sign"]]
            return len(set(signs)) >= places

        self.until(has_moved, f"the sign to move on screen {screen}")
        return len(self.trace) - 1

    def until_seconds(self, seconds):
        """Waits until the run has gone on for that long by its own clock; answers the number of the last line."""
        self.until(lambda trace: trace and trace[-1]["t"] >= seconds, f"{seconds} s of the run")
        return len(self.trace) - 1

    def now(self):
        """The number of the next line."""
        return len(self.read())

    def end(self):
        """Ends it as a person's session would; it must end well."""
        self.process.send_signal(signal.SIGTERM)
        self._test.assertEqual(self.process.wait(timeout=AT_ONCE), 0, self.log())
        return self.read()
