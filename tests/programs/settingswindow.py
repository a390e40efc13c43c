"""The window with the settings on a display of its own, for the tests that use it as a person would."""

import os
import pathlib
import re
import shlex
import subprocess

from harness import BOUND, KESTRO, ProgramTest, end_process, turn_event_loop, wait_until
from xserver import XServer

BUTTON_IS_DOWN = 0.15  # seconds, at least, once its key was pressed: Qt lets it up again after 0.1
TITLE = "Kestro Settings"
PROGRAM = pathlib.Path(KESTRO).resolve().parent.parent / "lib/kestro/kestro-settings"


class SettingsTest(ProgramTest):
    """A test with a display of 1024 by 768 and a window manager."""

    def setUp(self):
        super().setUp()
        self.server = XServer("1024x768")
        self.addCleanup(self.server.close)
        # While it starts it can miss a window for good, and it says that it is there before that is over.
        has_started = self.home.path / "window-manager"
        manager = subprocess.Popen([*self.window_manager(), "--startup", f"touch {shlex.quote(str(has_started))}"],
                                   env=self.display(), start_new_session=True, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(end_process, manager)
        wait_until(has_started.exists, "the window manager")

    def window_manager(self):
        """Its command."""
        return ["openbox"]

    def display(self, **more):
        return self.home.environment(DISPLAY=self.server.display, **more)

    def start_window(self, **environment):
        """The program and the number of its window, once that has the focus."""
        process = self.start_kestro("settings", DISPLAY=self.server.display, **environment)
        return process, self.window(TITLE)

    def window(self, title):
        """The number of the window of that title, once it is shown and has the focus."""
        return wait_until(lambda: self._focused(title), f'the window "{title}"')

    def _focused(self, title):
        active = re.search(r"# (0x[0-9a-f]+)", self.server.run("xprop", "-root", "_NET_ACTIVE_WINDOW"))
        if not active or self.title(active[1]) != title:
            return None
        # The window manager says so before it is so: what is pressed until then goes elsewhere.
        focus = subprocess.run(["xdotool", "getwindowfocus"], env=self.display(), capture_output=True, text=True,
                               timeout=BOUND, check=False).stdout.strip()
        return active[1] if focus == str(int(active[1], 16)) else None

    def title(self, window):
        shown = subprocess.run(["xprop", "-id", window, "_NET_WM_NAME"], env=self.display(), capture_output=True, text=True,
                               timeout=BOUND, check=False).stdout
        found = re.search(r'= "(.*)"', shown)
        return found and found[1]

    def client_numbers(self):
        """Of all windows that the window manager has."""
        return re.findall(r"0x[0-9a-f]+", self.server.run("xprop", "-root", "_NET_CLIENT_LIST"))

    def titles(self):
        return [self.title(number) for number in self.client_numbers()]

    def place(self, window):
        """(x, y, width, height) of a window, without its frame."""
        shown = self.server.run("xwininfo", "-id", window)
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(re.search(rf"{name}: +(-?\d+)", shown)[1]) for name in names)

    def point(self, *steps):
        """What xdotool does with the mouse, in one go: words as "mousemove 10 20", "mousedown 1", "keydown alt"."""
        self.server.run("xdotool", *(word for step in steps for word in step.split()))

    def press(self, *keys):
        self.server.run("xdotool", "key", "--clearmodifiers", *keys)

    def press_slowly(self, *keys):
        """The same, and each key only once the one before has had its effect: a button that was pressed by its key goes
        down, and up again, before it does anything."""
        for key in keys:
            self.press(key)
            self.settle()

    def settle(self):
        """Waits until the screen stands still for longer than a button stays down that was pressed by its key."""
        shown = [self.server.picture().bytes]

        def stands_still():
            turn_event_loop(BUTTON_IS_DOWN)
            shown.append(self.server.picture().bytes)
            return shown[-1] == shown.pop(0)

        wait_until(stands_still, "the screen to stand still")

    def drop(self, paths, x, y):
        """Drags files and folders from another program, and drops them there."""
        source = subprocess.Popen([os.environ["DRAG_SOURCE"], *map(str, paths)], env=self.display(), stdin=subprocess.DEVNULL)
        self.addCleanup(end_process, source)
        self.server.run("xdotool", "search", "--sync", "--onlyvisible", "--name", "^drag source$")
        wait_until(lambda: source.poll() is not None or self._drag(x, y), "the end of the drag")

    def _drag(self, x, y):
        """A drop counts where the window below has answered to what is over it, which may take a moment."""
        self.point("mousemove 20 20", "mousedown 1", "mousemove 60 60", f"mousemove {x} {y}")
        self.settle()
        self.point(f"mousemove {x + 1} {y}")
        self.settle()
        self.point("mouseup 1")
        self.settle()

    def middle_of_preview(self, window):
        """A place well inside the preview, which is the upper part of the window."""
        x, y, width, height = self.place(window)
        return x + width // 2, y + height // 3

    def shows(self, window, colour):
        """Whether the preview shows a movie of that colour."""
        return self.server.picture().is_near(*self.middle_of_preview(window), colour)

    def children(self, process):
        """What the program has started that is still there."""
        listed = subprocess.run(["pgrep", "-P", str(process.pid)], capture_output=True, text=True, check=False).stdout
        return [int(number) for number in listed.split()]

    def close_window(self, process):
        """Closes the window; the program must end with success and leave nothing behind."""
        children = self.children(process)
        # A key that comes while the window manager still moves the focus is lost.
        wait_until(lambda: process.poll() is not None or self.press("ctrl+w"), "the end of the program")
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        wait_until(lambda: not any(os.path.exists(f"/proc/{child}") for child in children), "the end of what it started")
        return errors
