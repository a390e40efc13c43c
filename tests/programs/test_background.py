"""`kestro` with another saver behind the movies: hacks, pictures, and what happens where there can be none."""

import pathlib
import unittest

from background import (BOUNCE, FIVE, FLY, SlidePreferences, commands_of, draw_pictures, processes_with,
                        put_picture_background, put_pictures_saver, savers_of, write_bundle)
from harness import BLACK, BLUE, KESTRO, RED, ProgramTest, Rendering, movie, wait_until
from wayland import Session
from xserver import XServer

WIDTH, HEIGHT = 640, 480
SHADOW = 18  # how far the shadow of a movie in a window of its own reaches
KESTRO_BUNDLE = pathlib.Path(KESTRO).parent.parent / "lib" / "kestro" / "Kestro.saver"


def red_block(picture, left=0, top=0, width=WIDTH, height=HEIGHT):
    """(left, top, width, height) of the red around the middle of a part of the picture; nothing where that is not red."""
    x, y = left + width // 2, top + height // 2
    if not picture.is_near(x, y, RED):
        return None
    sides = []
    for dx, dy in ((-1, 0), (1, 0), (0, -1), (0, 1)):
        at = x, y
        while left <= at[0] + dx < left + width and top <= at[1] + dy < top + height and \
                picture.is_near(at[0] + dx, at[1] + dy, RED):
            at = at[0] + dx, at[1] + dy
        sides.append(at)
    (first, _), (last, _), (_, upper), (_, lower) = sides
    return first, upper, last - first + 1, lower - upper + 1


def is_in(x, y, box, margin=0):
    left, top, width, height = box
    return left - margin <= x < left + width + margin and top - margin <= y < top + height + margin


class BackgroundTest(ProgramTest):
    """A movie of more than half the screen's size, so that wherever it stands it covers the middle."""

    def setUp(self):
        super().setUp()
        self.movie = movie("above", "red", seconds=60, size="336x252")

    def use_server(self):
        self.server = XServer(f"{WIDTH}x{HEIGHT}", with_opengl=True)
        self.addCleanup(self.server.close)
        self.server.move_pointer(WIDTH - 1, HEIGHT - 1)

    def import_hack(self, name):
        """The bundle of an installed hack."""
        self.run_kestro("import-hacks", name)
        [bundle] = savers_of(self.home).iterdir()
        return str(bundle)

    def play(self, saver, **settings):
        self.home.play([self.movie], BackSaver=str(saver), **{"Interval": "1000", **FLY, **settings})

    def start(self):
        return self.start_kestro(DISPLAY=self.server.display)

    def until(self, process, condition, what):
        answer = wait_until(lambda: process.poll() is not None or condition(), what)
        self.assertIsNone(process.poll(), process.poll() is not None and self.ended(process))
        return answer

    def stop(self, process):
        """Ends it well; answers what it said on standard error."""
        process.terminate()
        status, errors = self.ended(process)
        self.assertEqual(status, 0, errors)
        return errors

    def shows_movie(self, *area):
        return red_block(self.server.picture(), *area)


