"""`kestro render` with movies that drift in windows of their own, leave a trail, and fade out where they were."""

import unittest

from harness import ProgramTest, Rendering, movie

BOUNCE = {"FullScreenMode": "0", "PartialMode": "1", "Scale": "0.5"}
FLY = {"FullScreenMode": "0", "PartialMode": "0", "Scale": "0.5"}
WIDTH, HEIGHT = 400, 300
LONGEST_STEP = 8
# Past an edge by a step at most, or by two in a corner, where one edge is turned at a time.
OVERSHOOT = 2 * LONGEST_STEP


def window(line, kind):
    """The only window of that kind."""
    [found] = [each for each in line["windows"] if each["kind"] == kind]
    return found


class EffectsTest(ProgramTest):
    def rendering(self, *words, seconds=4, **settings):
        self.home.play([movie("long", seconds=8)], **settings)
        return Rendering(self, *words, seconds=seconds, size=f"{WIDTH}x{HEIGHT}")

    def lines_of(self, done, screen=0):
        """The lines with a movie, of which there are more than a few."""
        lines = done.movie_lines(screen)
        self.assertGreater(len(lines), 10)
        return lines


class Bounce(EffectsTest):
    def test_the_window_drifts_by_whole_steps_and_turns_at_the_edges(self):
        lines = self.lines_of(self.rendering(seconds=6, **BOUNCE))
        frames = [window(line, "movie")["frame"] for line in lines]
        self.assertGreater(len(frames), 50)
        for (x, y, _, _), (next_x, next_y, width, height) in zip(frames, frames[1:]):
            self.assertEqual((width, height), (80, 60))
            for step in (abs(next_x - x), abs(next_y - y)):
                self.assertIn(step, range(4, LONGEST_STEP + 1))
            self.assertTrue(-OVERSHOOT <= next_x <= WIDTH - width + OVERSHOOT, next_x)
            self.assertTrue(-OVERSHOOT <= next_y <= HEIGHT - height + OVERSHOOT, next_y)

    def test_the_window_lies_above_the_host_s_and_is_the_movie_s_frame(self):
        for line in self.lines_of(self.rendering(seconds=2, **BOUNCE)):
            below, above = line["windows"]
            self.assertEqual((below["kind"], above["kind"]), ("host", "movie"))
            self.assertGreater(above["level"], below["level"])
            self.assertEqual(above["frame"], line["movie"]["frame"])

    def test_the_window_stays_on_its_own_screen(self):
        done = self.rendering("--screens", "2", seconds=2, **BOUNCE)
        for screen in range(2):
            for line in self.lines_of(done, screen):
                x, _, width, _ = window(line, "movie")["frame"]
                self.assertTrue(-OVERSHOOT <= x <= WIDTH - width + OVERSHOOT, (screen, x))

    def test_stills_trail_behind_where_fading_is_on(self):
        done = self.rendering(seconds=5, Fadeout="1", **BOUNCE)
        trail = [line["trail"] for line in done.trace]
        self.assertEqual(trail, sorted(trail))
        self.assertEqual(trail[-1], 5)

    def test_nothing_trails_behind_where_fading_is_off(self):
        done = self.rendering(seconds=2, **BOUNCE)
        self.assertEqual({line["trail"] for line in self.lines_of(done)}, {0})


class FadeOut(EffectsTest):
    def fades(self, done):
        """The fading lines, a list for each fade."""
        fades = [[]]
        for line in done.trace:
            if line["fading"]:
                fades[-1].append(line)
            elif fades[-1]:
                fades.append([])
        return [fade for fade in fades if fade]

    def test_a_still_stays_behind_and_fades_while_the_movie_is_elsewhere(self):
        done = self.rendering(seconds=4, Fadeout="1", Interval="1.5", **FLY)
        places = done.movie_frames()
        [first, *_] = self.fades(done)
        self.assertEqual({tuple(window(line, "fade")["frame"]) for line in first}, {tuple(places[0])})
        self.assertEqual({tuple(line["movie"]["frame"]) for line in first}, {tuple(places[1])})
        alphas = [window(line, "fade")["alpha"] for line in first]
        self.assertEqual(alphas, sorted(alphas, reverse=True))
        self.assertGreater(alphas[0], 0.9)
        self.assertLess(alphas[-1], 0.5)

    def test_the_window_is_parked_when_the_fade_is_over(self):
        done = self.rendering(seconds=4, Fadeout="1", Interval="1.5", **FLY)
        over = done.trace.index(self.fades(done)[0][-1]) + 1
        rest = [line for line in done.trace[over:] if not line["fading"]]
        self.assertTrue(rest)
        for line in rest:
            parked = window(line, "fade")
            self.assertEqual((parked["frame"], parked["alpha"]), ([0, 0, 1, 1], 1))

    def test_the_still_is_seen_where_the_movie_was(self):
        done = self.rendering("--every", "60", seconds=1.5, Fadeout="1", Interval="1", **FLY)
        line = done.trace[-1]
        self.assertTrue(line["fading"])
        x, y, width, height = window(line, "fade")["frame"]
        red, green, blue = done.last_picture().at(int(x + width / 2), int(HEIGHT - y - height / 2))
        self.assertGreater(red, 60)
        self.assertLess(max(green, blue), 40)

    def test_nothing_stays_behind_where_fading_is_off(self):
        done = self.rendering(seconds=2, Interval="0.4", **FLY)
        self.assertEqual({line["fading"] for line in done.trace}, {False})
        self.assertEqual({each["kind"] for line in done.trace for each in line["windows"]}, {"host"})
        self.assertGreater(len(done.movie_frames()), 2)


if __name__ == "__main__":
    unittest.main()
