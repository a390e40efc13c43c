"""A message bus of a test's own, and kestro idle on it."""

import json
import pathlib
import signal
import subprocess
import tempfile

from harness import BOUND, KESTRO, ProgramTest, hear_end_of, movie, wait_until


class Bus:
    """A message bus that starts no services. Ended by close()."""

    def __init__(self):
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-bus-")
        folder = pathlib.Path(self._holder.name)
        config = folder / "bus.conf"
        config.write_text(f"""<busconfig><type>session</type><listen>unix:path={folder}/bus</listen>
            <policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
            <allow own="*"/></policy></busconfig>""")
        self._process = subprocess.Popen(["dbus-daemon", "--nofork", f"--config-file={config}", "--print-address=1"],
                                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                         start_new_session=True)
        self.address = self._process.stdout.readline().strip()

    def stop(self):
        """Has it say nothing any more."""
        self._process.send_signal(signal.SIGSTOP)

    def kill(self):
        """Ends it as a crash would."""
        self._process.kill()
        self._process.wait(timeout=BOUND)

    def close(self):
        if self._process.poll() is None:
            self.kill()
        self._process.wait(timeout=BOUND)
        self._process.stdout.close()
        self._holder.cleanup()


class IdleTest(ProgramTest):
    """A test with a bus, on the display that `display_environment` names."""

    def setUp(self):
        super().setUp()
        self.bus = Bus()
        self.addCleanup(self.bus.close)
        self.home.play([movie("idle-red", "red", seconds=60)], FullScreenMode="1", PlayMode="1")

    def environment(self, **more):
        return self.home.environment(DBUS_SESSION_BUS_ADDRESS=self.bus.address, DBUS_SYSTEM_BUS_ADDRESS=self.bus.address,
                                     **self.display_environment(), **more)

    def display_environment(self):
        raise NotImplementedError

    def log(self):
        return (self.home.path / "log").read_text(errors="replace")

    def serve(self, *words, **more):
        with (self.home.path / "log").open("a") as log:
            service = subprocess.Popen([KESTRO, "idle", *words], env=self.environment(**more),
                                       stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        hear_end_of(service)
        self.addCleanup(self.end, service)
        wait_until(lambda: "Waiting until you are away" in self.log() or service.poll() is not None, "the service")
        return service

    def end(self, service):
        if service.poll() is None:
            service.kill()
            service.wait(timeout=BOUND)

    def ask(self, *words):
        return subprocess.run([KESTRO, "idle", *words], env=self.environment(), capture_output=True, text=True, timeout=BOUND,
                              stdin=subprocess.DEVNULL)

    def status(self):
        answer = self.ask("--status", "--json")
        return json.loads(answer.stdout) if answer.returncode == 0 else {}
