"""`kestro scan` and `kestro latest` against a site on loopback, and the saver that plays what they found."""

import datetime
import os
import pty
import resource
import select
import signal
import subprocess
import time
import unittest

from harness import BOUND, KESTRO, Rendering, movie as movie_file, wait_until
from scantest import LIST, ScanTest
from trailersite import Hanging, TrailerSite, endless, link, movie, packed, page


class Scan(ScanTest):
    def test_a_scan_keeps_what_it_found(self):
        self.small_site()
        done = self.scan()
        self.assertRegex(done.stdout, r"^3 pages, 3 records, \d+\.\d seconds\n$")
        today = datetime.date.today().strftime("%Y/%m/%d")
        saved = self.saved()
        self.assertEqual(saved["Ver"], "010901")
        self.assertIn({"URL": self.site.url("/trailers/a/a_640.mov"), "Size": "640 x 204", "Date": today, "AC": "Y"},
                      saved["Trailers"])
        self.assertEqual(set(saved["Sites"]),
                         {self.site.url(path) for path in ("/trailers/", "/trailers/a/", "/trailers/b/")})
        self.assertEqual(self.latest(6, 480), [self.site.url("/trailers/a/a_480.mov"),
                                               self.site.url("/trailers/b/b_480.mov")])
        self.assertEqual(self.latest(1, 480), [self.site.url("/trailers/b/b_480.mov")])
        self.assertEqual(self.latest(0, 640), [self.site.url("/trailers/a/a_640.mov")])
        self.assertEqual(self.latest(6, 320), [])

    def test_a_second_scan_fetches_the_start_page_and_new_pages_only(self):
        self.small_site()
        self.scan()
        self.site.asked.clear()
        self.pages["/trailers/"] = page(link("a/"), link("b/"), link("c/"))
        self.pages["/trailers/c/"] = page(movie("c_480.mov"))
        self.assertRegex(self.scan().stdout, "^2 pages, 4 records")
        self.assertEqual(self.site.asked, ["/trailers/", "/trailers/c/"])

    def test_forgetting_begins_anew(self):
        self.small_site()
        self.scan()
        del self.pages["/trailers/b/"]
        self.site.asked.clear()
        self.assertRegex(self.scan("--forget").stdout, "^2 pages, 2 records")
        self.assertEqual(self.site.asked, ["/trailers/", "/trailers/a/", "/trailers/b/"])
        self.assertEqual(self.urls(), {self.site.url("/trailers/a/a_480.mov"), self.site.url("/trailers/a/a_640.mov")})

    def test_a_site_that_is_gone_leaves_the_list_alone(self):
        self.small_site()
        self.scan()
        before = self.list_path().read_bytes()
        self.pages.clear()
        for words in ([], ["--forget"]):
            done = self.scan(*words, status=1)
            self.assertRegex(done.stderr, rf"kestro: Cannot read {self.site.url()}: .*404\n")
            self.assertEqual(done.stderr.count("Cannot read"), 1)
            self.assertEqual(self.list_path().read_bytes(), before)

    def test_pages_of_every_kind_are_scanned_or_passed_over(self):
        good = page(movie("t_480.mov"))
        self.pages.update({
            "/trailers/": page(link("packed/"), link("moved/"), link("loop/"), link("gone/"), link("large/"),
                               link("bomb/"), link("clip.mov"), link("a%20b/"), "feed('list.json')"),
            "/trailers/packed/": packed(good),
            "/trailers/moved/": ("redirect", "/elsewhere/"),
            "/elsewhere/": good,
            "/trailers/loop/": ("redirect", "/trailers/loop/"),
            "/trailers/large/": endless,
            "/trailers/bomb/": packed("x" * 300_000_000),
            "/trailers/clip.mov": bytes(range(256)) * 1000,
            "/trailers/a%20b/": good,
            "/trailers/list.json": '{"location":"/trailers/fed/"}',
            "/trailers/fed/": good,
        })
        done = self.scan("--verbose")
        folders = ("packed", "moved", "a%20b", "fed")
        self.assertEqual(self.urls(), {self.site.url(f"/trailers/{folder}/t_480.mov") for folder in folders})
        self.assertIn("too large", done.stderr)
        for folder in ("loop", "large"):
            self.assertEqual(done.stderr.count(f"Cannot read {self.site.url(f'/trailers/{folder}/')}: "), 1)
        self.assertNotIn(f"Cannot read {self.site.url('/trailers/gone/')}", done.stderr)
        self.assertNotRegex(done.stderr, "Cannot read .*Cannot read")
        for folder in ("loop", "gone", "large", "bomb"):
            self.assertRegex(done.stderr, rf"{self.site.url(f'/trailers/{folder}/')}: .+")
        self.assertRegex(done.stdout, "^6 pages, 4 records")

    def test_a_scan_never_leaves_its_host(self):
        other = TrailerSite(self)
        other.pages["/trailers/"] = page(movie("x_480.mov"))
        self.pages["/trailers/"] = page(link(other.url()), link("/elsewhere/"))
        self.scan()
        self.assertEqual(other.asked, [])
        self.assertEqual(self.site.asked, ["/trailers/"])

    def test_the_site_of_the_configuration_is_scanned(self):
        self.small_site()
        self.home.configure(f"[trailers]\nstart={self.site.url()}\nhost=127.0.0.1\n")
        self.assertRegex(self.run_kestro("scan").stdout, "^3 pages")

    def test_a_host_that_the_start_page_is_not_on_is_a_line(self):
        self.small_site()
        for host in ("elsewhere", "http://127.0.0.1", "127.0.0.1/"):
            done = self.scan("--forget", "--host", host)
            self.assertRegex(done.stdout, "^1 pages")
            lines = [line for line in done.stderr.splitlines() if host in line]
            self.assertEqual(lines, [f'The site\'s host is set to "{host}", but {self.site.url()} is on '
                                     f'"{self.site.host}": no link is followed.'])
        self.assertNotIn("host", self.scan("--forget", "--host", "127.0.0.1").stderr)

    def test_pages_that_are_refused_as_ascii_are_counted_in_a_line(self):
        self.pages.update({"/trailers/": link("a/") + link("b/"),
                           "/trailers/a/": page(movie("a_480.mov")) + "\u00e9",
                           "/trailers/b/": page(movie("b_480.mov"))})
        done = self.scan()
        self.assertRegex(done.stdout, "^2 pages, 1 records")
        self.assertEqual([line for line in done.stderr.splitlines() if line.startswith("Pages refused: ")],
                         ['Pages refused: 1. A start page without "<html>" has pages read as ASCII, and these hold '
                          'other characters.'])
        self.assertIn(self.site.url("/trailers/a/"), self.saved()["Sites"])

    def test_a_lock_that_cannot_be_made_is_a_line_and_the_scan_runs(self):
        self.small_site()
        lock = self.list_path("Kestro_Scanned_Trailers.lock")
        lock.mkdir()
        done = self.scan()
        self.assertEqual(done.stderr.count(f"Cannot make the lock {lock}: Is a directory\n"), 1)
        self.assertRegex(done.stdout, "^3 pages")
        self.assertEqual(len(self.urls()), 3)

    def test_a_folder_that_cannot_be_made_is_a_line_and_the_scan_runs(self):
        self.small_site()
        self.home.preferences.rmdir()
        self.home.preferences.touch()
        done = self.scan(status=1)
        self.assertEqual(set(done.stderr.splitlines()),
                         {f"Cannot make the folder {self.home.preferences}: Not a directory", "Thread started.",
                          "Thread exited.", "Failed to save list."})
        self.assertRegex(done.stdout, "^3 pages, 3 records")

    def test_no_site_is_one_line_and_status_1(self):
        done = self.run_kestro("scan", status=1)
        self.assertOneLine(done.stderr, str(self.home.path / ".config" / "kestro" / "kestro.conf"))
        self.assertOneLine(self.run_kestro("scan", "--start", "trailers/", status=1).stderr, '"trailers/"')

    def test_a_broken_configuration_is_a_line(self):
        self.home.configure("[trailers]\nstart\n")
        self.assertIn("kestro.conf, line 2: ", self.run_kestro("latest", "1", "480").stderr)

    def test_a_list_file_that_is_none_is_kept_aside(self):
        self.small_site()
        self.list_path().mkdir()
        (self.list_path() / "in-the-way").touch()
        self.list_path("Kestro_Scanned_Trailers~.lst").touch()
        self.assertIn("kept as", self.scan().stderr)
        self.assertEqual(len(self.urls()), 3)
        self.assertTrue((self.list_path("Kestro_Scanned_Trailers~1.lst") / "in-the-way").exists())

    def test_a_full_disk_is_status_1_and_leaves_the_list_alone(self):
        self.small_site()
        self.scan()
        before = self.list_path().read_bytes()
        self.pages["/trailers/"] = page(link("c/"))
        self.pages["/trailers/c/"] = page(movie("c_480.mov"))
        full = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (len(before), len(before)))
        done = subprocess.run([KESTRO, "scan", "--start", self.site.url()], env=self.home.environment(),
                              capture_output=True, text=True, timeout=BOUND, preexec_fn=full, restore_signals=False)
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertIn("Failed to save list.", done.stderr)
        self.assertEqual(self.list_path().read_bytes(), before)


