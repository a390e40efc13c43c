"""What the tests of scans share."""

import plistlib

from harness import ProgramTest
from trailersite import TrailerSite, link, movie, page

LIST = "Kestro_Scanned_Trailers.lst"


class ScanTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.site = TrailerSite(self)
        self.pages = self.site.pages

    def list_path(self, name=LIST):
        return self.home.preferences / name

    def saved(self):
        return plistlib.loads(self.list_path().read_bytes())

    def urls(self):
        return {record["URL"] for record in self.saved()["Trailers"]}

    def scan(self, *words, status=0):
        return self.run_kestro("scan", "--start", self.site.url(), *words, status=status)

    def latest(self, count, width):
        return self.run_kestro("latest", str(count), str(width)).stdout.splitlines()

    def small_site(self):
        self.pages["/trailers/"] = page(link("a/"), link("b/"))
        self.pages["/trailers/a/"] = page(movie("a_480.mov"), movie("a_640.mov", 640))
        self.pages["/trailers/b/"] = page(movie("b_480.mov"))