class Hacks(BackgroundTest):
    def setUp(self):
        super().setUp()
        self.use_server()

    def started_above(self, hack):
        """A run above the hack: the movie stands whole, and around it three pictures that differ were seen."""
        self.play(self.import_hack(hack))
        process = self.start()
        looks = set()

        def moves_around():
            picture = self.server.picture()
            box = red_block(picture)
            if box and box[2] == 336:
                around = [picture.at(x, y) for y in range(2, HEIGHT, 4) for x in range(2, WIDTH, 4)
                          if not is_in(x, y, box, margin=4)]
                if set(around) != {BLACK}:
                    looks.add(tuple(around))
            return len(looks) >= 3

        self.until(process, moves_around, f"{hack} moving around the movie")
        return process

    def family(self, hack):
        """The processes of this test; the hack is one of them."""
        processes = processes_with(str(self.home.path))
        self.assertIn(hack, commands_of(processes))
        return processes

    def assertGone(self, processes):
        wait_until(lambda: not commands_of(processes), "the end of every process")

    def test_a_movie_plays_above_a_plain_hack(self):
        process = self.started_above("fuzzyflakes")
        family = self.family("fuzzyflakes")
        self.stop(process)
        self.assertGone(family)

    def test_a_movie_plays_above_one_that_draws_with_opengl(self):
        process = self.started_above("gears")
        family = self.family("gears")
        self.stop(process)
        self.assertGone(family)

    def test_nothing_is_left_when_the_saver_is_killed(self):
        process = self.started_above("fuzzyflakes")
        family = self.family("fuzzyflakes")
        process.kill()
        process.wait()
        self.assertGone(family)

    def test_the_resume_point_is_stored(self):
        self.play(self.import_hack("fuzzyflakes"), Continue="1")
        process = self.start()
        self.until(process, self.shows_movie, "the movie")
        self.stop(process)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "above.mp4")

    def test_each_monitor_has_its_own_that_goes_with_it(self):
        left, right = (0, 0, 320, HEIGHT), (320, 0, 320, HEIGHT)
        self.server.run("xrandr", "--setmonitor", "LEFT", "320/80x480/120+0+0", "screen")
        self.server.run("xrandr", "--setmonitor", "RIGHT", "320/80x480/120+320+0", "none")
        self.play(self.import_hack("fuzzyflakes"), Scale="0.6")
        process = self.start()

        def hacks():
            return commands_of(processes_with(str(self.home.path))).count("fuzzyflakes")

        def reds(area):
            return self.server.picture().box_of_red(*area)

        self.until(process, lambda: reds(left) and reds(right) and hacks() == 2, "a movie and a hack on each monitor")
        self.server.run("xrandr", "--delmonitor", "RIGHT")
        self.until(process, lambda: reds(left) and not reds(right) and hacks() == 1, "those of one monitor")
        self.stop(process)

    def test_pure_wayland_has_none_and_the_saver_runs_directly(self):
        session = Session()
        self.addCleanup(session.close)
        self.play(self.import_hack("fuzzyflakes"), Scale="0.65")
        process = self.start_kestro(WAYLAND_DISPLAY=session.display)
        self.until(process, lambda: session.picture().box_of_red(0, 0, 400, 300), "the movie")
        errors = self.stop(process)
        self.assertIn("Failed to create background saver.\n", errors)
        reasons = [line for line in errors.splitlines() if "Fuzzy Flakes.saver" in line]
        self.assertTrue(reasons and all("X" in reason for reason in reasons), errors)


