"""Web content as a user sees it: Flash movies and pages, in pictures and on a screen, and what becomes of bad ones."""

import os
import pathlib
import signal
import socket
import subprocess
import unittest

import swf
from harness import BLACK, BLUE, BOUND, GREEN, KESTRO, RED, Pixels, movie, seconds_of, url, wait_until
from webtest import LiveRendering, PageRun, WebTest, helpers_of, members_of, redirecting
from xserver import XServer

FULL_SCREEN = {"FullScreenMode": "1"}
FLY = {"FullScreenMode": "0", "PartialMode": "0", "Interval": "600"}
RATE = 24  # frames a second
MOVING = swf.move_clip("box", 1)


class Pictures(WebTest):
    def render(self, entry, *words, **settings):
        self.home.play([entry], **(settings or FULL_SCREEN))
        return LiveRendering(self, *words)

    def assertMovesAtItsOwnRate(self, rendering):
        """One pixel a frame; a busy machine shows fewer frames, and each may come a little late."""
        rendering.wait_for(lambda picture: picture.box_of_red(0, 0, 320, 240))
        rendering.wait_for_more(8)
        boxes = [(seconds_of(path.name), Pixels.of_file(path).box_of_red(0, 0, 320, 240)) for path in rendering.paths()]
        places = [(seconds, box[0]) for seconds, box in boxes if box and box[1:] == (0, 60, 60)]
        self.assertGreaterEqual(len({left for _, left in places}), 3, boxes)
        self.assertEqual(places, sorted(places), boxes)
        (begun, first), (ended, last) = places[0], places[-1]
        self.assertLessEqual(last - first, RATE * (ended - begun + 2), boxes)

    def test_actionscript_1_plays(self):
        self.assertMovesAtItsOwnRate(self.render(self.file("a.swf", swf.avm1(MOVING))))

    def test_a_packed_one_plays(self):
        self.assertMovesAtItsOwnRate(self.render(self.file("a.swf", swf.avm1(MOVING, is_packed=True))))

    def test_actionscript_3_plays(self):
        self.assertMovesAtItsOwnRate(self.render(self.file("a.swf", swf.avm2(1))))

    def test_one_from_the_net_plays(self):
        site = self.site({"/a/b.swf": ("application/x-shockwave-flash", swf.avm1(MOVING))})
        self.assertMovesAtItsOwnRate(self.render(site.url("/a/b.swf")))

    def test_it_is_scaled_to_the_screen_whole_and_on_black(self):
        entry = self.file("wide.swf", swf.still((255, 0, 0), size=(160, 60)))
        shown = self.render(entry).wait_for(lambda picture: picture.box_of_red(0, 0, 320, 240) == (0, 60, 320, 120))
        self.assertEqual(shown.at(160, 20), BLACK)
        self.assertEqual(shown.at(160, 220), BLACK)

    def test_smaller_than_the_screen_it_has_a_quarter_of_it_times_the_scale(self):
        entry = self.file("a.swf", swf.still((255, 0, 0)))
        rendering = self.render(entry, **FLY, Scale="1.0")
        box_of = lambda picture: picture.box_of_red(0, 0, 320, 240)
        shown = rendering.wait_for(lambda picture: box_of(picture) and box_of(picture)[2:] == (80, 60))
        self.assertEqual(box_of(rendering.wait_for_more(2)), box_of(shown))

    def test_it_bounces_in_a_window_of_its_own(self):
        entry = self.file("a.swf", swf.still((255, 0, 0)))
        rendering = self.render(entry, FullScreenMode="0", PartialMode="1")
        boxes = []

        def is_elsewhere(picture):
            box = picture.box_of_red(0, 0, 320, 240)
            boxes.extend([box] if box else [])
            return len({each[:2] for each in boxes}) > 1

        rendering.wait_for(is_elsewhere)
        self.assertTrue(all(box[2] <= 80 and box[3] <= 60 for box in boxes), boxes)

    def test_it_never_gives_way_to_the_next_entry(self):
        self.home.play([self.file("a.swf", swf.still((255, 0, 0))), movie("green", "green")], **FULL_SCREEN)
        rendering = LiveRendering(self)
        rendering.wait_for(lambda picture: picture.at(160, 120) == RED)
        self.assertEqual(rendering.wait_for_more(20).at(160, 120), RED)

    def test_each_screen_shows_it(self):
        rendering = self.render(self.file("a.swf", swf.still((255, 0, 0))), "--screens", "2")
        for screen in range(2):
            rendering.wait_for(lambda picture: picture.at(160, 120) == RED, screen)


