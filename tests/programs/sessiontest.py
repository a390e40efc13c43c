"""A person's X11 session with one monitor or two, for the tests of what `kestro` takes of it and what it leaves."""

import re
import subprocess

from harness import RED, ProgramTest, end_process, movie, wait_until
from inputclient import InputClient
from xserver import XServer

PARENT = 2  # where the focus would go from a window that a program gave it to
SCREEN = (1000, 400)


class Session(ProgramTest):
    """A desk of one monitor, and another program with a window below the saver that hears all it can."""

    def setUp(self):
        super().setUp()
        self.server = XServer("1000x400")
        self.addCleanup(self.server.close)
        self.server.move_pointer(100, 100)
        self.other = self.program()
        self.home.play([movie("long-red", "red", seconds=60)], FullScreenMode="1", PlayMode="1", Continue="1")

    def program(self):
        client = InputClient(self.server)
        self.addCleanup(client.close)
        return client

    def plug_two_monitors(self):
        self.server.run("xrandr", "--setmonitor", "LEFT", "600/159x400/106+0+0", "screen")
        self.server.run("xrandr", "--setmonitor", "RIGHT", "400/106x400/106+600+0", "none")

    def manage(self):
        """Runs a window manager."""
        has_started = self.home.path / "window-manager"
        manager = subprocess.Popen(["openbox", "--sm-disable", "--startup", f"touch {has_started}"],
                                   env=self.home.environment(DISPLAY=self.server.display), start_new_session=True,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(end_process, manager)
        wait_until(has_started.exists, "the window manager")

    def terminal(self):
        """A window over the whole desk, with the focus."""
        window = self.other.window(*SCREEN)

        def has_focus():
            self.other.focus(window)
            return self.other.owner()[0] == window

        wait_until(has_focus, "the focus")
        return window

    def showing(self, **environment):
        process = self.start_kestro(DISPLAY=self.server.display, **environment)
        wait_until(lambda: process.poll() is not None or self.is_red(), "the movie")
        self.assertIsNone(process.poll())
        return process

    def is_red(self):
        picture = self.server.picture()
        return picture.is_near(200, 200, RED) and picture.is_near(800, 200, RED)

    def await_desktop(self):
        wait_until(lambda: not self.is_red(), "the desktop")

    def assertEndsWell(self, process):
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertNotIn("XCB error", errors)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "long-red.mp4")

    def heard(self):
        """The keys and buttons that reached the other program."""
        return [line for line in self.other.heard() if not line.startswith("focus")]

    def stack(self):
        """The numbers of the windows on the root, highest first."""
        tree = self.server.tree()
        return [int(number, 16) for number in re.findall(r"^     (0x[0-9a-f]+) ", tree, re.M)]

    def pictures(self):
        """The numbers of the savers' windows that are shown."""
        tree = self.server.tree()
        found = re.findall(r'^     (0x[0-9a-f]+) "Kestro"', tree, re.M)
        return [int(number, 16) for number in found if self.server.is_viewable(number)]

    def saver_has_focus(self):
        """The part of a window's number that says whose it is."""
        return self.other.owner()[0] & ~0x1fffff in {picture & ~0x1fffff for picture in self.pictures()}

    def await_look(self, picture, above):
        """Until the saver has seen what lies above its picture since now, and has stayed below that window: it goes above
        an ordinary one that is put in between."""
        between = self.other.window(50, 50)
        self.other.raise_window(between)
        self.server.run("xdotool", "windowraise", str(above))
        wait_until(lambda: self.stack().index(picture) < self.stack().index(between), "the saver's look at the windows")
        self.assertLess(self.stack().index(above), self.stack().index(picture))
        self.other.destroy(between)