class OverOneColour(BackgroundTest):
    """A background that stands still and is blue all over: every pixel of what lies above it can be told."""

    def setUp(self):
        super().setUp()
        self.saver = put_picture_background(self.home)

    def rendering(self, seconds, movies=None, **settings):
        """What is seen at the end of a run, with its trace. By then the background has faded in."""
        self.play(self.saver, **settings)
        if movies is not None:
            self.home.play(movies, BackSaver=self.saver, **settings)
        return Rendering(self, seconds=seconds, every=60, size=f"{WIDTH}x{HEIGHT}")

    @staticmethod
    def from_top(frame):
        """A rectangle of the trace as (left, top, width, height)."""
        x, y, width, height = frame
        return int(x), int(HEIGHT - y - height), int(width), int(height)

    def assertBlueBut(self, picture, *boxes, margin=2):
        for y in range(1, HEIGHT, 3):
            for x in range(1, WIDTH, 3):
                if not any(is_in(x, y, box, margin=margin) for box in boxes):
                    self.assertEqual(picture.at(x, y), BLUE, (x, y, boxes))

    def test_the_movie_stands_on_it(self):
        done = self.rendering(seconds=5)
        last = done.trace[-1]
        self.assertEqual([each["kind"] for each in last["windows"]], ["host", "saver"])
        host, saver = last["windows"]
        self.assertGreater(saver["level"], host["level"])
        self.assertEqual(saver["frame"], [0, 0, WIDTH, HEIGHT])
        box = self.from_top(last["movie"]["frame"])
        picture = done.last_picture()
        self.assertTrue(picture.is_near(box[0] + 100, box[1] + 100, RED))
        self.assertBlueBut(picture, box)

    def test_ticks_come_as_often_as_without_it(self):
        times = [line["t"] for line in self.rendering(seconds=3).movie_lines()]
        gaps = sorted(later - earlier for earlier, later in zip(times, times[1:]))
        self.assertAlmostEqual(gaps[len(gaps) // 2], 0.05, delta=0.01)

    def test_the_place_that_the_movie_left_fades_into_it(self):
        done = self.rendering(seconds=2.9, Scale="0.5", Fadeout="1", Interval="2")
        last = done.trace[-1]
        self.assertTrue(last["fading"])
        [fade] = [each for each in last["windows"] if each["kind"] == "fade"]
        left, box = self.from_top(fade["frame"]), self.from_top(last["movie"]["frame"])
        picture = done.last_picture()
        free = [(x, y) for x in range(left[0] + 4, left[0] + left[2] - 4) for y in range(left[1] + 4, left[1] + left[3] - 4)
                if not is_in(x, y, box, margin=2)]
        red, green, blue = picture.at(*free[len(free) // 2])
        self.assertTrue(20 < red < 235 and green < 20 and 20 < blue < 235, (red, green, blue))
        self.assertAlmostEqual(red, 255 * fade["alpha"], delta=30)
        self.assertBlueBut(picture, left, box)

    def test_a_trail_fades_on_it_and_leaves_nothing_behind(self):
        done = self.rendering(seconds=5, **{**BOUNCE, "Scale": "0.4"}, Fadeout="1")
        lines = done.movie_lines()
        self.assertEqual(lines[-1]["trail"], 5)
        boxes = [self.from_top(line["movie"]["frame"]) for line in lines]
        picture = done.last_picture()
        self.assertBlueBut(picture, *boxes[-70:], margin=SHADOW)
        self.assertLess(len(boxes[-70:]), len(boxes))
        mixed = [picture.at(x, y) for y in range(1, HEIGHT, 3) for x in range(1, WIDTH, 3)
                 if not is_in(x, y, boxes[-1], margin=2)]
        self.assertTrue(any(red > 40 and blue > 40 for red, _, blue in mixed))

    def test_the_sign_wanders_half_opaque_and_leaves_nothing_behind(self):
        done = self.rendering(seconds=4, movies=[], **FLY)
        signs = [line["sign"] for line in done.trace if line["sign"]]
        self.assertGreater(len({tuple(sign) for sign in signs}), 10)
        left, top, width, height = box = self.from_top(signs[-1])
        picture = done.last_picture()
        self.assertBlueBut(picture, box)
        for x, y in ((left + 3, top + 3), (left + width - 4, top + height - 4)):  # its edge is black
            red, green, blue = picture.at(x, y)
            self.assertEqual((red, green), (0, 0))
            self.assertAlmostEqual(blue, 127, delta=3)

    def test_full_screen_has_none(self):
        done = self.rendering(seconds=4, FullScreenMode="1")
        self.assertEqual({each["kind"] for line in done.trace for each in line["windows"]}, {"host"})
        self.assertEqual(done.last_picture().at(2, 2)[2], 0)


class SlideShow(BackgroundTest):
    """A bundle of five pictures, run through the saver of picture folders."""

    def setUp(self):
        super().setUp()
        self.use_server()
        put_pictures_saver(self.home)
        self.bundle = savers_of(self.home) / "Five.slideSaver"
        self.pictures = self.bundle / "Contents" / "Resources"
        draw_pictures(self.pictures, FIVE)
        self.preferences = SlidePreferences(self.home)
        self.original = {"SlideFolder": "/home/me/Holiday", "Zoom": True}
        self.preferences.write(**self.original)
        self.play(self.bundle)

    def seen(self):
        """The colour of the picture behind, once it stands alone."""
        picture = self.server.picture()
        colours = {name for name, colour in FIVE.items() if any(
            picture.at(x, y) == colour for x, y in ((1, 1), (WIDTH - 3, 1), (1, HEIGHT - 3)))}
        return colours.pop() if len(colours) == 1 and red_block(picture) else None

    def showing(self):
        process = self.start()
        self.until(process, self.seen, "a picture behind the movie")
        self.assertEqual(self.preferences.read()["SlideFolder"], str(self.pictures))
        self.assertEqual(self.preferences.read()["Zoom"], True)
        return process

    def test_its_pictures_are_shown_one_after_the_other(self):
        process = self.showing()
        colours = set()
        self.until(process, lambda: colours.add(self.seen()) or len(colours - {None}) >= 3, "three of the pictures")
        self.stop(process)

    def test_the_folder_is_put_back_when_it_stops(self):
        self.assertEqual(self.stop(self.showing()).count("failed"), 0)
        self.assertEqual(self.preferences.read(), self.original)

    def test_the_folder_is_put_back_after_a_kill_and_the_next_start_and_stop(self):
        for _ in range(2):
            process = self.showing()
            process.kill()
            process.wait()
            self.assertEqual(self.preferences.read()["SlideFolder"], str(self.pictures))
        self.stop(self.showing())
        self.assertEqual(self.preferences.read(), self.original)

    def test_a_run_without_it_leaves_the_folder_to_the_next_with_it_after_a_kill(self):
        process = self.showing()
        process.kill()
        process.wait()
        self.home.play([self.movie], **FLY)
        process = self.start()
        self.until(process, self.shows_movie, "the movie")
        self.stop(process)
        self.assertEqual(self.preferences.read()["SlideFolder"], str(self.pictures))
        self.play(self.bundle)
        self.stop(self.showing())
        self.assertEqual(self.preferences.read(), self.original)


class NoBackground(BackgroundTest):
    """Whatever cannot stand behind the movies is said, and they play on black."""

    MESSAGES = ("Not a screensaver.", "Cannot get a class.", "Failed to create background saver.",
                "SlideFolder changing failed.")

    def bundle(self, name, **info):
        return write_bundle(savers_of(self.home) / name, **info)

    def assertSays(self, saver, *messages):
        self.play(saver)
        done = Rendering(self, seconds=4, every=60, size=f"{WIDTH}x{HEIGHT}", DISPLAY=":none")
        said = [message for message in self.MESSAGES if message in done.log]
        self.assertEqual(said, list(messages), done.log)
        self.assertTrue(done.last_picture().is_near(WIDTH // 2, HEIGHT // 2, RED))
        self.assertEqual({each["kind"] for line in done.trace for each in line["windows"]}, {"host"})
        return done.log

    def test_what_is_no_bundle(self):
        file = savers_of(self.home) / "File.saver"
        file.parent.mkdir(parents=True)
        file.write_text("no bundle")
        log = self.assertSays(file, "Not a screensaver.", "Cannot get a class.")
        self.assertIn(f"Not a screensaver. {file}\n", log)

    def test_what_is_not_installed_any_more(self):
        missing = savers_of(self.home) / "Missing.saver"
        self.assertIn(f"The background saver is not installed any more: {missing}\n", self.assertSays(missing))

    def test_a_bundle_without_its_library(self):
        bundle = self.bundle("Bare.saver", NSPrincipalClass="Bare", CFBundleExecutable="Bare")
        self.assertSays(bundle, "Not a screensaver.", "Cannot get a class.")

    def test_a_bundle_without_a_class(self):
        self.assertSays(self.bundle("Plain.saver"), "Not a screensaver.", "Cannot get a class.")

    def test_a_class_of_the_wrong_kind(self):
        library = KESTRO_BUNDLE / "Contents" / "Linux" / "Kestro.so"
        bundle = self.bundle("Wrong.saver", NSPrincipalClass="QObject", CFBundleExecutable="Kestro")
        (bundle / "Contents" / "Linux").mkdir()
        (bundle / "Contents" / "Linux" / "Kestro.so").symlink_to(library)
        self.assertSays(bundle, "Cannot get a class.")

    def test_a_hack_where_there_is_no_display(self):
        bundle = self.bundle("Hack.saver", NSPrincipalClass="HackHost", KestroProgram="fuzzyflakes")
        self.assertSays(bundle, "Failed to create background saver.")

    def test_this_saver_itself(self):
        self.assertIn(f"The background saver is not installed any more: {KESTRO_BUNDLE}\n",
                      self.assertSays(KESTRO_BUNDLE))
        other = savers_of(self.home) / "Other.saver"
        other.parent.mkdir(parents=True)
        other.symlink_to(KESTRO_BUNDLE)
        self.assertSays(other, "Failed to create background saver.")

    def test_a_slide_show_where_no_saver_ever_had_preferences(self):
        put_pictures_saver(self.home)
        self.assertSays(self.bundle("Five.slideSaver"))

    def test_a_slide_show_without_the_saver_of_picture_folders_leaves_the_folder_as_it_was(self):
        preferences = SlidePreferences(self.home)
        preferences.write(SlideFolder="/home/me/Holiday")
        self.assertSays(self.bundle("Five.slideSaver"), "Not a screensaver.", "Cannot get a class.")
        self.assertEqual(preferences.read(), {"SlideFolder": "/home/me/Holiday"})


if __name__ == "__main__":
    unittest.main()