class Turns(WebTest):
    def test_one_takes_over_from_another_and_one_helper_serves_all(self):
        red, blue = (self.file(f"{name}.swf", swf.still(colour)).as_uri() for name, colour in (("red", RED), ("blue", BLUE)))
        run = PageRun(self, red)
        run.wait_for(RED)
        helpers = run.helpers()
        for address, colour in ((blue, BLUE), (red, RED), (blue, BLUE)):
            run.show(address)
            run.wait_for(colour)
        self.assertEqual((len(helpers), run.helpers()), (1, helpers))
        self.assertEqual(run.end(), "")


class Failures(WebTest):
    def assertBlackAndLogged(self, fragment, *entries):
        """Black, and stays so, once the log says why."""
        self.home.play(list(entries), **FULL_SCREEN)
        rendering = LiveRendering(self)
        logged = ""
        while "Web content: " not in logged:
            line = rendering.process.stderr.readline()
            self.assertTrue(line, "it has ended")
            logged += line
        rendering.wait_for(lambda picture: picture.is_blank())
        self.assertTrue(rendering.wait_for_more(8).is_blank())
        logged += rendering.end()
        self.assertEqual(logged.count("Web content: "), 1, logged)
        self.assertIn(fragment, logged)

    def test_what_is_no_swf_is_black(self):
        self.assertBlackAndLogged("it is no Flash movie", self.file("a.swf", b"<html>no</html>"))

    def test_a_page_that_calls_itself_a_movie_is_black_and_runs_nothing(self):
        page = b"<body style='background:red'><script>new Image().src = '/ran'</script>"
        for name, kind in (("/a.swf", "text/html"), ("/b.swf/?.mov", "application/x-shockwave-flash"), ("/c.SWF", "")):
            with self.subTest(name):
                site = self.site({name.partition("?")[0]: (kind, page)})
                self.assertBlackAndLogged("it is no Flash movie", site.url(name))
                self.assertFalse(site.asked("/ran"))

    def test_a_site_that_leads_elsewhere_is_black(self):
        other = self.site({"/a.swf": ("application/x-shockwave-flash", swf.still(RED))})
        site = self.site()
        site.answer = redirecting(site, "/a.swf", other.url("/a.swf"))
        self.assertBlackAndLogged("it leads to another site", site.url("/a.swf"))
        self.assertEqual(other.requests, [])

    def test_one_cut_short_is_black(self):
        self.assertBlackAndLogged("cut short", self.file("a.swf", swf.avm2()[:40]))

    def test_a_file_that_is_not_there_is_black(self):
        self.assertBlackAndLogged("no such file", url(self.folder / "gone.swf"), movie("green", "green"))

    def test_one_that_the_site_does_not_have_is_black(self):
        self.assertBlackAndLogged("status 404", self.site().url("/gone.swf"))

    def test_a_site_that_is_not_there_is_black(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            address = f"http://127.0.0.1:{taken.getsockname()[1]}/a.swf"
        self.assertBlackAndLogged("Failed to connect", address)

    def test_an_swf_that_never_ends_a_frame_holds_no_screen_up(self):
        self.home.play([self.file("hung.swf", swf.avm1(swf.endless_loop()))], **FULL_SCREEN)
        rendering = LiveRendering(self, "--screens", "2")
        helper = self.helper_of(rendering.process)
        wait_until(lambda: len(members_of(helper)) > 3, "the page's process")
        rendering.wait_for_more(20)
        self.assertEqual(rendering.end().count("Web content: the helper"), 0)

    def test_without_the_helper_it_counts_as_a_movie_that_did_not_open(self):
        prefix = self.home.path / "installed"
        build = pathlib.Path(KESTRO).parent.parent
        subprocess.run(["cmake", "--install", str(build), "--prefix", str(prefix)], check=True, stdout=subprocess.DEVNULL)
        (prefix / "lib" / "kestro" / "kestro-web").unlink()
        broken = self.file("a.swf", swf.still((255, 0, 0)))
        self.home.play([broken, movie("green", "green")], **FULL_SCREEN)
        out = self.home.path / "out"
        done = subprocess.run([str(prefix / "bin" / "kestro"), "render", "--out", str(out), "--seconds", "1", "--size",
                               "64x48"], env=self.home.environment(), capture_output=True, text=True, timeout=BOUND)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stderr.count("No web content: "), 1, done.stderr)
        self.assertIn(f"Failed to load movie:{url(broken)}", done.stderr)
        self.assertTrue(Pixels.of_file(next(out.glob("*.png"))).is_near(32, 24, GREEN))


