"""`kestro inspect-page`: the links and movies of a page, as the crawler reads it."""

import datetime
import http.server
import json
import threading
import unittest

from harness import ProgramTest

PAGE = b"""<html><a href="title/">A</a> <A HREF="../index.html">B</A> <a href="title/">A</a> <a href="#top">C</a>
<script>
QT_WriteOBJECT_XHTML('http://h/trailers/x/p.mov', '480', '204', 'href', 'http://h/trailers/x/t_480.mov');
AC.Quicktime.packageMovie('m1', '/trailers/x/t_640.mov', {width:640, height:'272'});
</script> caf\xe9"""


class Feeds(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        body = b'[{"location":"/trailers/new/"},{"location":"a.html"}]'
        self.send_response(200 if self.path == "/trailers/new.json" else 404)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *args):
        pass


class InspectPage(ProgramTest):
    def inspect(self, page, base="http://h/trailers/studio/"):
        file = self.home.path / "page.html"
        file.write_bytes(page)
        done = self.run_kestro("inspect-page", str(file), "--base", base,
                               environment=self.home.environment(no_proxy="*"))
        self.assertEqual(done.stderr, "")
        return json.loads(done.stdout)

    def test_links_and_movies_come_in_page_order(self):
        before = datetime.date.today()
        report = self.inspect(PAGE)
        self.assertEqual(list(report), ["links", "movies"])
        self.assertEqual(report["links"], ["http://h/trailers/studio/title/", "http://h/trailers/index.html",
                                           "http://h/trailers/studio/title/"])
        dates = {movie.pop("Date") for movie in report["movies"]}
        self.assertIn(dates, [{day.strftime("%Y/%m/%d")} for day in (before, datetime.date.today())])
        self.assertEqual(report["movies"], [
            {"URL": "http://h/trailers/x/t_480.mov", "Size": "480 x 204"},
            {"URL": "http://h/trailers/x/t_640.mov", "Size": "640 x ---", "AC": "Y"}])

    def test_an_empty_page_has_nothing(self):
        self.assertEqual(self.inspect(b""), {"links": [], "movies": []})

    def test_the_feeds_that_a_page_names_are_read(self):
        with http.server.ThreadingHTTPServer(("127.0.0.1", 0), Feeds) as server:
            thread = threading.Thread(target=server.serve_forever)
            thread.start()
            site = f"http://127.0.0.1:{server.server_port}"
            report = self.inspect(b"'/trailers/new.json' '/trailers/missing.json' href=\"b/\"", f"{site}/trailers/")
            server.shutdown()
            thread.join()
        self.assertEqual(report["links"],
                         [f"{site}/trailers/b/", f"{site}/trailers/new/", f"{site}/trailers/a.html"])

    def test_a_base_that_is_no_whole_url_is_wrong_usage(self):
        for base in ["", "/trailers/", "trailers", "http:", "http:///x", "http://h/a b/", "mailto:ada@h"]:
            with self.subTest(base=base):
                done = self.run_kestro("inspect-page", "/dev/null", "--base", base, status=2)
                self.assertEqual(done.stdout, "")
                self.assertOneLine(done.stderr, "--base")

    def test_a_page_that_cannot_be_read_is_one_line_and_status_1(self):
        for path in [str(self.home.path / "missing"), str(self.home.path)]:
            done = self.run_kestro("inspect-page", path, "--base", "http://h/", status=1)
            self.assertEqual(done.stdout, "")
            self.assertOneLine(done.stderr, path)


if __name__ == "__main__":
    unittest.main()
