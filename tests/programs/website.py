"""A web site on loopback for the tests of web content: what it serves is up to the test, and it remembers who asked."""

import http.server
import threading


class Request:
    def __init__(self, handler):
        self.path = handler.path
        self.cookie = handler.headers.get("Cookie")


class WebSite:
    """Serves `pages`: path to (type, bytes), or to None for an answer that never comes. Ended by close()."""

    def __init__(self, pages=None):
        self.pages = dict(pages or {})
        self.requests = []
        self._is_closing = threading.Event()
        site = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                site.requests.append(Request(self))
                site.answer(self)

            do_POST = do_GET

            def log_message(self, *words):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        self.port = self._server.server_address[1]
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def answer(self, handler):
        path = handler.path.partition("?")[0]
        found = self.pages.get(path, ("text/plain", b"not here"))
        if found is None:
            self._is_closing.wait()
            return
        kind, body, *headers = found
        handler.send_response(200 if path in self.pages else 404)
        for name, value in [("Content-Type", kind), ("Content-Length", str(len(body))), *headers]:
            if name != "Content-Type" or kind:
                handler.send_header(name, value)
        handler.end_headers()
        try:
            handler.wfile.write(body)
        except OSError:
            pass  # who asked has gone

    def url(self, path):
        return f"http://127.0.0.1:{self.port}{path}"

    def asked(self, path):
        """Whether anybody asked for that path, whatever follows a question mark."""
        return any(request.path.partition("?")[0] == path for request in list(self.requests))

    def said(self, name):
        """What a page told the site under that name: it asked for /said?name=…"""
        start = f"/said?{name}="
        return [request.path[len(start):] for request in list(self.requests) if request.path.startswith(start)]

    def close(self):
        self._is_closing.set()
        self._server.shutdown()
        self._server.server_close()
