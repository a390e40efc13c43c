"""`kestro` on monitors that come, go and change while it plays: every look is at the pixels of the whole desk."""

import signal
import unittest

from harness import BLACK, RED, ProgramTest, movie, wait_until
from xserver import XServer

FULL_SCREEN = {"FullScreenMode": "1", "PlayMode": "1"}
BOUNCE = {"FullScreenMode": "0", "PartialMode": "1", "Scale": "1", "Fadeout": "0", "PlayMode": "1"}


class Monitor:
    """A part of the desk that is made a monitor; its picture is counted from the top left of the desk."""

    def __init__(self, name, width, height, x, y, is_real=False):
        self.name, self.width, self.height, self.x, self.y = name, width, height, x, y
        self.output = "screen" if is_real else "none"

    def geometry(self):
        return f"{self.width}/{self.width // 4}x{self.height}/{self.height // 4}+{self.x}+{self.y}"

    def window(self):
        return (self.width, self.height, self.x, self.y)

    def area(self):
        return (self.x, self.y, self.width, self.height)

    def covers(self, x, y):
        return self.x <= x < self.x + self.width and self.y <= y < self.y + self.height


class Desk(ProgramTest):
    """A desk that is larger than its monitors; what no monitor covers is to stay black."""

    def setUp(self):
        super().setUp()
        self.server = XServer("720x480")
        self.addCleanup(self.server.close)
        self.server.move_pointer(5, 475)

    def plug_in(self, monitor, is_first=False):
        name = ("*" if is_first else "") + monitor.name
        self.server.run("xrandr", "--setmonitor", name, monitor.geometry(), monitor.output)

    def pull_out(self, monitor):
        self.server.run("xrandr", "--delmonitor", monitor.name)

    def start(self, *words, **environment):
        return self.start_kestro(*words, DISPLAY=self.server.display, **environment)

    def until(self, process, condition, what):
        answer = wait_until(lambda: process.poll() is not None or condition(), what)
        self.assertIsNone(process.poll(), process.poll() is not None and self.ended(process))
        return answer

    def shows_exactly(self, *monitors):
        """Whether these monitors are red from corner to corner, and all else of the desk is black. What is looked at
        keeps clear of edges: monitors stand on multiples of 8, and a movie stands two rows low."""
        picture = self.server.picture()
        return all(self.is_right(picture, x, y, monitors) for x in range(4, picture.width, 8)
                   for y in range(4, picture.height, 8))

    @staticmethod
    def is_right(picture, x, y, monitors):
        wanted = RED if any(monitor.covers(x, y) for monitor in monitors) else BLACK
        return picture.is_near(x, y, wanted)

    def await_exactly(self, process, *monitors):
        names = " and ".join(monitor.name for monitor in monitors)
        self.until(process, lambda: self.shows_exactly(*monitors), f"the movie on {names} alone")
        self.assertEqual(sorted(self.server.windows()), sorted(monitor.window() for monitor in monitors))

    def assertEndsWell(self, process):
        process.send_signal(signal.SIGTERM)
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        self.assertEqual(self.server.windows(), [])


class HotPlug(Desk):
    def setUp(self):
        super().setUp()
        self.home.play([movie("long-red", "red", seconds=60)], **FULL_SCREEN)

    def test_a_monitor_that_appears_gets_a_saver(self):
        first = Monitor("MAIN", 320, 240, 0, 0, is_real=True)
        second = Monitor("SIDE", 256, 192, 400, 40)
        self.plug_in(first)
        process = self.start()
        self.await_exactly(process, first)
        self.plug_in(second)
        self.await_exactly(process, first, second)
        self.assertEndsWell(process)

    def test_a_monitor_that_goes_leaves_the_others_playing(self):
        self.home.play([movie("blinking", "red", seconds=60, is_blinking=True)], **FULL_SCREEN)
        first = Monitor("MAIN", 320, 240, 0, 0, is_real=True)
        second = Monitor("SIDE", 256, 192, 400, 40)
        self.plug_in(first)
        self.plug_in(second)
        process = self.start()
        self.until(process, lambda: self.shows_exactly(first, second), "the movie on both")
        self.pull_out(second)
        for colour in (RED, BLACK, RED):
            monitors = [first] if colour == RED else []
            self.until(process, lambda shown=monitors: self.shows_exactly(*shown), f"{colour} on the first")
        self.assertEqual(self.server.windows(), [first.window()])
        self.assertEndsWell(process)

    def test_the_first_monitor_may_go(self):
        first = Monitor("MAIN", 320, 240, 0, 0)
        second = Monitor("SIDE", 256, 192, 400, 40, is_real=True)
        self.plug_in(second)
        self.plug_in(first, is_first=True)
        process = self.start()
        self.await_exactly(process, first, second)
        self.pull_out(first)
        self.await_exactly(process, second)
        self.assertEndsWell(process)

    def test_a_monitor_left_of_and_above_the_first(self):
        first = Monitor("MAIN", 320, 240, 320, 224, is_real=True)
        second = Monitor("SIDE", 256, 192, 24, 24)
        self.plug_in(first, is_first=True)
        process = self.start()
        self.await_exactly(process, first)
        self.plug_in(second)
        self.await_exactly(process, first, second)
        self.assertEndsWell(process)


