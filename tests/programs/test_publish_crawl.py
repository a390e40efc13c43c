"""A site of `kestro publish`, served by a plain server, read by the scanner and played."""

import json
import plistlib
import re
import subprocess
import sys
import unittest
import urllib.request

from harness import BOUND, Rendering, end_process
from publishing import TITLES, TREE, PublishTest


class Crawled(PublishTest):
    def setUp(self):
        super().setUp()
        self.put_tree()

    def serve(self, folder):
        """The address of a server of a folder, as anybody has one."""
        server = subprocess.Popen([sys.executable, "-u", "-m", "http.server", "0", "--bind", "127.0.0.1", "--directory",
                                   str(folder)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                  stdin=subprocess.DEVNULL, start_new_session=True)
        self.addCleanup(end_process, server)
        return re.search(r"http://127\.0\.0\.1:\d+", server.stdout.readline())[0]

    def records(self):
        path = self.home.preferences / "Kestro_Scanned_Trailers.lst"
        return {record["URL"]: record for record in plistlib.loads(path.read_bytes())["Trailers"]}

    def inspect(self, page, base):
        return json.loads(self.run_kestro("inspect-page", str(page), "--base", base).stdout)

    def scan(self, address):
        return self.run_kestro("scan", "--start", address + "/trailers/").stdout

    def frame_size(self, url):
        """The size of the movie at a URL, as a record of it would have it."""
        shown = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "stream=width,height",
                                "-of", "csv=p=0:s=x", url], check=True, capture_output=True, text=True, timeout=BOUND)
        return shown.stdout.strip().replace("x", " x ")

    def test_a_scan_finds_every_movie_of_every_width_once_with_its_size(self):
        self.publish()
        self.assertRegex(self.scan(self.serve(self.site)), rf"^{1 + len(TITLES)} pages, {len(TREE)} records, ")
        records = self.records()
        self.assertEqual(sorted(record["Size"] for record in records.values()),
                         sorted(size.replace("x", " x ") for size, _ in TREE.values()))
        for url, record in records.items():
            self.assertEqual(self.frame_size(url), record["Size"], url)

    def test_both_kinds_of_call_are_read(self):
        self.publish()
        self.scan(self.serve(self.site))
        newer = [record["Size"] for record in self.records().values() if record.get("AC") == "Y"]
        self.assertEqual(sorted(newer), ["1280 x 544", "640 x 272", "640 x 360"])

    def test_the_latest_of_a_width_are_one_of_each_title_that_has_it(self):
        self.publish()
        self.scan(self.serve(self.site))
        for width in ("480", "640", "1280", "320"):
            titles = {title for size, title in TREE.values() if size.startswith(width + "x")}
            lines = self.run_kestro("latest", "0", width).stdout.splitlines()
            self.assertEqual(len(lines), len(titles), width)
            self.assertTrue(all(line.endswith(f"_{width}.mov") for line in lines), lines)

    def test_what_was_found_plays(self):
        self.publish()
        self.scan(self.serve(self.site))
        self.home.play(["auto://LatestTrailers/1/1280"])
        run = Rendering(self, seconds=3)
        self.assertEqual(run.urls()[:1], self.run_kestro("latest", "1", "1280").stdout.splitlines())

    def test_a_site_below_a_path_is_crawled_where_that_begins_as_the_scanner_wants(self):
        address = self.serve(self.home.path)
        self.site = self.home.path / "trailers of mine"
        self.publish("--base-url", address + "/trailers%20of%20mine")
        self.assertRegex(self.scan(address + "/trailers%20of%20mine"), rf" {len(TREE)} records, ")
        for url in self.records():
            with urllib.request.urlopen(url, timeout=BOUND) as movie_file:
                self.assertEqual(movie_file.status, 200)

    def test_the_page_parser_reads_each_page_as_it_is_meant(self):
        self.publish()
        address = self.serve(self.site)
        index = self.inspect(self.trailers / "index.html", address + "/trailers/")
        pages = [address + entry["location"] for entry in self.feed()]
        self.assertEqual(len(pages), len(TITLES))
        self.assertEqual(index["movies"], [])
        styles = address + "/trailers/site.css"
        self.assertEqual(index["links"], [styles, *pages, *pages])  # by their links, then in the feed
        for entry, page in zip(self.feed(), pages):
            read = self.inspect(self.site / entry["location"].strip("/") / "index.html", page)
            self.assertEqual(read["links"], [styles, address + "/trailers/"])
            self.assertEqual([(record["URL"], record["Size"]) for record in read["movies"]],
                             [(page + one["file"], f"{one['width']} x {one['height']}") for one in entry["movies"]])


if __name__ == "__main__":
    unittest.main()
