"""`kestro render`: what the saver shows on screens in memory, by its pictures and its trace."""

import signal
import socket
import unittest

from harness import (BLACK, BLUE, BOUND, GREEN, RED, ProgramTest, Rendering, movie, read_trace, seconds_of, url,
                     wait_until)

FULL_SCREEN = {"FullScreenMode": "1"}
FLY = {"FullScreenMode": "0", "PartialMode": "0"}


class Pictures(ProgramTest):
    def test_each_screen_gets_a_picture_at_each_moment_and_at_the_end(self):
        self.home.play([movie("red")])
        done = Rendering(self, "--screens", "2", seconds=2.5, every=1, size="64x48")
        names = done.names()
        for screen in range(2):
            moments = [seconds_of(name) for name in names if name.startswith(f"screen{screen}-")]
            self.assertEqual(moments, [1, 2, 2.5])
        self.assertEqual(len(names), 6)
        picture = done.last_picture(1)
        self.assertEqual((picture.width, picture.height), (64, 48))

    def test_the_folder_is_made_with_those_above_it(self):
        self.home.play([movie("red")])
        folder = self.home.path / "a" / "b"
        self.run_kestro("render", "--out", str(folder), "--seconds", "0.5", "--size", "64x48")
        self.assertEqual([path.name for path in folder.iterdir()], ["screen0-00000.500.png"])

    def test_what_opengl_cannot_draw_here_is_drawn_in_software(self):
        self.home.play([movie("red")], FullScreenMode="1")
        done = Rendering(self, KESTRO_RENDERER="opengl")
        self.assertEqual(done.log.count("OpenGL"), 1, done.log)
        self.assertIn("drawing in software.", done.log)
        self.assertTrue(done.last_picture().is_near(160, 120, RED))

    def test_a_movie_dissolves_into_the_next_where_that_was_chosen(self):
        self.home.play([movie("red", seconds=1), movie("blue", "blue", seconds=9)], FullScreenMode="1")
        for text, dissolves in (("", False), ("[movies]\ndissolve=2\n", True)):
            with self.subTest(text):
                self.home.configure(text)
                pictures = Rendering(self, seconds=4, every=0.25).pictures()
                mixed = [picture for picture in pictures if picture.is_near(160, 120, (128, 0, 128), 90)]
                self.assertEqual(bool(mixed), dissolves)
                self.assertTrue(pictures[-1].is_near(160, 120, BLUE))

    def test_title_and_clock_stand_over_the_movie_where_they_were_chosen(self):
        self.home.play([movie("red", seconds=9)], FullScreenMode="1")
        for text, is_there in (("", False), ("[caption]\ntitle=yes\n", True), ("[caption]\nclock=yes\n", True)):
            with self.subTest(text):
                self.home.configure(text)
                done = Rendering(self, size="640x480")
                picture = done.last_picture()
                white = any(picture.is_near(x, y, (255, 255, 255), 60) for x in range(640) for y in range(480))
                self.assertEqual(white, is_there)
                kinds = {window["kind"] for line in done.trace for window in line["windows"]}
                self.assertEqual("caption" in kinds, is_there, kinds)

    def test_the_defaults_are_one_full_hd_screen_for_ten_seconds(self):
        text = self.run_kestro("render", "--help").stdout
        for default in ["(10)", "(1920x1080)", "(1)"]:
            self.assertIn(default, text)