class OnAScreen(WebTest):
    def setUp(self):
        super().setUp()
        self.server = XServer("640x480")
        self.addCleanup(self.server.close)

    def start(self, *entries, **settings):
        self.home.play(list(entries), **(settings or FULL_SCREEN))
        return self.start_kestro(DISPLAY=self.server.display)

    def shows(self, colour):
        return self.server.picture().is_near(320, 240, colour)

    def assertEnds(self, process):
        """By itself; how soon that is, the bench measures."""
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(timeout=BOUND), 0)

    def test_it_plays_until_told_to_end_and_leaves_nothing_behind(self):
        process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
        wait_until(lambda: self.shows(RED), "the movie")
        helper = self.helper_of(process)
        self.assertEnds(process)
        self.assertNothingLeft(helper)

    def test_nothing_is_left_when_it_is_killed(self):
        process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
        wait_until(lambda: self.shows(RED), "the movie")
        helper = self.helper_of(process)
        process.kill()
        process.wait(timeout=BOUND)
        self.assertNothingLeft(helper)

    def test_nothing_is_left_when_it_is_ended_while_the_helper_starts(self):
        for number in (signal.SIGTERM, signal.SIGKILL):
            with self.subTest(signal=number.name):
                process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
                helper = self.helper_of(process)
                process.send_signal(number)
                process.wait(timeout=BOUND)
                self.assertNothingLeft(helper)

    def test_no_scratch_folder_is_left_where_there_is_no_session(self):
        """Among the user's caches at most, and never where all users write."""
        scratch = self.leave_session()
        for number in (signal.SIGTERM, signal.SIGKILL):
            with self.subTest(signal=number.name):
                process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
                wait_until(lambda: self.shows(RED), "the movie")
                helper = self.helper_of(process)
                caches = self.home.path / ".cache" / "kestro"
                self.assertEqual(len(list(caches.glob("web-*"))), 1)
                process.send_signal(number)
                process.wait(timeout=BOUND)
                wait_until(lambda: not members_of(helper), "the helper's processes to end")
                self.assertEqual(list(caches.iterdir()), [])
                self.assertEqual(list(scratch.iterdir()), [])

    def test_signals_reach_the_helper_and_it_gets_no_rights(self):
        process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
        wait_until(lambda: self.shows(RED), "the movie")
        status = pathlib.Path(f"/proc/{self.helper_of(process)}/status").read_text()
        self.assertRegex(status, "SigBlk:\t0+\n")
        self.assertIn("NoNewPrivs:\t1\n", status)
        self.assertEnds(process)

    def test_a_helper_that_crashes_is_started_again(self):
        process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
        wait_until(lambda: self.shows(RED), "the movie")
        first = self.helper_of(process)
        os.kill(first, signal.SIGKILL)
        wait_until(lambda: helpers_of(process) not in ([], [first]), "another helper")
        wait_until(lambda: self.shows(RED), "the movie again")
        process.send_signal(signal.SIGTERM)
        _, log = self.ended(process)
        self.assertEqual(log.count("the helper ended; it is started again"), 1, log)

    def test_a_page_that_hangs_is_black_and_the_saver_can_be_ended(self):
        process = self.start(self.file("a.swf", swf.avm1(swf.endless_loop())))
        self.helper_of(process)
        wait_until(lambda: self.server.windows(), "the saver's window")
        self.assertEnds(process)

    def test_a_helper_that_hangs_is_ended_and_another_started(self):
        process = self.start(self.file("a.swf", swf.still((255, 0, 0))))
        wait_until(lambda: self.shows(RED), "the movie")
        helper = self.helper_of(process)
        main = f"/proc/{helper}/task/{helper}/stat"
        os.kill(helper, signal.SIGSTOP)
        wait_until(lambda: pathlib.Path(main).read_text().rsplit(")", 1)[1].split()[0] == "T", "it to stand still")
        wait_until(lambda: helpers_of(process) not in ([], [helper]), "another helper")
        wait_until(lambda: self.shows(RED), "the movie again")
        process.send_signal(signal.SIGTERM)
        _, log = self.ended(process)
        self.assertIn("the helper does not answer", log)

    def test_nobody_who_plays_movies_alone_has_a_helper(self):
        process = self.start(movie("red-long", "red", seconds=60))
        wait_until(lambda: self.shows(RED), "the movie")
        self.assertEqual(helpers_of(process), [])
        libraries = pathlib.Path(f"/proc/{process.pid}/maps").read_text()
        self.assertNotIn("WebEngine", libraries)
        self.assertEnds(process)


if __name__ == "__main__":
    unittest.main()
