"""The helper that draws web content, as a process: what it gives up, what it takes of whom, and what it may use up."""

import os
import pathlib
import plistlib
import re
import socket
import subprocess
import tempfile
import unittest

import swf
from harness import BLACK, BOUND, KESTRO, RED, wait_until
from plainuser import PlainUser
from webtest import PageRun, WebTest, helpers_of, members_of, processes

LIMITS = {"Max core file size": "0", "Max file size": str(256 << 20)}
# An address sanitizer keeps notes on memory that is never there.
if "address" not in os.environ.get("SANITIZERS", ""):
    LIMITS["Max data size"] = str(5 << 29)
SHOWN = b"<body style='background:red'>"


def filters_of(pid):
    """How many filters of system calls a process lives under; none for one that has ended."""
    try:
        return int(re.search(r"Seccomp_filters:\s+(\d+)", pathlib.Path(f"/proc/{pid}/status").read_text())[1])
    except OSError:
        return 0


class Sandbox(unittest.TestCase):
    """With an ordinary user's rights the browser's sandbox is on, whatever the environment says."""

    def setUp(self):
        self.user = PlainUser()
        self.addCleanup(self.user.close)
        entry = self.user.prefix / "a.swf"
        entry.write_bytes(swf.still(RED))
        settings = self.user.preferences / "Kestro.plist"
        settings.write_bytes(plistlib.dumps({"Ver": "5", "FileList": [entry.as_uri()], "FullScreenMode": "1"}))
        log = (self.user.prefix / "log").open("w+")
        self.addCleanup(log.close)
        self.process = self.user.start(
            self.user.kestro, output=log, QT_QPA_PLATFORM="offscreen", QTWEBENGINE_DISABLE_SANDBOX="1",
            QTWEBENGINE_CHROMIUM_FLAGS="--no-sandbox", KESTRO_RENDERER="software", SSH_AUTH_SOCK="/theirs",
            SOME_TOKEN="theirs")
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.kill)
        self.helper = wait_until(lambda: helpers_of(self.process), "the web helper")[0]
        # The page's process lives under the browser's filter besides that of the helper.
        wait_until(lambda: any(filters_of(pid) > filters_of(self.helper) > 0 for pid in members_of(self.helper)),
                   "a filtered process")

    def test_the_page_runs_under_the_browsers_filter_of_system_calls(self):
        commands = [command for _, group, command in processes().values() if group == self.helper]
        self.assertNotIn("--no-sandbox", " ".join(commands))

    def test_no_process_of_the_browser_has_a_network(self):
        nets = {os.readlink(f"/proc/{pid}/ns/net") for pid in members_of(self.helper)}
        self.assertNotIn(os.readlink(f"/proc/{self.process.pid}/ns/net"), nets)
        interfaces = pathlib.Path(f"/proc/{self.helper}/net/dev").read_text().splitlines()[2:]
        self.assertEqual([line.split()[:2] for line in interfaces], [["lo:", "0"]])

    def test_it_has_no_rights_and_gets_none(self):
        status = pathlib.Path(f"/proc/{self.helper}/status").read_text()
        self.assertEqual(re.findall(r"(?:CapPrm|CapEff|CapInh):\s+(\w+)", status), ["0" * 16] * 3)
        self.assertIn("NoNewPrivs:\t1", status)

    def test_it_knows_nothing_of_the_session(self):
        self.assertNotIn(b"theirs", pathlib.Path(f"/proc/{self.helper}/environ").read_bytes())

    def test_its_processes_are_bounded(self):
        for pid in members_of(self.helper):
            limits = pathlib.Path(f"/proc/{pid}/limits").read_text()
            found = {name: re.search(rf"{name}\s+(\w+)\s+(\w+)", limits).groups() for name in LIMITS}
            self.assertEqual(found, {name: (most, most) for name, most in LIMITS.items()})


class ByHand(unittest.TestCase):
    """The helper started by anybody but Kestro: it ends at once, and touches nothing."""

    HELPER = str(pathlib.Path(KESTRO).parent.parent / "lib" / "kestro" / "kestro-web")

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.home = pathlib.Path(holder.name) / "home"
        (self.home / "folder").mkdir(parents=True)
        (self.home / "folder" / "diary").write_text("dear diary")
        self.home.chmod(0o700)

    def assertRefuses(self, *words, channel=None, fragment="is started by kestro"):
        def give_channel():
            if channel is not None:
                os.dup2(channel, 3)

        done = subprocess.run([self.HELPER, *words], env={"HOME": str(self.home)}, capture_output=True, text=True,
                              timeout=BOUND, close_fds=False, preexec_fn=give_channel)
        self.assertEqual((done.returncode, done.stdout, done.stderr.count("\n")), (2, "", 1), done.stderr)
        self.assertIn(fragment, done.stderr)
        self.assertEqual((self.home / "folder" / "diary").read_text(), "dear diary")

    def test_without_a_line_to_kestro(self):
        for words in ((), ("--help",), ("--version",), (str(self.home), "/ruffle"), ("a", "b", "c")):
            with self.subTest(words):
                self.assertRefuses(*words)

    def test_with_another_thing_for_a_line(self):
        reader, writer = os.pipe()
        self.addCleanup(os.close, reader)
        self.addCleanup(os.close, writer)
        stream = socket.socketpair()
        for each in stream:
            self.addCleanup(each.close)
        for channel in (reader, stream[0].fileno()):
            self.assertRefuses(str(self.home), "/ruffle", channel=channel)
            self.assertRefuses("--help", channel=channel)

    def test_with_a_folder_that_is_none_of_its_own(self):
        near, far = socket.socketpair(socket.AF_UNIX, socket.SOCK_SEQPACKET)
        self.addCleanup(near.close)
        self.addCleanup(far.close)
        link = self.home.parent / "web-1-1-aaaaaa"
        link.symlink_to(self.home)
        for folder in (self.home, self.home / "gone", link, "/", ""):
            with self.subTest(folder):
                self.assertRefuses(str(folder), "/ruffle", channel=far.fileno(), fragment="none of its own")


class Hunger(WebTest):
    def test_a_page_that_takes_memory_without_end_is_ended(self):
        script = "const kept = []; setInterval(() => kept.push(new Uint8Array(64 << 20).fill(1)), 10);"
        site = self.site({"/page.html": ("text/html", SHOWN + f"<script>{script}</script>".encode())})
        run = PageRun(self, site.url("/page.html"))
        run.wait_for_log("all stays black")
        run.wait_for(BLACK)
        self.assertIn("the helper takes too much memory; all stays black", run.end())


if __name__ == "__main__":
    unittest.main()
