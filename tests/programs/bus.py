"""A message bus of a test's own, which serves as the session's and the system's."""

import pathlib
import signal
import subprocess
import tempfile

from harness import BOUND


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
        """It hangs from now on."""
        self._process.send_signal(signal.SIGSTOP)

    def kill(self):
        """Ends it as a crash would."""
        self._process.kill()
        self._process.wait(timeout=BOUND)

    def close(self):
        if self._process.poll() is None:
            self.kill()
        self._process.stdout.close()
        self._holder.cleanup()
