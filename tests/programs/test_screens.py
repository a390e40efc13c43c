"""`kestro` on several monitors that share the saver: the same movie on all, one across all, or on some of them alone."""

import functools
import subprocess
import unittest

from harness import BLACK, BLUE, BOUND, RED, ProgramTest, Rendering, movie_folder, player_threads, thread_names, wait_until
from test_given_window import GivenWindow
from test_monitors import Desk, Monitor
from wayland import Session

FULL_SCREEN = {"FullScreenMode": "1", "PlayMode": "1"}
OPENGL = {"KESTRO_RENDERER": "opengl", "LIBGL_ALWAYS_SOFTWARE": "1"}


@functools.cache
def still(name, source, seconds=60):
    """A movie whose every picture is the same, bit for bit."""
    path = movie_folder() / f"{name}.mp4"
    command = ["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i", f"{source},trim=end_frame=1,loop=-1:1",
               "-t", str(seconds), "-r", "5", "-c:v", "libx264", "-preset", "ultrafast", "-qp", "0", "-pix_fmt", "yuv420p",
               str(path)]
    subprocess.run(command, check=True, timeout=BOUND, stdin=subprocess.DEVNULL)
    return path


def red_and_blue():
    """Red in its left half, blue in its right one."""
    return still("red-and-blue", "color=c=red:s=320x240:r=5,drawbox=x=160:w=160:h=240:color=blue:t=fill")


def pattern():
    """No two parts of it look alike."""
    return still("pattern", "testsrc2=s=640x240:r=5")


def decoders_of(process):
    """The names of its threads that read and decode movies."""
    decoders = [name for name in thread_names(process.pid) if name.startswith("av:")]
    return sorted(player_threads(process.pid) + decoders)


def part_of(picture, left, width):
    """The bytes of some columns of a picture."""
    row = 3 * picture.width
    return b"".join(picture.bytes[row * y + 3 * left : row * y + 3 * (left + width)] for y in range(picture.height))


