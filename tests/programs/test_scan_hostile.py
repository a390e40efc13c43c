"""`kestro scan` on sites that nobody wishes for."""

import resource
import signal
import threading
import unittest

from harness import BOUND, wait_until
from scantest import LIST, ScanTest
from trailersite import link, movie, packed, page


class Hostile(ScanTest):
    """A scan comes to its end with what it has, in bounds, and takes only movies of the web."""

    def test_only_movies_on_web_sites_are_kept(self):
        good = [self.site.url("/trailers/a.mov"), "https://elsewhere.example/b.MOV"]
        bad = ["http://h/x.swf/?.mov", "http://h/x.swf#.mov", "http://h/x%2Eswf?.mov", "file:///home/ada/diary.mp4#.mov",
               "file:///home/ada/t.mov", "edl://t.mov", "smb://h/t.mov", "data:video/mp4,t.mov", "http:///t.mov"]
        self.pages["/trailers/"] = page(*map(movie, good + bad), "feed('list.json')")
        self.pages["/trailers/list.json"] = '{"location":"file:///trailers/x/","location":"ftp://h/trailers/y/"}'
        self.assertRegex(self.scan().stdout, "^1 pages, 2 records")
        self.assertEqual(self.urls(), set(good))
        self.assertEqual(self.site.asked, ["/trailers/", "/trailers/list.json"])

    def test_an_old_list_is_cleaned_when_it_is_read(self):
        records = [{"URL": url, "Size": "480 x 204", "Date": "2008/01/01"}
                   for url in ("file:///home/ada/diary.mp4#.mov", "http://h/x/x.swf", "http://h/a/a.mov", "t.mov")]
        self.home.write({"Ver": "010901", "Trailers": records, "Sites": []}, name=LIST)
        self.home.play(["auto://LatestTrailers/6/480"])
        done = self.run_kestro("playlist", "--expanded")
        self.assertEqual(done.stdout, "http://h/a/a.mov\n")
        lines = done.stderr.splitlines()
        self.assertEqual(len(lines), 1, done.stderr)
        self.assertIn("3 entries of", lines[0])
        self.assertIn("file:///home/ada/diary.mp4", lines[0])

    def test_a_scan_stays_small_on_pages_of_commas_and_of_links(self):
        commas = "QT_WriteOBJECT_XHTML(" + "," * 30_000_000 + ")"
        links = "".join(f'href="{i:x}"' for i in range(750_000))
        self.pages.update({"/trailers/": page(link("commas/"), link("feeds/"), link("links/"), movie("t_480.mov")),
                           "/trailers/commas/": packed("<html>" + commas),
                           "/trailers/feeds/": packed("<html>" + "'a.json" * 1_500_000),
                           "/trailers/links/": packed("<html>" + links.replace('href="', 'href="//other/'))})
        process = self.start_kestro("scan", "--start", self.site.url())
        output, log = process.communicate(timeout=BOUND)
        self.assertEqual(process.returncode, 0, log)
        self.assertRegex(output, "^4 pages, 1 records")
        self.assertEqual(self.site.count("/trailers/feeds/a.json"), 1)
        self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss, 500_000)

    def test_a_term_within_a_page_of_millions_of_feeds_ends_the_scan(self):
        read = threading.Event()
        stored = packed("<html>" + "".join(f"'{i}.json" for i in range(80_000)) * 100)

        def feeds(request):
            request.send_bytes(stored)
            read.set()

        self.pages["/trailers/"] = page(link("a/"), link("feeds/"))
        self.pages["/trailers/a/"] = page(movie("a_480.mov"))
        self.pages["/trailers/feeds/"] = feeds
        process = self.start_kestro("scan", "--start", self.site.url())
        self.assertTrue(read.wait(BOUND))
        wait_until(lambda: self.site.count("/trailers/feeds/99.json"), "the last feed that is read")
        process.send_signal(signal.SIGTERM)
        output, log = process.communicate(timeout=BOUND)
        self.assertEqual(process.returncode, 0, log)
        self.assertIn("More than 100 feeds on one page", log)
        self.assertRegex(output, "^2 pages, 1 records")
        self.assertEqual(self.urls(), {self.site.url("/trailers/a/a_480.mov")})

    def test_unpacked_pages_leave_nothing_behind(self):
        self.pages["/trailers/"] = packed(page(link("bomb/"), movie("t_480.mov")))
        self.pages["/trailers/bomb/"] = packed("x" * 300_000_000)
        runtime, temporary = (self.home.path / name for name in ("runtime", "tmp"))
        for folder in (runtime, temporary):
            folder.mkdir(mode=0o700)
        process = self.start_kestro("scan", "--start", self.site.url(), XDG_RUNTIME_DIR=str(runtime), TMPDIR=str(temporary))
        output, _ = process.communicate(timeout=BOUND)
        self.assertRegex(output, "^1 pages, 1 records")
        cache = self.home.path / ".cache" / "kestro"
        self.assertEqual([list(folder.iterdir()) for folder in (runtime, temporary, cache)], [[], [], []])

    def test_what_a_killed_scan_left_goes_with_the_next(self):
        self.pages["/trailers/"] = packed("x" * 200_000_000)
        process = self.start_kestro("scan", "--start", self.site.url())
        cache = self.home.path / ".cache" / "kestro"
        wait_until(lambda: list(cache.glob("*/__tmp__*")), "the page that is unpacked")
        process.kill()
        process.communicate(timeout=BOUND)
        self.small_site()
        # The command that unpacks outlives it for a moment.
        wait_until(lambda: self.scan() and not list(cache.iterdir()), "an empty folder")


if __name__ == "__main__":
    unittest.main()
