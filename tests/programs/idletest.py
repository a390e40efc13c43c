"""kestro idle on a message bus of its own."""

import json
import subprocess

from bus import Bus
from harness import BOUND, KESTRO, ProgramTest, hear_end_of, movie, wait_until


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