class Rendered(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home.play([pattern()], **FULL_SCREEN)

    def test_the_parts_of_a_span_are_those_of_one_wide_screen_pixel_for_pixel(self):
        wide = Rendering(self, size="640x240").last_picture()
        span = Rendering(self, "--screens", "2", "--span", size="320x240")
        for screen in (0, 1):
            self.assertEqual(span.last_picture(screen).bytes, part_of(wide, 320 * screen, 320))
        self.assertEqual({line["screen"] for line in span.trace}, {0})
        self.assertEqual(span.movie_frames()[-1], [0, 0, 640, 240])

    def test_a_mirror_shows_the_same_on_every_screen_as_one_screen_alone(self):
        alone = Rendering(self, size="320x240").last_picture()
        mirror = Rendering(self, "--screens", "3", "--mirror", size="320x240")
        for screen in range(3):
            self.assertEqual(mirror.last_picture(screen).bytes, alone.bytes)
        self.assertEqual({line["screen"] for line in mirror.trace}, {0})

    def test_screens_that_are_not_chosen_are_black(self):
        some = Rendering(self, "--screens", "3", "--monitors", "screen1", size="320x240")
        self.assertEqual([some.last_picture(screen).is_blank() for screen in range(3)], [True, False, True])
        self.assertEqual({line["screen"] for line in some.trace}, {0})

    def test_a_name_that_no_screen_has_is_logged_and_all_are_used(self):
        all_of_them = Rendering(self, "--screens", "2", "--monitors", "HDMI-1", size="320x240")
        self.assertIn("No monitor has the name HDMI-1: all are used.", all_of_them.log)
        self.assertEqual({line["screen"] for line in all_of_them.trace}, {0, 1})

    def test_words_that_do_not_go_together_are_refused(self):
        for words in (["--mirror", "--span"], ["--monitors="], ["--monitors", "all,screen0"]):
            done = self.run_kestro("render", "--out", str(self.home.path / "out"), *words, status=2)
            self.assertOneLine(done.stderr, words[0].split("=")[0])


class Sharing(Desk):
    main = Monitor("MAIN", 320, 240, 0, 0, is_real=True)
    side = Monitor("SIDE", 256, 192, 400, 40)

    def setUp(self):
        super().setUp()
        self.home.play([red_and_blue()], **FULL_SCREEN)
        for monitor in (self.main, self.side):
            self.plug_in(monitor)

    def colours(self, monitor, picture):
        """(left, right): the colours of its halves, from corner to corner; nothing for one that is of several."""
        halves = (range(monitor.x + 4, monitor.x + monitor.width // 2 - 4, 8),
                  range(monitor.x + monitor.width // 2 + 4, monitor.x + monitor.width, 8))
        rows = range(monitor.y + 4, monitor.y + monitor.height, 8)
        return tuple(self.colour(picture, columns, rows) for columns in halves)

    @staticmethod
    def colour(picture, columns, rows):
        for colour in (RED, BLUE, BLACK):
            if all(picture.is_near(x, y, colour) for x in columns for y in rows):
                return colour
        return None

    def await_colours(self, process, *wanted):
        """Waits until the monitors show these pairs of colours."""
        def shown():
            picture = self.server.picture()
            return tuple(self.colours(monitor, picture) for monitor, _ in zip((self.main, self.side), wanted)) == wanted
        self.until(process, shown, f"{wanted} on the monitors")


class Mirror(Sharing):
    def test_every_monitor_shows_the_movie_and_one_player_decodes_it(self):
        alone = self.decoders("--monitors", "MAIN")
        self.assertNotEqual(alone, [])
        self.assertEqual(self.decoders("--mirror", side=(RED, BLUE)), alone)
        self.assertEqual(len(self.decoders("--each", side=(RED, BLUE))), 2 * len(alone))

    def decoders(self, *words, side=(BLACK, BLACK)):
        """Of a run of its own that shows the movie on the first monitor, and this on the other one."""
        process = self.start(*words)
        self.await_colours(process, (RED, BLUE), side)
        names = decoders_of(process)
        self.assertEndsWell(process)
        return names

    def test_opengl_shows_the_same(self):
        process = self.start("--mirror", **OPENGL)
        self.await_colours(process, (RED, BLUE), (RED, BLUE))
        self.assertEndsWell(process)

    def test_a_monitor_of_another_shape_has_black_bars(self):
        self.pull_out(self.side)
        wide = Monitor("SIDE", 256, 128, 400, 40)
        self.plug_in(wide)
        process = self.start("--mirror")
        self.await_colours(process, (RED, BLUE))

        def has_bars():
            picture = self.server.picture()
            # 320x240 comes to 170x128, with 43 columns on either side.
            return [picture.is_near(wide.x + x, wide.y + 64, colour) for x, colour in
                    ((38, BLACK), (48, RED), (123, RED), (133, BLUE), (208, BLUE), (218, BLACK))] == 6 * [True]

        self.until(process, has_bars, "the movie between bars")
        self.assertEndsWell(process)

    def test_it_goes_on_when_a_monitor_goes_and_comes_back(self):
        process = self.start("--mirror")
        self.await_colours(process, (RED, BLUE), (RED, BLUE))
        self.pull_out(self.side)
        self.await_colours(process, (RED, BLUE), (BLACK, BLACK))
        self.plug_in(self.side)
        self.await_colours(process, (RED, BLUE), (RED, BLUE))
        self.assertEndsWell(process)

    def test_kestro_conf_asks_for_it_and_a_word_counts_more(self):
        self.home.configure("[screens]\nmode=span\n")
        process = self.start()
        self.await_colours(process, (RED, RED), (BLUE, BLUE))
        self.assertEndsWell(process)
        process = self.start("--mirror")
        self.await_colours(process, (RED, BLUE), (RED, BLUE))
        self.assertEndsWell(process)


class Span(Sharing):
    """The middle of the desk lies between the two: one monitor is all red, the other all blue."""

    def test_one_movie_goes_across_the_desk(self):
        process = self.start("--span")
        self.await_colours(process, (RED, RED), (BLUE, BLUE))
        self.assertEndsWell(process)

    def test_opengl_shows_the_same(self):
        process = self.start("--span", **OPENGL)
        self.await_colours(process, (RED, RED), (BLUE, BLUE))
        self.assertEndsWell(process)

    def test_it_takes_the_room_of_the_monitors_that_are_there(self):
        self.pull_out(self.side)
        process = self.start("--span")
        self.await_colours(process, (RED, BLUE))
        self.plug_in(self.side)
        self.await_colours(process, (RED, RED), (BLUE, BLUE))
        self.pull_out(self.side)
        self.await_colours(process, (RED, BLUE), (BLACK, BLACK))
        self.assertEndsWell(process)


class Chosen(Sharing):
    def test_the_others_are_covered_and_black(self):
        self.server.run("xsetroot", "-solid", "white")
        process = self.start("--monitors", "SIDE")
        self.await_colours(process, (BLACK, BLACK), (RED, BLUE))
        self.assertEqual(len(self.server.windows()), 2)
        process.terminate()
        self.assertEqual(self.ended(process)[0], 0)

    def test_the_first_alone(self):
        self.home.configure("[screens]\nmonitors=first\n")
        process = self.start()
        self.await_colours(process, (RED, BLUE), (BLACK, BLACK))
        self.assertEndsWell(process)

    def test_a_click_on_a_monitor_that_is_black_ends_it(self):
        process = self.start("--monitors", "SIDE")
        self.await_colours(process, (BLACK, BLACK), (RED, BLUE))
        self.server.move_pointer(4, 4)
        self.server.run("xdotool", "click", "1")
        self.assertEqual(self.ended(process)[0], 0)


class Wayland(ProgramTest):
    """Two outputs side by side, of 400x300 and 320x240 pixels."""

    def setUp(self):
        super().setUp()
        self.home.play([red_and_blue()], **FULL_SCREEN)
        self.session = Session()
        self.addCleanup(self.session.close)

    def start(self, *words):
        variables = self.session.environment()
        return self.start_kestro(*words, WAYLAND_DISPLAY=variables["WAYLAND_DISPLAY"],
                                 XDG_RUNTIME_DIR=variables["XDG_RUNTIME_DIR"])

    def await_red(self, process, **edges):
        """Waits until each of these outputs is red to the left of its edge, in pixels, and blue to the right of it."""
        def is_shown():
            return all(self.is_red_until(self.session.picture("-o", name), edge) for name, edge in outputs.items())
        outputs = {f"HEADLESS-{name[-1]}": edge for name, edge in edges.items()}
        wait_until(lambda: process.poll() is not None or is_shown(), f"the edges {edges}")
        self.assertIsNone(process.poll())

    @staticmethod
    def is_red_until(picture, edge):
        clear = 6  # of the edge, where the two mix
        return all(picture.is_near(x, y, RED if x < edge else BLUE) for x in range(3, picture.width, 7)
                   for y in range(6, picture.height, 9) if abs(x - edge) > clear)

    def assertEndsWell(self, process):
        process.terminate()
        self.assertEqual(self.ended(process)[0], 0)

    def test_one_movie_goes_across_the_outputs_and_follows_one_that_moves(self):
        process = self.start("--span")
        self.await_red(process, output1=360, output2=0)
        self.session.tell("output", "HEADLESS-2", "position", "0", "300")
        self.await_red(process, output1=200, output2=200)
        self.assertEndsWell(process)

    def test_both_outputs_show_the_movie_whatever_their_scales(self):
        process = self.start("--mirror")
        self.await_red(process, output1=200, output2=160)
        for output, scale in (("HEADLESS-2", "1.25"), ("HEADLESS-1", "2")):
            self.session.tell("output", output, "scale", scale)
            self.await_red(process, output1=200, output2=160)
        self.assertEndsWell(process)


class InAWindow(GivenWindow):
    def test_it_is_said_that_the_monitors_are_not_for_it_to_choose(self):
        process = self.showing(self.in_window("--mirror"))
        process.terminate()
        _, errors = process.communicate(timeout=BOUND)
        self.assertEqual(errors.count("does not apply: there is a saver for each"), 1, errors)


if __name__ == "__main__":
    unittest.main()
