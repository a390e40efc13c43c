"""`kestro publish`: what it makes of a folder of movies, what it does the next time, what it refuses."""

import os
import pathlib
import pty
import re
import resource
import shlex
import shutil
import signal
import subprocess
import unittest

from harness import BOUND, KESTRO
from publishing import TITLES, PublishTest, put


class Written(PublishTest):
    def test_names_on_the_site_need_no_escapes(self):
        self.put_tree()
        self.publish()
        for path in self.trailers.rglob("*"):
            self.assertRegex(path.name, r"^[a-z0-9_.-]+$")
        self.assertEqual({entry["title"] for entry in self.feed()}, TITLES)

    def test_pages_are_ascii_with_their_texts_escaped_and_nothing_from_elsewhere(self):
        self.put_tree()
        self.publish()
        pages = [self.trailers / "index.html", *self.trailers.glob("*/index.html")]
        self.assertEqual(len(pages), 1 + len(TITLES))
        for page in pages:
            text = page.read_bytes().decode("ascii")
            self.assertIn("<html>", text)
            self.assertNotIn("<b>", text)
            self.assertNotIn("//", text)
        for name in ("site.css", "player.js", "gallery.js"):
            self.assertNotRegex((self.trailers / name).read_text(), r"https?:|@import|url\(")

    def test_everything_that_pages_name_is_there(self):
        self.put_tree()
        self.publish()
        for page in [self.trailers / "index.html", *self.trailers.glob("*/index.html")]:
            named = re.findall(r"""(?:src|href|data-poster)=["']([^"']+)["']""", page.read_text())
            named += re.findall(r"(?:original',|original:)'([^']+)'", page.read_text())
            self.assertGreater(len(named), 5)
            for name in named:
                self.assertTrue((page.parent / name.replace("&#46;", ".")).exists(), (page, name))

    def test_posters_are_pictures_of_the_movies(self):
        put(self.movies, "sea_640.mov", "640x272", "blue")
        self.publish()
        size = subprocess.run(["identify", "-format", "%m %wx%h %[pixel:p{320,136}]", str(self.trailers / "sea" / "poster.jpg")],
                              check=True, capture_output=True, text=True, timeout=BOUND).stdout
        self.assertRegex(size, r"^JPEG 640x272 srgb\([0-3],[0-3],25\d\)$")

    def test_movies_take_no_room_unless_they_are_copied(self):
        source = put(self.movies, "sea.mp4")
        self.publish()
        for name in ("sea_480.mov", "sea_480.mp4"):
            self.assertTrue((self.trailers / "sea" / name).samefile(source))
        self.publish("--copy")
        for name in ("sea_480.mov", "sea_480.mp4"):
            self.assertFalse((self.trailers / "sea" / name).samefile(source))
            self.assertEqual((self.trailers / "sea" / name).read_bytes(), source.read_bytes())

    def test_a_movie_whose_index_is_last_is_copied_with_its_index_first(self):
        source = put(self.movies, "sea.mp4", is_streamable=False)
        self.assertGreater(source.read_bytes().find(b"moov"), source.read_bytes().find(b"mdat"))
        self.publish()
        for name in ("sea_480.mov", "sea_480.mp4"):
            placed = (self.trailers / "sea" / name).read_bytes()
            self.assertLess(placed.find(b"moov"), placed.find(b"mdat"))
        self.assertIn("(0 files written, 0 removed)", self.publish().stdout)

    def test_the_summary_says_how_to_serve_and_scan(self):
        put(self.movies, "sea.mov")
        said = self.publish().stdout
        self.assertIn("1 title with 1 movie in ", said)
        self.assertIn(f"python3 -m http.server --directory {self.site} 8000\n", said)
        self.assertIn("kestro scan --start http://HOST:8000/trailers/\n", said)
        self.assertIn("auto://LatestTrailers/6/480", said)
        self.assertIn("kestro scan --start http://nas/trailers/\n", self.publish("--base-url", "http://nas/").stdout)
        elsewhere = self.publish("--base-url", "http://nas/films").stdout
        self.assertNotIn("kestro scan", elsewhere)
        self.assertIn("only where its path begins with /trailers", elsewhere)


    def test_the_command_to_serve_is_one_for_a_shell_whatever_the_folder_is_called(self):
        put(self.movies, "sea.mov")
        self.site = self.home.path / "it's $HOME"
        serve = re.search(r"^Serve:  (.*)$", self.publish().stdout, re.M)[1]
        self.assertEqual(shlex.split(serve)[3:], ["--directory", str(self.site), "8000"])

    def test_a_terminal_shows_how_far_it_is_in_one_line(self):
        put(self.movies, "sea.mov")
        put(self.movies, "sky.mov")
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        process = subprocess.Popen([KESTRO, "publish", str(self.movies), str(self.site)], env=self.home.environment(),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=slave,
                                   start_new_session=True)
        os.close(slave)
        self.addCleanup(lambda: process.poll() is None and process.kill())
        self.assertEqual(process.wait(BOUND), 0)
        shown = os.read(master, 65536).decode()
        self.assertNotIn("\n", shown)
        self.assertEqual(re.findall(r"(Reading|Writing) (\d of 2): (\S+)", shown.replace("\x1b[K", "").replace("\r", " ")),
                         [("Reading", "1 of 2", "sea.mov"), ("Reading", "2 of 2", "sky.mov"),
                          ("Writing", "1 of 2", "Sea"), ("Writing", "2 of 2", "Sky")])
        self.assertTrue(shown.endswith("\r\x1b[K"), shown)


