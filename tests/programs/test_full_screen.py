"""kestro idle leaves a person alone who watches something that covers the screen and is heard, and asks for nothing itself."""

import os
import subprocess
import unittest

from harness import BOUND, hear_end_of, movie, wait_until
from idletest import IdleTest
from wayland import Session
from xserver import XServer

PLAYER = {"kind": "fullScreen", "who": "Player", "why": ""}


class FullScreen:
    """What is the same on each display; the sound server is one that the test plays."""

    def setUp(self):
        super().setUp()
        self.programs = self.home.path / "programs"
        self.programs.mkdir()
        self.play_sound(True)

    def play_sound(self, is_played):
        corked = "false" if is_played else "true"
        told = ('{"sources": [], "source_outputs": [], "sink_inputs": [{"corked": %s, "mute": false, '
                '"properties": {"application.name": "Player"}}]}' % corked)
        script = self.programs / "pactl.new"
        script.write_text(f"#!/bin/sh\necho '{told}'\n")
        script.chmod(0o755)
        script.rename(self.programs / "pactl")

    def environment(self, **more):
        return super().environment(PATH=f"{self.programs}:{os.environ['PATH']}", PULSE_SERVER="unix:/nowhere", **more)

    def watch(self, *words):
        """A player's window, which asks the desktop for nothing, until it is closed."""
        command = ["mpv", "--no-config", "--no-audio", "--really-quiet", "--loop-file=inf", "--no-stop-screensaver", *words,
                   str(movie("watched", "green", seconds=60))]
        player = subprocess.Popen(command, env=self.environment(), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL)
        hear_end_of(player)
        self.addCleanup(self.end, player)
        return player

    def hindrances(self):
        """Those that keep it away; nothing while it is not kept away."""
        status = self.status()
        return status["hindrances"] if status.get("state") == "idle" else None

    def wait_for_saver(self):
        wait_until(lambda: self.status().get("state") == "showing", "the saver")

    def test_it_stays_away_while_both_are_so(self):
        player = self.watch("--fs")
        self.wait_for_player(True)
        self.serve("--after", "2s")
        wait_until(lambda: self.hindrances() == [PLAYER], "that it is kept away")
        self.assertIn("full screen with sound by Player", self.ask("--status").stdout)
        self.end(player)
        self.act()  # it looks again when the person goes again
        self.wait_for_saver()

    def test_a_window_that_covers_nothing_is_no_reason(self):
        self.watch("--geometry=100x80")
        self.wait_for_player(False)
        self.serve("--after", "1s")
        self.wait_for_saver()

    def test_what_is_not_heard_is_no_reason(self):
        self.play_sound(False)
        self.watch("--fs")
        self.wait_for_player(True)
        self.serve("--after", "1s")
        self.wait_for_saver()


class UnderX11(FullScreen, IdleTest):
    def setUp(self):
        super().setUp()
        self.server = XServer()
        self.addCleanup(self.server.close)
        manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment(), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        hear_end_of(manager)
        self.addCleanup(self.end, manager)
        wait_until(lambda: "window id" in self.server.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "openbox")

    def display_environment(self):
        return {"DISPLAY": self.server.display}

    def watch(self, *words):
        return super().watch("--vo=x11", *words)

    def wait_for_player(self, covers):
        wait_until(lambda: self.active_window() and self.is_covered() == covers, "the player")

    def active_window(self):
        number = self.server.run("xprop", "-root", "_NET_ACTIVE_WINDOW").split()[-1]
        return number if number.startswith("0x") and number != "0x0" else None

    def is_covered(self):
        return "_FULLSCREEN" in self.server.run("xprop", "-id", self.active_window(), "_NET_WM_STATE")

    def act(self):
        self.server.run("xdotool", "key", "shift")


class UnderWayland(FullScreen, IdleTest):
    def setUp(self):
        super().setUp()
        self.session = Session()
        self.addCleanup(self.session.close)

    def display_environment(self):
        return {"WAYLAND_DISPLAY": self.session.display}

    def watch(self, *words):
        return super().watch("--vo=wlshm", *words)

    def wait_for_player(self, covers):
        wait_until(lambda: [bool(place) for place in self.session.views()] == [covers], "the player")

    def act(self):
        subprocess.run(["wtype", "a"], env=self.session.environment(), check=True, timeout=BOUND)


if __name__ == "__main__":
    unittest.main()
