"""`kestro playlist`: the list as it is edited and as it is played."""

import pathlib
import unittest

from harness import ProgramTest, url

FISH = "/Applications/iDVD.app/Contents/Resources/15_Fish_Two.theme/Contents/Resources/BackgroundMovie.PAL.mov"
INTRO = "/System/Library/PrivateFrameworks/SetupAssistant.framework/Versions/A/Resources/intro.mov"
INTRO_104 = ("/System/Library/CoreServices/Setup Assistant.app/Contents/Resources/TransitionSection.bundle"
             "/Contents/Resources/intro.mov")
AUTOMATIC = "auto://LatestTrailers/6/480"


class Playlist(ProgramTest):
    def lines(self, *words):
        done = self.run_kestro("playlist", *words)
        self.assertEqual(done.stderr, "")
        return done.stdout.splitlines()

    def put_in_root(self, path):
        file = self.home.root / path.removeprefix("/")
        file.parent.mkdir(parents=True)
        file.touch()
        return url(file)

    def in_root(self, path):
        return url(self.home.root / path.removeprefix("/"))

    def test_a_fresh_system_lists_the_last_default_movie_unchecked(self):
        self.assertEqual(self.lines(), [self.in_root(INTRO_104), AUTOMATIC])

    def test_an_installed_intro_movie_comes_before_the_last_default(self):
        self.assertEqual(self.lines()[0], self.in_root(INTRO_104))
        self.assertEqual(self.put_in_root(INTRO), self.lines()[0])

    def test_the_theme_movie_comes_before_the_intro_movie(self):
        self.put_in_root(INTRO)
        self.assertEqual(self.put_in_root(FISH), self.lines()[0])

    def test_automatic_entries_stand_for_nothing_while_no_trailers_are_known(self):
        self.home.play([pathlib.Path("/tmp/a.mov"), "auto://LatestTrailers/3/640"])
        self.assertEqual(self.lines(), ["file:///tmp/a.mov", "auto://LatestTrailers/3/640"])
        self.assertEqual(self.lines("--expanded"), ["file:///tmp/a.mov"])

    def test_a_folder_stands_for_the_movies_in_it(self):
        films = self.home.path / "films"
        (films / "in").mkdir(parents=True)
        for name in ("b.mov", "a.mkv", "in/c.mp4", ".d.mov", "e.mov.part", "f.txt"):
            (films / name).touch()
        entry = films.as_uri().replace("file:", "folder:")
        self.home.play([entry, entry + "?recursive=1", "folder:///missing"])
        self.assertEqual(self.lines(), [entry, entry + "?recursive=1", "folder:///missing"])
        flat = [url(films / name) for name in ("a.mkv", "b.mov")]
        self.assertEqual(self.lines("--expanded"), flat + flat + [url(films / "in/c.mp4")])

    def test_a_playlist_file_stands_for_what_it_names(self):
        films = self.home.path / "films"
        films.mkdir()
        (films / "a.m3u").write_text("#EXTM3U\r\nb c.mov\r\nhttp://example.com/d.mov\r\n")
        (films / "e.xspf").write_text(
            '<playlist xmlns="http://xspf.org/ns/0/"><trackList><track><location>f.mov</location></track></trackList></playlist>'
        )
        entries = [url(films / "a.m3u"), url(films / "e.xspf"), url(films / "missing.m3u8")]
        self.home.play(entries)
        self.assertEqual(self.lines(), entries)
        self.assertEqual(
            self.lines("--expanded"), [url(films / "b c.mov"), "http://example.com/d.mov", url(films / "f.mov")]
        )

    def test_an_automatic_entry_without_a_width_stays_in_the_edited_list(self):
        self.home.play(["auto://LatestTrailers/480"])
        self.assertEqual(self.lines(), ["auto://LatestTrailers/480"])
        self.assertEqual(self.lines("--expanded"), [])

    def test_urls_are_listed_with_their_percent_escapes(self):
        self.home.play([pathlib.Path("/tmp/a b/ü.mov"), "http://example.com/m%20n.mov?a=1&b=%C3%BC#t"])
        self.assertEqual(self.lines(), ["file:///tmp/a%20b/%C3%BC.mov", "http://example.com/m%20n.mov?a=1&b=%C3%BC#t"])

    def test_an_older_list_holds_plain_paths(self):
        self.home.write({"Ver": "4", "FileList": ["/tmp/a b.mov", "/tmp/c#d.mov"]})
        self.assertEqual(self.lines(), ["file:///tmp/a%20b.mov", "file:///tmp/c%23d.mov"])

    def test_an_older_empty_list_is_the_default_one_unexpanded(self):
        self.home.write({"FileList": []})
        self.assertEqual(self.lines("--expanded"), [self.in_root(INTRO_104), AUTOMATIC])

    def test_a_present_empty_list_is_empty(self):
        self.home.play([])
        self.assertEqual(self.lines(), [])

    def test_an_older_list_of_the_intro_movie_alone_becomes_the_theme_movie(self):
        self.home.write({"Ver": "4", "FileList": [INTRO]})
        fish = self.put_in_root(FISH)
        self.assertEqual(self.lines(), [fish])

    def test_a_malformed_file_reads_as_a_fresh_system(self):
        (self.home.preferences / "Kestro.plist").write_bytes(b"<plist><dict><key>FileList")
        self.assertEqual(self.lines("--expanded"), [self.in_root(INTRO_104)])


if __name__ == "__main__":
    unittest.main()