class Again(PublishTest):
    def test_nothing_is_touched_when_nothing_changed(self):
        self.put_tree()
        self.publish()
        before = self.snapshot()
        self.assertIn("(0 files written, 0 removed)", self.publish().stdout)
        self.assertEqual(self.snapshot(), before)

    def test_two_sites_of_the_same_movies_are_the_same(self):
        self.put_tree()
        self.publish()
        first = self.contents()
        self.site = self.home.path / "another"
        self.publish()
        self.assertEqual(self.contents(), first)

    def test_titles_go_with_their_movies_and_foreign_files_stay(self):
        sea = put(self.movies, "sea.mov")
        put(self.movies, "sky.mov")
        self.publish()
        for foreign in ("index.html", "trailers/notes.txt", "trailers/sea/notes.txt"):
            (self.site / foreign).write_text("mine")
        sea.unlink()
        self.assertIn(" removed", self.publish().stdout)
        self.assertEqual([path.name for path in (self.trailers / "sea").iterdir()], ["notes.txt"])
        for foreign in ("index.html", "trailers/notes.txt", "trailers/sea/notes.txt"):
            self.assertEqual((self.site / foreign).read_text(), "mine")
        self.assertEqual([entry["title"] for entry in self.feed()], ["Sky"])

    def test_another_movie_of_the_same_name_takes_its_place(self):
        put(self.movies, "sea_480.mov")
        self.publish()
        put(self.movies, "sea_480.mov", "480x270", "blue")
        self.publish()
        self.assertIn("'480','270'", (self.trailers / "sea" / "index.html").read_text())