class Interrupted(ScanTest):
    def setUp(self):
        super().setUp()
        self.small_site()
        self.hanging = Hanging()
        self.addCleanup(self.hanging.is_over.set)
        self.pages["/trailers/b/"] = self.hanging

    def start_scan(self, *words):
        process = self.start_kestro("scan", "--start", self.site.url(), *words)
        self.assertTrue(self.hanging.is_asked.wait(BOUND))
        return process

    def test_a_signal_ends_the_scan_which_saves_what_it_has(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(signal=number):
                self.hanging.is_asked.clear()
                process = self.start_scan("--forget")
                process.send_signal(number)
                output, _ = process.communicate(timeout=BOUND)
                self.assertEqual(process.returncode, 0)
                self.assertRegex(output, "^2 pages, 2 records")
                self.assertEqual(len(self.urls()), 2)

    def test_what_another_process_saves_meanwhile_stays_on_record(self):
        process = self.start_scan()
        other = "http://h/other.mov"
        self.home.write({"Ver": "010901", "Sites": ["http://h/"],
                         "Trailers": [{"URL": other, "Size": "480 x 204", "Date": "2008/01/01"}]}, name=LIST)
        self.hanging.is_over.set()
        process.communicate(timeout=BOUND)
        self.assertEqual(process.returncode, 0)
        self.assertEqual(self.urls() - {other}, {self.site.url("/trailers/a/a_480.mov"),
                                                 self.site.url("/trailers/a/a_640.mov")})
        self.assertIn(other, self.urls())
        self.assertIn("http://h/", self.saved()["Sites"])

    def test_a_second_scan_is_refused_while_one_runs(self):
        process = self.start_scan()
        done = self.scan(status=1)
        self.assertOneLine(done.stderr, "Another crawl is running")
        self.assertEqual(done.stdout, "")
        process.kill()
        process.communicate(timeout=BOUND)
        self.pages["/trailers/b/"] = page()
        self.assertRegex(self.scan().stdout, "^3 pages")

    def test_a_terminal_shows_a_line_that_fits_it(self):
        terminal, theirs = pty.openpty()
        os.set_blocking(terminal, False)
        subprocess.run(["stty", "cols", "40"], stdin=theirs, check=True)
        process = subprocess.Popen([KESTRO, "scan", "--start", self.site.url()], env=self.home.environment(),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=theirs, text=True)
        shown = ""

        def shows(fragment):
            nonlocal shown
            if select.select([terminal], [], [], 0)[0]:
                shown += os.read(terminal, 65536).decode()
            return fragment in shown

        wait_until(lambda: shows("2 pages, "), "the progress line")
        process.send_signal(signal.SIGTERM)
        output, _ = process.communicate(timeout=BOUND)
        os.close(theirs)
        self.assertRegex(output, "^2 pages, ")
        lines = [part for part in shown.replace("\x1b[K", "").replace("\r", "\n").split("\n") if " pages, " in part]
        self.assertTrue(lines)
        self.assertLess(max(map(len, lines)), 40)
        os.close(terminal)


class Played(ScanTest):
    """The saver with an automatic entry: it plays what is on record, and one crawl looks for more meanwhile."""

    def setUp(self):
        super().setUp()
        for name, colour in (("older", "green"), ("old", "red"), ("new", "blue")):
            self.pages[f"/movies/{name}/{name}_480.mov"] = movie_file(name, colour, seconds=1).read_bytes()
        self.home.configure(f"[trailers]\nstart={self.site.url()}\n")
        self.on_record = [self.site.url(f"/movies/{name}/{name}_480.mov") for name in ("old", "older")]
        self.put_on_record(*self.on_record)

    def put_on_record(self, *urls):
        records = [{"URL": url, "Size": "480 x 204", "Date": "2008/01/01"} for url in urls]
        self.home.write({"Ver": "010901", "Trailers": records, "Sites": []}, name=LIST)

    def test_the_expanded_playlist_lists_trailers_and_starts_no_crawl(self):
        self.home.play(["auto://LatestTrailers/6/480"])
        done = self.run_kestro("playlist", "--expanded")
        self.assertEqual((done.stdout, done.stderr), ("".join(url + "\n" for url in self.on_record), ""))
        self.assertEqual(self.site.asked, [])

    def test_a_saver_without_automatic_entries_never_reads_the_list(self):
        self.list_path().write_bytes(b"broken")
        self.home.play([movie_file("plain")])
        Rendering(self, seconds=1)
        self.run_kestro("playlist", "--expanded")
        self.assertEqual(self.list_path().read_bytes(), b"broken")
        self.assertEqual(self.site.asked, [])

    def test_trailers_play_and_the_next_round_has_what_one_crawl_found(self):
        found = self.site.url("/movies/new/new_480.mov")
        self.pages["/trailers/"] = page(movie("/movies/new/new_480.mov"))
        self.home.play(["auto://LatestTrailers/6/480"])
        process = self.start_kestro(QT_QPA_PLATFORM="offscreen")
        wait_until(lambda: self.site.count("/movies/new/new_480.mov"), "the trailer that was found")
        process.terminate()
        status, log = self.ended(process)
        self.assertEqual(status, 0, log)
        played = [self.site.url(path) for path in self.site.asked if path.startswith("/movies/")]
        self.assertEqual(list(dict.fromkeys(played)), [*self.on_record, found])
        self.assertEqual(self.site.count("/trailers/"), 1)
        self.assertIn(found, self.urls())

    def test_the_next_round_has_what_another_process_saved(self):
        self.home.configure("")
        self.home.play(["auto://LatestTrailers/6/480"])
        process = self.start_kestro(QT_QPA_PLATFORM="offscreen")
        wait_until(lambda: self.site.count("/movies/old/old_480.mov"), "a trailer that was on record")
        self.put_on_record(*self.on_record, self.site.url("/movies/new/new_480.mov"))
        wait_until(lambda: self.site.count("/movies/new/new_480.mov"), "the trailer that was saved meanwhile")
        process.terminate()
        status, log = self.ended(process)
        self.assertEqual(status, 0, log)

    def test_trailers_that_fail_are_left_out_of_the_next_round(self):
        gone = self.site.url("/movies/gone/gone_480.mov")
        self.pages["/trailers/"] = page()
        self.put_on_record(self.site.url("/movies/old/old_480.mov"), self.site.url("/movies/new/new_480.mov"), gone)
        self.home.play(["auto://LatestTrailers/6/480"])
        run = Rendering(self, seconds=8)
        self.assertEqual(run.log.count(f"Failed to load movie:{gone}"), 1, run.log)
        self.assertGreater(len(run.urls()), 3)

    def test_a_term_while_a_crawl_hangs_ends_at_once_and_saves(self):
        hanging = Hanging()
        self.addCleanup(hanging.is_over.set)
        self.pages["/trailers/"] = page(link("a/"), link("b/"))
        self.pages["/trailers/a/"] = page(movie("a_480.mov"))
        self.pages["/trailers/b/"] = hanging
        self.home.play(["auto://LatestTrailers/6/480"])
        process = self.start_kestro(QT_QPA_PLATFORM="offscreen")
        self.assertTrue(hanging.is_asked.wait(BOUND))
        begun = time.monotonic()
        process.send_signal(signal.SIGTERM)
        status, log = self.ended(process)
        self.assertLess(time.monotonic() - begun, 5)
        self.assertEqual(status, 0, log)
        self.assertIn(self.site.url("/trailers/a/a_480.mov"), self.urls())


if __name__ == "__main__":
    unittest.main()
