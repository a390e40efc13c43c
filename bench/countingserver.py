"""A server of one folder on this machine that counts the bytes and the requests of what it sends."""

import http.server
import os
import re
import threading


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        path = os.path.join(self.server.folder, os.path.basename(self.path))
        size = os.path.getsize(path)
        asked = re.match(r"bytes=(\d+)-(\d*)$", self.headers.get("Range", ""))
        first = int(asked[1]) if asked else 0
        last = int(asked[2]) if asked and asked[2] else size - 1
        self.send_response(206 if asked else 200)
        self.send_header("Accept-Ranges", "bytes")
        self.send_header("Content-Length", str(last - first + 1))
        if asked:
            self.send_header("Content-Range", f"bytes {first}-{last}/{size}")
        self.end_headers()
        self.server.requests += 1
        with open(path, "rb") as file:
            file.seek(first)
            self.send(file, last - first + 1)

    def send(self, file, left):
        while left > 0:
            block = file.read(min(left, 65536))
            try:
                self.wfile.write(block)
            except OSError:  # whoever asked has enough
                self.close_connection = True
                return
            self.server.sent += len(block)
            left -= len(block)

    def log_message(self, *_):
        pass


class CountingServer(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def __init__(self, folder):
        super().__init__(("127.0.0.1", 0), Handler)
        self.folder, self.sent, self.requests = folder, 0, 0
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def url(self, name):
        return f"http://127.0.0.1:{self.server_address[1]}/{name}"