class Refused(PublishTest):
    def assertRefused(self, fragment, *words):
        done = self.publish(*words, status=1)
        self.assertEqual(done.stdout, "")
        self.assertOneLine(done.stderr, fragment)

    def test_a_folder_without_movies(self):
        (self.movies / "notes.txt").write_text("no movie")
        self.assertRefused(f"No movies in {self.movies}")
        self.assertFalse(self.site.exists())

    def test_a_folder_that_is_not_there(self):
        self.movies.rmdir()
        self.assertRefused("does not exist")

    def test_an_emptied_folder_leaves_the_site_as_it_is(self):
        sea = put(self.movies, "sea.mov")
        self.publish()
        before = self.snapshot()
        sea.unlink()
        self.assertRefused("No movies in")
        self.assertEqual(self.snapshot(), before)

    def test_broken_movies_are_named_and_left_out(self):
        put(self.movies, "sea.mov")
        (self.movies / "torn.mov").write_bytes(b"no movie" * 1000)
        (self.movies / "empty.mp4").touch()
        done = self.publish()
        self.assertEqual(sorted(re.findall(r"Left out (\S+): ", done.stderr)), ["empty.mp4", "torn.mov"])
        self.assertIn("2 movies left out", done.stdout)
        self.assertEqual([entry["title"] for entry in self.feed()], ["Sea"])

    def test_a_folder_of_nothing_but_broken_movies(self):
        (self.movies / "torn.mov").write_bytes(b"no movie" * 1000)
        self.assertRefused("can be read (torn.mov: ")
        self.assertFalse(self.site.exists())

    def test_a_foreign_file_in_the_way(self):
        put(self.movies, "sea.mov")
        self.trailers.mkdir(parents=True)
        (self.trailers / "index.html").write_text("mine")
        self.assertRefused(f"{self.trailers / 'index.html'} is in the way")
        self.assertEqual([path.name for path in self.trailers.iterdir()], ["index.html"])

    def test_a_site_that_cannot_be_made(self):
        put(self.movies, "sea.mov")
        self.site.write_text("a file")
        self.assertRefused(str(self.trailers))

    def test_a_full_disk_leaves_every_page_whole(self):
        put(self.movies, "sea.mov")
        self.publish("--copy")
        before = self.contents()
        with open(put(self.movies, "sky.mov", colour="blue"), "ab") as large:
            large.write(bytes(100_000))

        def fill_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (20_000, 20_000))

        done = subprocess.run([KESTRO, "publish", "--copy", str(self.movies), str(self.site)], env=self.home.environment(),
                              capture_output=True, text=True, timeout=BOUND, stdin=subprocess.DEVNULL,
                              preexec_fn=fill_disk)
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertOneLine(done.stderr, f"Cannot write {self.trailers / 'sky' / 'sky_480.mov'}: ")
        after = self.contents()
        for path, content in before.items():
            if not path.endswith(".kestro-site.json"):
                self.assertEqual(after[path], content, path)
        self.assertEqual([path for path in after if path.endswith(".part")], [])
        self.assertIn("2 titles", self.publish().stdout)


class Placed(PublishTest):
    def test_a_site_among_the_movies_is_not_published_again(self):
        put(self.movies, "sea.mov")
        for site in (self.movies / "site", self.movies):
            self.site = site
            for _ in range(2):
                self.assertIn("1 title with 1 movie", self.publish().stdout)
            shutil.rmtree(site / "trailers")

    def test_links_that_go_in_circles_are_walked_once(self):
        put(self.movies, "deep/sea.mov")
        (self.movies / "deep" / "up").symlink_to(self.movies)
        (self.movies / "self").symlink_to("self")
        self.assertIn("1 title with 1 movie", self.publish().stdout)

    def test_a_movie_behind_a_link_is_served_where_the_link_is_not(self):
        far = put(self.home.path / "far", "sea.mov")
        (self.movies / "sea.mov").symlink_to(os.path.relpath(far, self.movies))
        self.publish()
        self.assertTrue((self.trailers / "sea" / "sea_480.mov").samefile(far))

    def test_a_file_system_without_hard_links_to_it_gets_links_or_copies(self):
        elsewhere = pathlib.Path("/dev/shm")
        if elsewhere.stat().st_dev == self.home.path.stat().st_dev:
            elsewhere = pathlib.Path("/var/tmp")
        source = put(self.movies, "sea.mov")
        site = pathlib.Path(subprocess.run(["mktemp", "-d", "-p", str(elsewhere)], check=True, capture_output=True,
                                           text=True, timeout=BOUND).stdout.strip())
        self.addCleanup(shutil.rmtree, site)
        self.site = site
        self.publish()
        self.assertEqual((site / "trailers" / "sea" / "sea_480.mov").read_bytes(), source.read_bytes())
        self.assertIn("(0 files written, 0 removed)", self.publish().stdout)


if __name__ == "__main__":
    unittest.main()