class Trace(ProgramTest):
    def test_a_line_tells_all_of_one_screen_after_one_tick(self):
        self.home.play([movie("red")], **FULL_SCREEN)
        lines = Rendering(self, "--screens", "2").trace
        for screen in range(2):
            own = [line for line in lines if line["screen"] == screen]
            self.assertEqual([line["tick"] for line in own], list(range(1, len(own) + 1)))
            self.assertEqual(own, sorted(own, key=lambda line: line["t"]))
        for line in lines:
            self.assertEqual(sorted(line), ["curIdx", "fading", "movie", "screen", "sign", "t", "tick", "trail", "windows"])
            host = line["windows"][0]
            self.assertEqual(host, {"kind": "host", "frame": [0, 0, 320, 240], "alpha": 1, "level": host["level"]})
            self.assertIsInstance(host["level"], int)
            self.assertIs(line["fading"], False)
            self.assertEqual(line["trail"], 0)

    def test_ticks_come_every_twentieth_of_a_second_while_a_movie_plays(self):
        self.home.play([movie("red")], **FULL_SCREEN)
        times = [line["t"] for line in Rendering(self, seconds=3).trace]
        gaps = sorted(after - before for before, after in zip(times, times[1:]))
        self.assertAlmostEqual(gaps[len(gaps) // 2], 0.05, delta=0.02)

    def test_the_movie_plays_on(self):
        self.home.play([movie("long", seconds=8)], **FULL_SCREEN)
        shown = [line["movie"] for line in Rendering(self, seconds=3).movie_lines()]
        self.assertEqual({each["url"] for each in shown}, {url(movie("long", seconds=8))})
        times = [each["time"] for each in shown]
        self.assertEqual(times, sorted(times))
        self.assertGreater(times[-1], 600)
        self.assertEqual(shown[-1]["rate"], 1)


class FullScreen(ProgramTest):
    def shown(self, mode, **more):
        self.home.play([movie("wide", size="160x80", seconds=8)], PlayMode=mode, **FULL_SCREEN)
        return Rendering(self, **more)

    def assertFrame(self, done, frame):
        self.assertEqual(done.movie_frames(), [frame])

    def test_mode_0_fits_the_movie_in_the_middle(self):
        done = self.shown("0")
        self.assertFrame(done, [0, 40, 320, 160])
        picture = done.last_picture()
        self.assertTrue(picture.is_near(160, 120, RED))
        self.assertTrue(picture.is_near(5, 45, RED))
        self.assertEqual((picture.at(160, 35), picture.at(160, 205)), (BLACK, BLACK))
        self.assertIn("fullscreen 0 selected\n", done.log)

    def test_mode_1_stretches_the_movie_over_the_whole_screen(self):
        done = self.shown("1")
        self.assertFrame(done, [0, 0, 320, 240])
        picture = done.last_picture()
        for corner in [(2, 2), (317, 2), (2, 237), (317, 237)]:
            self.assertTrue(picture.is_near(*corner, RED), corner)

    def test_mode_2_covers_the_screen_and_keeps_the_shape(self):
        done = self.shown("2")
        self.assertFrame(done, [-80, 0, 480, 240])
        self.assertTrue(done.last_picture().is_near(2, 2, RED))

    def test_an_unknown_mode_fits_like_mode_0(self):
        self.assertFrame(self.shown("7"), [0, 40, 320, 160])

    def test_each_screen_shows_the_movie(self):
        done = self.shown("1", size="100x80", seconds=2)
        self.assertTrue(done.last_picture().is_near(50, 40, RED))
        self.home.play([movie("wide", size="160x80", seconds=8)], PlayMode="1", **FULL_SCREEN)
        both = Rendering(self, "--screens", "2", size="100x80")
        for screen in range(2):
            self.assertTrue(both.last_picture(screen).is_near(50, 40, RED))
            self.assertEqual(both.movie_frames(screen), [[0, 0, 100, 80]])


class Fly(ProgramTest):
    def test_the_movie_changes_its_place_every_interval(self):
        self.home.play([movie("long", seconds=8)], Interval="0.5", Scale="0.5", **FLY)
        done = Rendering(self, seconds=4, size="800x600")
        frames = done.movie_frames()
        # About seven moves; one or two may draw the place that it has.
        self.assertIn(len(frames), range(5, 9))
        for x, y, width, height in frames:
            self.assertEqual((width, height), (80, 60))
            self.assertTrue(0 <= x <= 720 and 0 <= y <= 540, (x, y))
        moves = self.moves(done)
        for before, after in zip(moves, moves[1:]):
            self.assertGreater(after - before, 0.45)

    def moves(self, done):
        lines = done.movie_lines()
        return [now["t"] for before, now in zip(lines, lines[1:]) if before["movie"]["frame"] != now["movie"]["frame"]]

    def test_the_pixels_are_where_the_trace_says(self):
        self.home.play([movie("long", seconds=8)], Interval="60", Scale="0.5", **FLY)
        done = Rendering(self, seconds=2, size="800x600")
        [[x, y, width, height]] = done.movie_frames()
        picture = done.last_picture()
        self.assertTrue(picture.is_near(int(x + width / 2), int(600 - y - height / 2), RED))
        self.assertEqual(picture.at(int((x + width / 2 + 400) % 800), 300), BLACK)

    def test_reposition_at_the_end_leaves_the_place_until_then(self):
        self.home.play([movie("long", seconds=8)], Interval="0.2", Reposition="1", Scale="0.5", **FLY)
        self.assertEqual(len(Rendering(self, seconds=3, size="800x600").movie_frames()), 1)

    def test_reposition_at_the_end_moves_with_each_round(self):
        self.home.play([movie("short", seconds=0.5)], Reposition="1", Scale="0.5", **FLY)
        done = Rendering(self, seconds=5, size="800x600")
        self.assertGreaterEqual(len(done.movie_frames()), 3)


class Order(ProgramTest):
    def short_movies(self):
        return [movie(f"short-{colour}", colour, seconds=0.6) for colour in ("red", "green", "blue")]

    def test_sequential_order_is_the_list_s_over_and_over(self):
        movies = self.short_movies()
        self.home.play(movies, **FULL_SCREEN)
        urls = Rendering(self, seconds=6, size="160x120").urls()
        self.assertGreaterEqual(len(urls), 5)
        self.assertEqual(urls, [url(movies[i % 3]) for i in range(len(urls))])

    def test_random_order_plays_each_once_a_cycle(self):
        movies = self.short_movies()
        self.home.play(movies, RandomMode="1", **FULL_SCREEN)
        urls = Rendering(self, seconds=6, size="160x120").urls()
        self.assertGreaterEqual(len(urls), 3)
        self.assertEqual(set(urls[:3]), {url(each) for each in movies})

    def test_a_single_movie_loops(self):
        self.home.play([movie("short-red", "red", seconds=0.6)], **FULL_SCREEN)
        times = [line["movie"]["time"] for line in Rendering(self, seconds=4).movie_lines()]
        turns = sum(now < before for before, now in zip(times, times[1:]))
        self.assertGreaterEqual(turns, 2)

    def test_the_pixels_change_with_the_movie(self):
        self.home.play([movie("short-red", "red", seconds=0.6), movie("blue-long", "blue", seconds=8)], **FULL_SCREEN)
        done = Rendering(self, seconds=3)
        self.assertTrue(done.last_picture().is_near(160, 120, BLUE))

    def test_what_cannot_be_opened_is_skipped_and_named(self):
        broken = self.home.path / "broken.mov"
        broken.write_bytes(b"no movie at all" * 100)
        self.home.play([broken, movie("green", "green")], **FULL_SCREEN)
        done = Rendering(self)
        self.assertIn(f"Failed to load movie:{url(broken)}\n", done.log)
        self.assertEqual(done.urls(), [url(movie("green", "green"))])
        self.assertTrue(done.last_picture().is_near(160, 120, GREEN))

    def test_web_pages_are_skipped_without_a_word(self):
        page = self.home.path / "page.html"
        page.write_text("<html></html>")
        self.home.play([page, movie("green", "green")], **FULL_SCREEN)
        done = Rendering(self)
        self.assertNotIn("Failed to load", done.log)
        self.assertEqual(done.urls(), [url(movie("green", "green"))])


class Sign(ProgramTest):
    def check_sign(self):
        done = Rendering(self, seconds=2, size="800x600")
        self.assertEqual(done.movie_lines(), [])
        places = [tuple(line["sign"]) for line in done.trace if line["sign"]]
        self.assertGreater(len(set(places)), 5)
        self.assertEqual(len({place[2:] for place in places}), 1)
        for x, y, width, height in places:
            self.assertTrue(-16 <= x <= 800 - width + 16 and -16 <= y <= 600 - height + 16, (x, y))  # two steps, in a corner
        self.assertFalse(done.last_picture().is_blank())
        gaps = sorted(b["t"] - a["t"] for a, b in zip(done.trace, done.trace[1:]))
        self.assertAlmostEqual(gaps[len(gaps) // 2], 0.1, delta=0.03)

    def test_the_sign_drifts_where_no_movie_is_there(self):
        self.home.play([self.home.path / "missing.mov"])
        self.check_sign()

    def test_the_sign_drifts_where_the_list_is_empty(self):
        self.home.play([])
        self.check_sign()

    def test_the_sign_drifts_where_the_first_movie_cannot_be_opened(self):
        broken = self.home.path / "broken.mov"
        broken.write_bytes(b"")
        self.home.play([broken])
        self.check_sign()


class LeavingNothing(ProgramTest):
    """A rendering is the full saver, but for what that keeps for later."""

    def setUp(self):
        super().setUp()
        self.movies = [movie("short-red", "red", seconds=0.6), movie("blue-long", "blue", seconds=20)]
        self.home.play(self.movies, Continue="1", **FULL_SCREEN)

    def test_no_resume_point_is_stored(self):
        self.assertEqual(Rendering(self).urls()[0], url(self.movies[0]))
        self.assertEqual(self.home.resume_point(), {})

    def test_it_goes_on_where_the_saver_stopped_and_leaves_that_point(self):
        point = {"LastMovie": "blue-long.mp4", "LastPos": "1200"}
        self.home.write(point, name="Kestro.def.plist")
        rendering = Rendering(self, seconds=3)
        self.assertEqual(rendering.urls()[0], url(self.movies[1]))
        self.assertGreaterEqual(rendering.movie_lines()[-1]["movie"]["time"], 1200)
        self.assertEqual(self.home.resume_point(), point)

    def test_no_crawl_is_started(self):
        with socket.create_server(("127.0.0.1", 0)) as site:
            self.home.trailer_site(f"http://127.0.0.1:{site.getsockname()[1]}/trailers/")
            self.home.play([self.movies[1], "auto://LatestTrailers/6/480"], **FULL_SCREEN)
            self.assertTrue(Rendering(self).movie_lines())
            site.settimeout(0)
            self.assertRaises(BlockingIOError, site.accept)


class LocalMovies(ProgramTest):
    def test_a_file_is_found_by_the_name_of_this_machine(self):
        path = movie("red")
        self.home.play([f"file://localhost{path}"], **FULL_SCREEN)
        rendering = Rendering(self)
        self.assertTrue(rendering.last_picture().is_near(160, 120, RED))

    def test_a_file_of_another_machine_is_none(self):
        self.home.play([f"file://server{movie('red')}"], **FULL_SCREEN)
        self.assertEqual(Rendering(self).movie_lines(), [])


class Ending(ProgramTest):
    def test_a_signal_ends_it_early_with_a_last_picture_and_no_resume_point(self):
        self.home.play([movie("long", seconds=8)], Continue="1", **FULL_SCREEN)
        for number in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(number=number):
                folder = self.home.path / number.name
                trace = self.home.path / f"{number.name}.trace"
                process = self.start_kestro("render", "--out", str(folder), "--trace", str(trace), "--seconds", "600",
                                            "--every", "600", "--size", "160x120")
                wait_until(lambda: trace.exists() and any(line["movie"] for line in read_trace(trace)), "a movie")
                process.send_signal(number)
                self.assertEqual(self.ended(process)[0], 0)
                [name] = [path.name for path in folder.iterdir()]
                self.assertLess(seconds_of(name), BOUND)
                self.assertEqual(self.home.resume_point(), {})


if __name__ == "__main__":
    unittest.main()
