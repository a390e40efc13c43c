"""Hacks of xscreensaver in a saver, under an X server: what is seen, and that nothing outlives the saver."""

import os
import pathlib
import plistlib
import re
import signal
import subprocess
import unittest

from harness import ProgramTest, wait_until
from xserver import XServer

PROBE = os.environ["SAVER_PROBE"]
FAKE_HACK = os.environ["FAKE_HACK"]


def processes():
    """{pid: (command line, parent)} of everything that runs here; not of what only waits to be taken leave of."""
    found = {}
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            command = (folder / "cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
            state, parent = (folder / "stat").read_text().rpartition(")")[2].split()[:2]
        except OSError:
            continue
        if state != "Z":
            found[int(folder.name)] = (command, int(parent))
    return found


def below(pid):
    """The processes that a process started, and those that they started."""
    everything = processes()
    found = {pid}
    while more := {child for child, (_, parent) in everything.items() if parent in found} - found:
        found |= more
    return found - {pid}


def is_lively(pixels):
    """Whether there is more to see than one colour."""
    return len({pixels[place:place + 3] for place in range(0, len(pixels), 3)}) > 2


class Hacks(ProgramTest):
    def setUp(self):
        super().setUp()
        self.server = XServer("800x600", with_opengl=True)
        self.addCleanup(self.server.close)

    def bundle(self, program, *arguments, opengl=False):
        path = self.home.path / "Test.saver"
        (path / "Contents").mkdir(parents=True, exist_ok=True)
        info = {"NSPrincipalClass": "HackHost", "KestroProgram": program, "KestroArguments": list(arguments),
                "KestroOpenGL": opengl}
        (path / "Contents" / "Info.plist").write_bytes(plistlib.dumps(info))
        return path

    def start(self, bundle, ready):
        environment = self.home.environment(DISPLAY=self.server.display, QT_QPA_PLATFORM="xcb")
        process = subprocess.Popen([PROBE, str(bundle)], env=environment, stdin=subprocess.DEVNULL,
                                   start_new_session=True)
        self.addCleanup(self.end, process)
        wait_until(lambda: ready(self.server.picture()), "the hack's picture")
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.wait()

    def gone(self, pids):
        wait_until(lambda: not pids & processes().keys(), "the hack's end")

    def hack_of(self, process, program):
        """The hack's process and the window that it draws in."""
        for pid in below(process.pid):
            command = processes().get(pid, ("", 0))[0]
            found = re.search(program + r" .*--window-id (0x[0-9a-f]+)", command)
            if found and "kestro-hack-guard" not in command:
                return pid, found[1]
        raise AssertionError(f"no {program} runs")

    def check_picture(self, program, opengl):
        """The screen shows what the hack drew in its window, pixel by pixel."""
        process = self.start(self.bundle(program, opengl=opengl), lambda shown: is_lively(shown.bytes))
        hack, window = self.hack_of(process, program)
        os.kill(hack, signal.SIGSTOP)

        def drawn():
            return subprocess.run([FAKE_HACK, "--read", "--window-id", window], check=True, capture_output=True,
                                  env={**os.environ, "DISPLAY": self.server.display}).stdout

        wait_until(lambda: self.server.picture().bytes == drawn(), "the hack's last picture on the screen")
        self.assertTrue(is_lively(drawn()))
        hacks = below(process.pid)
        self.assertEqual(len(hacks), 2, "the hack and its guard")
        process.terminate()
        self.gone(hacks)
        self.assertEqual(process.wait(), 0)

    def test_the_screen_shows_what_a_hack_draws(self):
        self.check_picture("fuzzyflakes", False)

    def test_the_screen_shows_what_a_hack_draws_with_opengl(self):
        self.check_picture("gears", True)

    def test_a_hack_that_draws_with_opengl_gets_the_visual_for_it(self):
        process = self.start(self.bundle("gears", opengl=True), lambda shown: not shown.is_blank())
        _, window = self.hack_of(process, "gears")
        told = self.server.run("/usr/libexec/xscreensaver/xscreensaver-gl-visual").strip()
        found = re.search(r"Visual: (0x[0-9a-f]+)", self.server.run("xwininfo", "-id", window))
        self.assertEqual(int(found[1], 16), int(told, 16))

    def test_signals_reach_a_hack(self):
        process = self.start(self.bundle("fuzzyflakes"), lambda shown: is_lively(shown.bytes))
        hack, _ = self.hack_of(process, "fuzzyflakes")
        status = pathlib.Path(f"/proc/{hack}/status").read_text()
        self.assertRegex(status, "SigBlk:\t0+\n")
        process.terminate()
        self.assertEqual(process.wait(), 0)

    def test_nothing_is_left_however_the_saver_ends(self):
        for number in (signal.SIGTERM, signal.SIGKILL, signal.SIGINT, signal.SIGHUP, signal.SIGSEGV):
            for options in ((), ("--stubborn",), ("--flee",), ("--stubborn", "--flee")):
                with self.subTest(signal=number.name, options=options):
                    log = self.home.path / "log"
                    log.unlink(missing_ok=True)
                    bundle = self.bundle(FAKE_HACK, "--log", str(log), *options)
                    process = self.start(bundle, lambda shown: shown.at(400, 300) == (255, 0, 0))
                    hacks = below(process.pid) | {int(line.split()[0]) for line in log.read_text().splitlines()}
                    self.assertEqual(len(hacks), 3 if "--flee" in options else 2)
                    process.send_signal(number)
                    process.wait()
                    self.gone(hacks)

    def test_the_hack_ends_when_its_guard_is_killed_and_is_started_anew(self):
        log = self.home.path / "log"
        process = self.start(self.bundle(FAKE_HACK, "--log", str(log)), lambda shown: shown.at(9, 9) == (255, 0, 0))
        before = below(process.pid)
        guard = next(pid for pid in before if "kestro-hack-guard" in processes()[pid][0])
        os.kill(guard, signal.SIGKILL)
        self.gone(before)
        wait_until(lambda: len(log.read_text().splitlines()) == 2, "the hack's second run")


if __name__ == "__main__":
    unittest.main()
