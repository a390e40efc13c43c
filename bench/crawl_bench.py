"""A crawl of a generated site beside wget's, from one server on loopback in one run. usage: crawl_bench.py KESTRO

The site has 2,000 pages of about 13 kB, as parse_bench.py writes them, each linked to its studio, its neighbours and the
start. Both fetch one page at a time over a connection that stays open; wget keeps the pages, Kestro the movies on them.
"""

import asyncio
import multiprocessing
import os
import random
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import parse_bench

STUDIOS = 40
TITLES = 49  # of a studio; with their pages and the start 2,001
ROUNDS = 5
MOST = 1.0  # times wget


def site():
    """Path to page."""
    chance = random.Random(480)
    pages = {"/trailers/": "".join(f'<a href="/trailers/s{s}/">' for s in range(STUDIOS))}
    for s in range(STUDIOS):
        pages[f"/trailers/s{s}/"] = "".join(f'<a href="t{t}/">' for t in range(TITLES))
        for t in range(TITLES):
            near = "".join(f'<a href="../t{(t + step) % TITLES}/">' for step in range(1, 12))
            pages[f"/trailers/s{s}/t{t}/"] = f'<a href="/trailers/"><a href="../">{near}{filler(chance, s * TITLES + t)}'
    return {path: f"<html><head></head><body>{text}</body></html>".encode() for path, text in pages.items()}


def filler(chance, number):
    """Text, markup that leads off the site, and two movies of the page's own."""
    items = "".join(f'<li class="item"><a href="http://other.example/{number}/{i}"><img src="data:," width="66"></a>'
                    f'<p class="desc">{parse_bench.text(chance, 60)}.</p></li>\n' for i in range(25))
    calls = "".join(f"AC.Quicktime.packageMovie('m','m{number}_{width}.mov',{{width:{width}, height:{width // 2}}});\n"
                    for width in (480, 640))
    return f"<ul>{items}</ul><script>{calls}</script>"


class Connection(asyncio.Protocol):
    pages = {}

    def connection_made(self, transport):
        self.transport = transport
        self.received = b""

    def data_received(self, data):
        self.received += data
        while b"\r\n\r\n" in self.received:
            request, self.received = self.received.split(b"\r\n\r\n", 1)
            body = self.pages.get(request.split(b" ", 2)[1].decode())
            head = "200 OK" if body is not None else "404 Not Found"
            body = body or b""
            self.transport.write(f"HTTP/1.1 {head}\r\nContent-Type: text/html\r\nContent-Length: {len(body)}\r\n\r\n".encode() + body)


def serve(pages, told):
    async def run():
        Connection.pages = pages
        server = await asyncio.get_running_loop().create_server(Connection, "127.0.0.1", 0)
        told.send(server.sockets[0].getsockname()[1])
        await server.serve_forever()

    asyncio.run(run())


def cost_of(command, **environment):
    """(seconds of the clock, seconds of processor time, output)"""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    begun = time.monotonic()
    done = subprocess.run(command, env={**os.environ, **environment}, capture_output=True, text=True)
    taken = time.monotonic() - begun
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return taken, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime, done.stdout


def crawl(kestro, url, pages):
    with tempfile.TemporaryDirectory() as home:
        taken, used, output = cost_of([kestro, "scan", "--start", url], KESTRO_HOME=home)
        assert output.startswith(f"{len(pages)} pages, {2 * STUDIOS * TITLES} records"), output
        again, _, output = cost_of([kestro, "scan", "--start", url], KESTRO_HOME=home)
        assert output.startswith("1 pages"), output
    return taken, used, again


def wget(url, pages):
    folder = tempfile.mkdtemp()
    taken, used, _ = cost_of(["wget", "-r", "-l", "inf", "-np", "-nH", "-q", "-e", "robots=off", "-P", folder, url])
    found = sum(len(files) for _, _, files in os.walk(folder))
    shutil.rmtree(folder)
    assert found >= len(pages), found
    return taken, used


def main():
    kestro = os.path.abspath(sys.argv[1])
    pages = site()
    mine, theirs = multiprocessing.Pipe()
    server = multiprocessing.Process(target=serve, args=(pages, theirs), daemon=True)
    server.start()
    url = f"http://127.0.0.1:{mine.recv()}/trailers/"
    own, peer = [], []
    for _ in range(ROUNDS):
        own.append(crawl(kestro, url, pages))
        peer.append(wget(url, pages))
    server.terminate()
    taken, used, again = (statistics.median(column) for column in zip(*own))
    peer_taken, peer_used = (statistics.median(column) for column in zip(*peer))
    print(f"crawl: {len(pages)} pages, {sum(map(len, pages.values())) / 1e6:.1f} MB, median of {ROUNDS}")
    print(f"  kestro scan {taken:.2f} s, {used:.2f} CPU s; a second scan {again * 1000:.0f} ms")
    print(f"  wget -r     {peer_taken:.2f} s, {peer_used:.2f} CPU s")
    ratio = taken / peer_taken
    print(f"  {ratio:.2f} times wget's time (at most {MOST}){' MISSED' if ratio > MOST else ''}")
    sys.exit(ratio > MOST)


if __name__ == "__main__":
    main()
