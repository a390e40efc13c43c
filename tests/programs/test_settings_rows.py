"""The rows of the sheet's playlist, moved with the mouse as a person does: with Alt held, and the order that OK then writes."""

import plistlib
import unittest

from harness import BLUE, GREEN, RED, movie, url, wait_until
from settingswindow import TITLE, SettingsTest

SHEET = "Screen Saver Options"
ENTRIES = 30
BACK = ENTRIES - 2  # the last row but one, which is green; all others are red, but for the blue row 2
TINT = 40  # how far the keyboard's frame around a row takes its picture from its colour
HOLD, LET_GO = ("keydown alt", "mousedown 1"), ("mouseup 1", "keyup alt")


class Rows(SettingsTest):
    """A playlist that is longer than its table, and a window manager that leaves the mouse and Alt to the programs."""

    def setUp(self):
        super().setUp()
        looks = {2: movie("blue", "blue"), BACK: movie("green", "green")}
        self.entries = []
        for row in range(ENTRIES):
            entry = self.home.path / f"entry{row:02}.mp4"
            entry.symlink_to(looks.get(row, movie("red")))
            self.entries.append(url(entry))
        self.home.play(self.entries)
        self.process, _ = self.start_window()
        self.press("alt+o")
        self.sheet = self.window(SHEET)
        self.column = wait_until(self.column_of_pictures, "the pictures of the rows")
        self.settle()
        self.middles = [(top + bottom) // 2 for top, bottom, _ in self.rows_shown()]

    def window_manager(self):
        settings = self.home.path / "openbox.xml"
        settings.write_text('<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard/><mouse/></openbox_config>')
        return ["openbox", "--config-file", str(settings)]

    def column_of_pictures(self):
        """Where, from left to right, the pictures of the rows are, once all that have room are drawn."""
        left, _, width, _ = self.place(self.sheet)
        picture = self.server.picture()
        for x in range(left, left + width // 4, 8):
            rows = self.rows_in(picture, x)
            if len(rows) >= 5 and self.place_among(rows, BLUE) and rows[1][0] - rows[0][0] == rows[-1][0] - rows[-2][0]:
                return x
        return None

    def rows_shown(self):
        return self.rows_in(self.server.picture(), self.column)

    def rows_in(self, shown, x):
        """(top, bottom, colour) of each row's picture, from the uppermost."""
        _, top, _, height = self.place(self.sheet)
        rows, before = [], None
        for y in range(top, top + height):
            colour = next((each for each in (RED, GREEN, BLUE) if shown.is_near(x, y, each, TINT)), None)
            if colour and colour != before:
                rows.append((y, y, colour))
            elif colour:
                rows[-1] = (rows[-1][0], y, colour)
            before = colour
        return rows

    def place_of(self, colour):
        """The middle, from top to bottom, of the row of that colour that is wholly shown; nothing where there is none."""
        return self.place_among(self.rows_shown(), colour)

    def place_among(self, rows, colour):
        tallest = max((bottom - top for top, bottom, _ in rows), default=0)
        return next(((top + bottom) // 2 for top, bottom, each in rows if each == colour and bottom - top >= tallest - 1), None)

    def at(self, row):
        """The step that points at a row, of those that are shown when the sheet opens."""
        return self.at_height(self.middles[row])

    def at_height(self, y):
        return f"mousemove {self.column + 60} {y}"

    def below_the_table(self):
        _, top, _, height = self.place(self.sheet)
        return self.at_height(top + height - 5)

    def order_after_ok(self):
        """The numbers of the entries in the file, in its order, once OK has written it."""
        file = self.home.preferences / "Kestro.plist"
        file.unlink()
        self.window(SHEET)
        self.press("Return")
        self.window(TITLE)
        wait_until(file.exists, "the file")
        order = [self.entries.index(entry) for entry in plistlib.loads(file.read_bytes())["FileList"]]
        self.close_window(self.process)
        return order

    def moved(self, start, end):
        order = list(range(ENTRIES))
        order.insert(end, order.pop(start))
        return order

    def test_row_goesWhereItIsDropped_whenDraggedWithAlt(self):
        self.point(self.at(1), *HOLD, self.at(2), self.at(4), *LET_GO)
        self.assertEqual(self.order_after_ok(), self.moved(1, 4))

    def test_row_goesUpToo(self):
        self.point(self.at(4), *HOLD, self.at(2), self.at(0), *LET_GO)
        self.assertEqual(self.order_after_ok(), self.moved(4, 0))

    def test_row_isShownOnItsWay(self):
        pitch = self.middles[1] - self.middles[0]
        self.point(self.at(2), *HOLD, self.at_height(self.middles[4] - pitch // 4))

        def line():
            return [top for top, bottom, colour in self.rows_shown() if colour == BLUE and bottom - top == 1]

        top = wait_until(line, "the line at the place where the row would go")[0]
        self.assertAlmostEqual(top, self.middles[4] + pitch / 2, delta=3)
        self.point(*LET_GO)
        wait_until(lambda: self.place_of(BLUE) == self.middles[4], "the row at its new place")
        self.assertEqual(self.order_after_ok(), self.moved(2, 4))

    def test_rows_areSelected_whenDraggedWithoutAlt(self):
        self.point(self.at(1), "mousedown 1", self.at(2), self.at(3), "mouseup 1")
        self.press_slowly("Delete")
        self.assertEqual(self.order_after_ok(), [0, *range(4, ENTRIES)])

    def test_row_isMovedAlone_whenSeveralAreSelected(self):
        self.point(self.at(1), "click 1", "keydown shift", self.at(4), "click 1", "keyup shift")
        self.point(self.at(3), *HOLD, self.at(2), self.at(1), *LET_GO)
        self.press_slowly("Delete")
        self.assertEqual(self.order_after_ok(), [0, 1, 2, *range(4, ENTRIES)])

    def test_row_stays_whenDroppedOnItself(self):
        self.point(self.at(2), *HOLD, self.at(4), self.at(0), self.at(2), *LET_GO)
        self.assertEqual(self.order_after_ok(), list(range(ENTRIES)))

    def test_row_stays_whenItsMoveIsGivenUpWithEscape(self):
        self.point(self.at(2), *HOLD, self.at(4))
        wait_until(lambda: not self.place_of(BLUE), "the row's start")
        self.point("keyup alt", "key Escape")
        wait_until(lambda: self.place_of(BLUE), "the row at its old place")
        self.point(self.at(5), "mouseup 1")
        self.assertEqual(self.order_after_ok(), list(range(ENTRIES)))

    def test_row_goesBesideWhereItIsLetGo_whenTheMouseIsOutsideTheTable(self):
        self.point(self.at(1), *HOLD, self.at(2), f"mousemove 1020 {self.middles[3]}", *LET_GO)
        self.assertEqual(self.order_after_ok(), self.moved(1, 3))

    def test_table_scrollsByItself_whenTheRowIsHeldBelow(self):
        self.point(self.at(0), *HOLD, self.at(2), self.below_the_table())
        wait_until(lambda: self.place_of(GREEN), "the end of the list")
        # Where the green row is when the mouse is inside, there it stays.
        self.point(self.at(2))
        self.settle()
        self.point(self.at_height(wait_until(lambda: self.place_of(GREEN), "the green row")), *LET_GO)
        self.assertEqual(self.order_after_ok(), self.moved(0, BACK))

    def test_row_becomesTheLast_whenHeldBelowUntilTheEnd(self):
        self.point(self.at(0), *HOLD, self.at(2), self.below_the_table())
        wait_until(lambda: self.place_of(GREEN), "the end of the list")
        self.settle()
        self.point(*LET_GO)
        self.assertEqual(self.order_after_ok(), self.moved(0, ENTRIES - 1))


if __name__ == "__main__":
    unittest.main(verbosity=2)
