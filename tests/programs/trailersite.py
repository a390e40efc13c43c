"""A trailer site on loopback, as the tests of the program crawl it."""

import gzip
import http.server
import socket
import threading

PLAIN = "text/html"


def link(address):
    return f'<a href="{address}">'


def movie(address, width=480, height=204):
    return f"<script>AC.Quicktime.packageMovie('m','{address}',{{width:{width}, height:{height}}})</script>"


def page(*parts):
    return "<html>" + "".join(parts) + "</html>"


def packed(text):
    """A page as a gzip member without flags."""
    return gzip.compress(text.encode("latin-1"), compresslevel=1, mtime=0)


class TrailerSite:
    """Serves what its pages hold: text, bytes, ("redirect", address), a function that writes to the request, or a path
    of a file. Keeps the paths that were asked for, in order."""

    def __init__(self, test):
        self.pages = {}
        self.asked = []
        self._server = _Server(self)
        self.host = f"127.0.0.1:{self._server.server_port}"
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        test.addCleanup(self.close)

    def url(self, path="/trailers/"):
        return f"http://{self.host}{path}"

    def close(self):
        self._server.shutdown()
        self._server.server_close()

    def count(self, path):
        return self.asked.count(path)


class _Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def __init__(self, site):
        super().__init__(("127.0.0.1", 0), _Handler)
        self.site = site

    def handle_error(self, request, client_address):
        """A client that goes away in the middle of a page is what some tests are about."""


class _Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def setup(self):
        super().setup()
        self.connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)

    def do_GET(self):
        site = self.server.site
        site.asked.append(self.path)
        content = site.pages.get(self.path)
        if content is None:
            self.send_error(404)
        elif callable(content):
            content(self)
        elif isinstance(content, tuple):
            self.send_response(302)
            self.send_header("Location", content[1])
            self.send_header("Content-Length", "0")
            self.end_headers()
        else:
            self.send_bytes(content if isinstance(content, bytes) else content.encode("latin-1"))

    def send_bytes(self, content):
        self.send_response(200)
        self.send_header("Content-Type", PLAIN)
        self.send_header("Content-Length", str(len(content)))
        self.end_headers()
        self.wfile.write(content)

    def log_message(self, *_):
        """Quiet."""


def endless(request):
    """A page of 100 MB."""
    request.send_response(200)
    request.send_header("Content-Length", str(100 * 1000 * 1000))
    request.end_headers()
    for _ in range(100):
        request.wfile.write(b"x" * (1000 * 1000))


class Hanging:
    """A page that never comes; says when it was asked for."""

    def __init__(self):
        self.is_asked = threading.Event()
        self.is_over = threading.Event()

    def __call__(self, request):
        self.is_asked.set()
        self.is_over.wait(60)
        request.close_connection = True