class Change(Desk):
    def setUp(self):
        super().setUp()
        self.home.play([movie("long-red", "red", seconds=60)], **FULL_SCREEN)

    def test_another_resolution_has_the_movie_resized(self):
        process = self.start()
        self.until(process, lambda: self.server.picture().is_near(360, 240, RED), "the movie")
        for width, height in [(640, 480), (320, 240), (560, 420)]:
            self.set_mode(width, height)
            self.await_exactly(process, Monitor("WHOLE", width, height, 0, 0))
        self.assertEndsWell(process)

    def set_mode(self, width, height):
        """A mode's times count nothing here, but each must be larger than the one before."""
        name = f"mode{width}"
        across, down = ([str(length + more) for more in (0, 8, 16, 24)] for length in (width, height))
        self.server.run("xrandr", "--newmode", name, "25", *across, *down)
        self.server.run("xrandr", "--addmode", "screen", name)
        self.server.run("xrandr", "--output", "screen", "--mode", name)

    def test_a_monitor_that_comes_back_elsewhere_and_smaller_gets_its_movie_there(self):
        first = Monitor("MAIN", 320, 240, 0, 0, is_real=True)
        self.plug_in(first)
        before = Monitor("SIDE", 256, 192, 400, 40)
        self.plug_in(before)
        process = self.start()
        self.await_exactly(process, first, before)
        # Seen to be gone first: Qt does not notice a made monitor that only changes.
        self.pull_out(before)
        self.await_exactly(process, first)
        after = Monitor("SIDE", 192, 144, 40, 304)
        self.plug_in(after)
        self.await_exactly(process, first, after)
        self.assertEndsWell(process)


class Bounce(Desk):
    size = (64, 46)  # a movie's own, less the two rows by which it stands low

    def setUp(self):
        super().setUp()
        self.home.play([movie("small-red", "red", seconds=60, size="64x48")], **BOUNCE)
        self.monitors = [Monitor("MAIN", 320, 240, 0, 0, is_real=True), Monitor("SIDE", 256, 192, 320, 0)]
        for monitor in self.monitors:
            self.plug_in(monitor)

    def places(self):
        """The (left, top) of the movie on each monitor; nothing where one does not show all of it, or more."""
        picture = self.server.picture()
        boxes = [picture.box_of_red(*monitor.area()) for monitor in self.monitors]
        return tuple(box[:2] for box in boxes) if all(box and self.is_whole(box) for box in boxes) else None

    def is_whole(self, box):
        """A movie turns once it is over the border, by a step at most, and a picture may be of the middle of the next."""
        step = 8
        return all(abs(length - wanted) <= 2 * step for length, wanted in zip(box[2:], self.size))

    def test_each_movie_keeps_to_its_own_monitor(self):
        process = self.start()
        self.until(process, self.places, "both movies")
        tracks = [[], []]
        wait_until(lambda: self.follow(process, tracks), "both movies to turn")
        self.assertEndsWell(process)

    def follow(self, process, tracks):
        """Notes where the movies are; whether each has turned."""
        places = self.places()
        self.assertIsNone(process.poll())
        self.assertTrue(places, "a movie has left its monitor")
        for track, place in zip(tracks, places):
            track.append(place)
        return all(self.has_turned(track) for track in tracks)

    @staticmethod
    def has_turned(track):
        """Whether it has been at a border, which sends it back: to the right and to the left, or up and down."""
        return any({before < after for before, after in zip(line, line[1:]) if before != after} == {True, False}
                   for line in zip(*track))


if __name__ == "__main__":
    unittest.main()
