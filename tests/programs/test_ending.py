"""How programs end when they are told to, whatever they are about, and what a running one has given up."""

import gzip
import pathlib
import plistlib
import re
import signal
import unittest

from harness import BOUND, ProgramTest, movie, wait_until
from trailersite import Hanging, TrailerSite, link, movie as trailer, page
from xserver import XServer

BOUNDS = pathlib.Path(__file__).parents[2] / "src/platform/base/Bounds.h"
SOON = 10  # seconds: many times the bound, on a busy machine, and much less than what is going on takes
# Names of feeds, so many that a page with them takes its reader a while.
FEED = b"'a/x.json' "
FEEDS = 200 * 1000 * 1000 // len(FEED)


def bound_named(name):
    """A number of the header that names the bounds."""
    return int(re.search(rf"\b{name} = (-?\d+);", BOUNDS.read_text())[1])


def told(pid, name):
    """What the kernel says of a process under a name; nothing once it is gone."""
    try:
        found = re.search(rf"^{name}:\t(.*)$", pathlib.Path(f"/proc/{pid}/status").read_text(), re.M)
    except FileNotFoundError:
        return None
    return found[1] if found else None


class Running(ProgramTest):
    def start_saver(self, **environment):
        """A saver that plays."""
        self.home.play([movie("red-long", "red", seconds=60)], FullScreenMode="1", Continue="1")
        process = self.start_kestro(**{"QT_QPA_PLATFORM": "offscreen", **environment})
        wait_until(lambda: "Kestro.saver" in pathlib.Path(f"/proc/{process.pid}/maps").read_text(), "the saver")
        return process

    def test_a_saver_gets_no_new_rights(self):
        self.assertEqual(told(self.start_saver().pid, "NoNewPrivs"), "1")

    def test_a_saver_writes_no_core(self):
        limits = pathlib.Path(f"/proc/{self.start_saver().pid}/limits").read_text()
        self.assertRegex(limits, r"Max core file size +0 +0 ")

    def test_a_saver_is_the_first_to_go_when_memory_runs_out(self):
        standing = pathlib.Path(f"/proc/{self.start_saver().pid}/oom_score_adj").read_text()
        self.assertEqual(int(standing), bound_named("oomScore"))

    def test_the_window_with_the_settings_stands_as_any_other_program(self):
        process = self.start_kestro("settings", QT_QPA_PLATFORM="offscreen")
        maps = pathlib.Path(f"/proc/{process.pid}/maps")
        wait_until(lambda: "libkestro-live" in maps.read_text(), "the window")
        ours = pathlib.Path("/proc/self/oom_score_adj").read_text()
        self.assertEqual(pathlib.Path(f"/proc/{process.pid}/oom_score_adj").read_text(), ours)
        self.assertEqual(told(process.pid, "NoNewPrivs"), "1")

    def test_a_signal_that_comes_twice_leaves_time_for_the_resume_point(self):
        """As the program timeout sends it: to the process, then to its group."""
        server = XServer("320x240")
        self.addCleanup(server.close)
        process = self.start_saver(DISPLAY=server.display, QT_QPA_PLATFORM="xcb")
        wait_until(lambda: server.picture().is_near(160, 120, (255, 0, 0)), "the movie")
        for _ in range(2):
            process.send_signal(signal.SIGTERM)
        self.assertEqual(self.ended(process)[0], 0)
        self.assertEqual(self.home.resume_point().get("LastMovie"), "red-long.mp4")

    def test_no_scratch_folder_is_left_where_there_is_no_session(self):
        scratch = self.leave_session()
        for number in (signal.SIGTERM, signal.SIGKILL):
            with self.subTest(signal=number.name):
                process = self.start_saver()
                process.send_signal(number)
                process.wait(timeout=BOUND)
                self.assertEqual(list(scratch.iterdir()), [])

    def test_a_display_that_stands_still_holds_nothing_up(self):
        server = XServer("320x240")
        self.addCleanup(server.close)
        process = self.start_saver(DISPLAY=server.display, QT_QPA_PLATFORM="xcb", KESTRO_PATIENCE="120")
        wait_until(lambda: server.picture().is_near(160, 120, (255, 0, 0)), "the movie")
        self.addCleanup(server.signal, signal.SIGCONT)
        server.signal(signal.SIGSTOP)
        process.send_signal(signal.SIGTERM)
        self.assertIn(process.wait(timeout=SOON), (0, -signal.SIGTERM))


class HostilePage(ProgramTest):
    """A page that takes its reader long."""

    def setUp(self):
        super().setUp()
        self.site = TrailerSite(self)
        self.site.pages["/trailers/"] = page(trailer("a_480.mov"), link("b/"))
        self.site.pages["/trailers/b/"] = gzip.compress(FEED * FEEDS, compresslevel=1, mtime=0)

    def is_read(self):
        wait_until(lambda: self.site.count("/trailers/b/"), "the page to be read")

    def test_a_scan_ends_soon_when_it_is_interrupted(self):
        process = self.start_kestro("scan", "--start", self.site.url())
        self.is_read()
        process.send_signal(signal.SIGINT)
        self.assertIn(process.wait(timeout=SOON), (0, -signal.SIGINT))

    def test_a_saver_ends_soon_while_its_crawl_reads_it(self):
        self.home.trailer_site(self.site.url())
        self.home.play(["auto://LatestTrailers/6/480"], FullScreenMode="1")
        process = self.start_kestro(QT_QPA_PLATFORM="offscreen")
        self.is_read()
        process.send_signal(signal.SIGTERM)
        self.assertIn(process.wait(timeout=SOON), (0, -signal.SIGTERM))


class LongList(ProgramTest):
    RECORDS = 90000  # which take longer to write than a process otherwise has

    def test_a_scan_that_is_interrupted_saves_all_it_has(self):
        site, hanging = TrailerSite(self), Hanging()
        self.addCleanup(hanging.is_over.set)
        site.pages["/trailers/"] = page(link("a/"), link("b/"))
        site.pages["/trailers/a/"] = page(*(trailer(f"t{i}/m_480.mov") for i in range(self.RECORDS)))
        site.pages["/trailers/b/"] = hanging
        process = self.start_kestro("scan", "--start", site.url())
        self.assertTrue(hanging.is_asked.wait(BOUND))
        process.send_signal(signal.SIGINT)
        self.assertEqual(self.ended(process)[0], 0)
        saved = plistlib.loads((self.home.preferences / "Kestro_Scanned_Trailers.lst").read_bytes())
        self.assertEqual(len(saved["Trailers"]), self.RECORDS)


if __name__ == "__main__":
    unittest.main()
