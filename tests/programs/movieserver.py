"""A server of movies on loopback that goes away, comes back, falls silent and trickles, as a test says."""

import http.server
import pathlib
import re
import socket
import threading


class MovieServer:
    """Serves files by their paths, whole or in parts, and keeps the path of every request. A path that is not known gets
    a 404. Ended by close()."""

    def __init__(self):
        self.requests = []
        self._movies = {}
        self._ends = threading.Event()
        self._connections = set()
        self._server = None
        with socket.create_server(("127.0.0.1", 0)) as free:
            self.port = free.getsockname()[1]
        self.open_door()

    def serve(self, path, file, answer=None):
        """`answer` is what happens instead of an answer in one go: a function of this module, or one made by one."""
        self._movies[path] = (pathlib.Path(file).read_bytes(), answer or whole)
        return self.url(path)

    def forget(self, path):
        self._movies.pop(path)

    def url(self, path):
        return f"http://127.0.0.1:{self.port}{path}"

    def count(self, path):
        return self.requests.count(path)

    def open_door(self):
        """It answers, on the same port as ever."""
        self._server = _Server(("127.0.0.1", self.port), self)
        threading.Thread(target=self._server.serve_forever, args=(0.02,), daemon=True).start()

    def close_door(self):
        """It goes away: whoever is being served is cut off, whoever comes is refused."""
        self._server.shutdown()
        self._server.server_close()
        self._server = None
        for connection in list(self._connections):
            _cut(connection)

    def close(self):
        self._ends.set()
        if self._server:
            self.close_door()

    # What follows is for the threads that answer.

    def note(self, connection):
        self._connections.add(connection)

    def forget_connection(self, connection):
        self._connections.discard(connection)

    def has_ended_within(self, seconds):
        return self._ends.wait(seconds)

    def answer(self, request):
        self.requests.append(request.path)
        body, answer = self._movies.get(request.path, (None, None))
        if body is None:
            return request.send_error(404)
        return answer(self, request, body)


class _Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def __init__(self, address, movies):
        super().__init__(address, _Request)
        self.movies = movies

    def handle_error(self, request, client_address):
        """Clients that go away in the middle are what the tests are about."""


class _Request(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def setup(self):
        super().setup()
        self.connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.server.movies.note(self.connection)

    def finish(self):
        self.server.movies.forget_connection(self.connection)
        super().finish()

    def do_GET(self):
        self.server.movies.answer(self)

    def log_message(self, *_):
        """Quiet."""


def _cut(connection):
    try:
        connection.shutdown(socket.SHUT_RDWR)
    except OSError:
        pass  # it has gone by itself


def _begin(request, body):
    """Sends the headers; answers what of the body was asked for, by its first byte and the one after its last."""
    asked = re.fullmatch(r"bytes=(\d+)-(\d*)", request.headers.get("Range", ""))
    first = int(asked[1]) if asked else 0
    last = min(int(asked[2] or len(body) - 1), len(body) - 1) if asked else len(body) - 1
    if first > last:
        request.send_error(416)
        return 0, 0
    request.send_response(206 if asked else 200)
    request.send_header("Content-Type", "video/mp4")
    request.send_header("Accept-Ranges", "bytes")
    request.send_header("Content-Length", str(last - first + 1))
    if asked:
        request.send_header("Content-Range", f"bytes {first}-{last}/{len(body)}")
    request.end_headers()
    return first, last + 1


def whole(_, request, body):
    first, end = _begin(request, body)
    request.wfile.write(body[first:end])


def never(server, request, _):
    """No answer at all until the end."""
    server.has_ended_within(None)
    request.close_connection = True


def up_to(count):
    """The first bytes, and then silence until the end, however often it is asked."""

    def answer(server, request, body):
        first, end = _begin(request, body)
        request.wfile.write(body[first : min(end, count)])
        server.has_ended_within(None)
        request.close_connection = True

    return answer


def trickling_from(count):
    """The first bytes, and then one a second: less than anybody could play."""

    def answer(server, request, body):
        first, end = _begin(request, body)
        request.wfile.write(body[first : min(end, count)])
        for byte in body[max(first, count) : end]:
            if server.has_ended_within(1):
                break
            request.wfile.write(bytes([byte]))

    return answer
