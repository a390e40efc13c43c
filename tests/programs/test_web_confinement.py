"""What web content may not do, each shown by a page or a Flash movie that tries, and a site that sees whether it did."""

import os
import pathlib
import re
import select
import socket
import threading
import unittest

import swf
from harness import wait_until
from webtest import LiveRendering, PageRun, WebTest, redirecting

SHOWN = b"<body style='background:red'>"
RED, BLUE, BLACK = (255, 0, 0), (0, 0, 255), (0, 0, 0)

# Turns the box's ground from blue to red once the variable "found" has come from where it was looked for: the box is
# as large as the stage, and stands beside it until then.
SHOW_WHEN_FOUND = swf.if_equal("found", "1", swf.put_clip("box", 0))


def looking(*addresses):
    """A movie that loads variables from each address at its first frame, and shows a red box when any has found=1."""
    look = swf.once(swf.put_clip("box", 400) + b"".join(swf.load_variables(address) for address in addresses))
    return swf.avm1(look + SHOW_WHEN_FOUND, side=320)


class Listener:
    """A place on loopback where nobody should ever come: remembers who does, over TCP and UDP alike."""

    def __init__(self, test):
        self.heard = []
        self._stream = socket.create_server(("::", 0), family=socket.AF_INET6, dualstack_ipv6=True)
        self.port = self._stream.getsockname()[1]
        self._datagrams = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self._datagrams.bind(("127.0.0.1", self.port))
        self._end, closing = socket.socketpair()
        self._thread = threading.Thread(target=self._listen, daemon=True)
        self._thread.start()
        test.addCleanup(self._close, closing)

    def _listen(self):
        while True:
            ready, _, _ = select.select([self._stream, self._datagrams, self._end], [], [])
            if self._end in ready:
                return
            for each in ready:
                self.heard.append(each.accept()[0].recv(1000) if each is self._stream else each.recv(1000))

    def _close(self, closing):
        closing.close()
        self._thread.join()
        for each in (self._stream, self._datagrams, self._end):
            each.close()


class WebContentTest(WebTest):
    def assertPlays(self, entry, is_red, until=None):
        """It plays, and after a while the box is there, or still is not; a while begins when `until` is true."""
        self.home.play([entry], FullScreenMode="1")
        rendering = LiveRendering(self)
        if is_red:
            rendering.wait_for(lambda picture: picture.at(160, 120) == RED)
        else:
            rendering.wait_for(lambda picture: picture.at(160, 120) == BLUE)
            wait_until(until or (lambda: True), "what the movie tries")
            self.assertEqual(rendering.wait_for_more(10).at(160, 120), BLUE)
        rendering.end()


class MoviesOfFiles(WebContentTest):
    def test_one_reads_nothing_beside_itself(self):
        self.file("vars.txt", b"found=1")
        beside = (self.folder / "vars.txt").as_uri()
        self.assertPlays(self.file("a.swf", looking("vars.txt", beside)), is_red=False)

    def test_one_reads_nothing_from_the_net(self):
        site = self.site({"/vars.txt": ("text/plain", b"found=1", ("Access-Control-Allow-Origin", "*"))})
        self.assertPlays(self.file("a.swf", looking(site.url("/vars.txt"))), is_red=False)
        self.assertEqual(site.requests, [])

    def test_one_leads_nowhere(self):
        site = self.site({"/there": ("text/html", SHOWN)})
        go = swf.once(swf.get_url(site.url("/there"), "_self") + swf.get_url(site.url("/there"), "_blank"))
        self.assertPlays(self.file("a.swf", swf.avm1(go)), is_red=False)
        self.assertEqual(site.requests, [])


class MoviesOfTheNet(WebContentTest):
    OPEN = ("Access-Control-Allow-Origin", "*")

    def test_one_reads_from_its_own_site(self):
        site = self.site({"/vars.txt": ("text/plain", b"found=1")})
        site.pages["/a.swf"] = ("application/x-shockwave-flash", looking("vars.txt"))
        self.assertPlays(site.url("/a.swf"), is_red=True)

    def test_one_reads_from_no_other_site_even_where_that_would_allow_it(self):
        other = self.site({"/vars.txt": ("text/plain", b"found=1", self.OPEN), "/crossdomain.xml": ("text/xml", b"")})
        site = self.site()
        site.pages["/a.swf"] = ("application/x-shockwave-flash", looking(other.url("/vars.txt")))
        self.assertPlays(site.url("/a.swf"), is_red=False)
        self.assertEqual(other.requests, [])

    def test_one_leads_nowhere_and_starts_no_script(self):
        site = self.site({"/there": ("text/html", SHOWN)})
        script = f"javascript:new Image().src='{site.url('/there')}'"
        go = b"".join(swf.get_url(address, window) for address in (site.url("/there"), script) for window in ("_self", "_blank"))
        site.pages["/a.swf"] = ("application/x-shockwave-flash", swf.avm1(swf.once(go)))
        self.assertPlays(site.url("/a.swf"), is_red=False)
        self.assertFalse(site.asked("/there"))

    def test_one_is_not_led_to_another_site(self):
        other = self.site({"/vars.txt": ("text/plain", b"found=1", self.OPEN)})
        site = self.site()
        led = site.url("/led.txt")
        site.answer = redirecting(site, "/led.txt", other.url("/vars.txt"))
        site.pages["/a.swf"] = ("application/x-shockwave-flash", looking(led))
        self.assertPlays(site.url("/a.swf"), is_red=False, until=lambda: site.asked("/led.txt"))
        self.assertEqual(other.requests, [])

    def test_one_reads_no_file(self):
        secret = self.file("vars.txt", b"found=1").as_uri()
        site = self.site()
        site.pages["/a.swf"] = ("application/x-shockwave-flash", looking(secret))
        self.assertPlays(site.url("/a.swf"), is_red=False)


class Pages(WebTest):
    def tries(self, script, *told, pages=None, **environment):
        """Shows a page that runs a script, which may tell(name, value), until it has told all that it should, and a
        good while is over; then it is there still. Answers the site."""
        site = self.site({"/said": ("text/plain", b""), **(pages or {})})
        site.pages["/page.html"] = ("text/html", self.page_of(script))
        self.sees(site, told, **environment)
        return site

    def sees(self, site, told, times=1, **environment):
        run = PageRun(self, site.url("/page.html"), **environment)
        for name in ("end", *told):
            wait_until(lambda: len(site.said(name)) >= times, f"the page to tell {name}")
        run.wait_for(RED)
        self.assertEqual(run.end(), "")

    @staticmethod
    def page_of(script):
        tell = "const tell = (name, value) => { new Image().src = '/said?' + name + '=' + encodeURIComponent(value); };"
        end = "setTimeout(() => tell('end', 1), 2000);"
        return SHOWN + f"<script>{tell}\n{end}\n{script}</script>".encode()

    def test_a_page_is_shown(self):
        site = self.site({"/page.html": ("text/html", SHOWN)})
        PageRun(self, site.url("/page.html")).wait_for(RED)

    def test_an_swf_by_its_type_or_its_first_bytes_alone_plays(self):
        still = swf.still(RED)
        site = self.site({"/typed": ("application/x-shockwave-flash", still), "/bytes": ("application/octet-stream", still)})
        for address in (site.url("/typed"), site.url("/bytes"), self.file("unnamed", still).as_uri()):
            with self.subTest(address):
                run = PageRun(self, address)
                run.wait_for(RED)
                self.assertEqual(run.end(), "")

    def test_no_file_can_be_read(self):
        secret = self.file("secret.html", b"<body style='background:red'>secret</body>").as_uri()
        site = self.tries(f"""
            fetch('{secret}').then(() => tell('read', 1), () => tell('refused', 1));
            const frame = document.createElement('iframe');
            frame.src = '{secret}';
            document.body.append(frame);
            setTimeout(() => {{ location = '{secret}'; tell('still', 1); }}, 500);""", "refused", "still")
        self.assertEqual((site.said("refused"), site.said("read"), site.said("still")), (["1"], [], ["1"]))

    def test_no_other_port_scheme_or_host_is_reached(self):
        listener = Listener(self)
        port = listener.port
        hosts = (f"127.0.0.1:{port}", f"localhost:{port}", f"localhost.:{port}", f"2130706433:{port}", f"0x7f.1:{port}",
                 f"[::1]:{port}", f"[::ffff:127.0.0.1]:{port}", f"a.localhost:{port}")
        self.tries(f"""
            const hosts = {list(hosts)};
            const add = (name, values) => document.body.append(Object.assign(document.createElement(name), values));
            const attempts = [
                host => fetch('http://' + host + '/a', {{mode: 'no-cors'}}).catch(() => 0),
                host => fetch('kestro-http://' + host + '/a').catch(() => 0),
                host => {{ const x = new XMLHttpRequest(); x.open('GET', 'kestro-http://' + host + '/a'); x.send(); }},
                host => {{ const x = new XMLHttpRequest(); x.open('POST', 'https://' + host + '/a'); x.send('words'); }},
                host => new WebSocket('ws://' + host + '/a'),
                host => new WebSocket('wss://' + host + '/a'),
                host => new EventSource('http://' + host + '/a'),
                host => navigator.sendBeacon('http://' + host + '/a', 'words'),
                host => {{ new Image().src = '//' + host + '/a'; }},
                host => {{ new Image().src = 'http://' + host + '/a'; }},
                host => add('iframe', {{src: 'http://' + host + '/a'}}),
                host => add('script', {{src: 'http://' + host + '/a'}}),
                host => add('video', {{src: 'http://' + host + '/a', autoplay: true}}),
                host => add('object', {{data: 'http://' + host + '/a'}}),
                host => {{ for (const rel of ['dns-prefetch', 'preconnect', 'prefetch', 'prerender', 'stylesheet', 'icon',
                                             'preload', 'modulepreload', 'manifest'])
                             add('link', {{rel, href: 'http://' + host + '/a', as: 'script'}}); }},
                host => {{ const form = document.createElement('form'); form.action = 'http://' + host + '/a';
                          form.method = 'post'; document.body.append(form); form.submit(); }},
                host => {{ location = 'http://' + host + '/a'; }},
                host => {{ const worker = new Worker(URL.createObjectURL(new Blob([
                          `fetch('http://${{host}}/a'); new WebSocket('ws://${{host}}/a');
                           importScripts('http://${{host}}/a');`]))); }},
            ];
            for (const host of hosts)
                for (const attempt of attempts) try {{ attempt(host); }} catch {{}}
            tell('tried', 1);""", "tried")
        self.assertEqual(listener.heard, [])

    def test_no_call_from_page_to_page_goes_out(self):
        listener = Listener(self)
        self.tries(f"""
            for (const server of ['stun:127.0.0.1:{listener.port}', 'stun:localhost:{listener.port}',
                                  'turn:127.0.0.1:{listener.port}?transport=tcp', 'turn:127.0.0.1:{listener.port}']) {{
                try {{
                    const call = new RTCPeerConnection({{iceServers: [{{urls: server, username: 'a', credential: 'b'}}]}});
                    call.onicecandidate = event => {{ if (event.candidate) tell('place', event.candidate.candidate); }};
                    call.createDataChannel('a');
                    call.createOffer().then(offer => call.setLocalDescription(offer));
                }} catch {{}}
            }}
            tell('tried', 1);""", "tried")
        self.assertEqual(listener.heard, [])

    def test_nothing_can_be_sent_not_even_to_its_own_site(self):
        site = self.tries("""
            const request = new XMLHttpRequest();
            request.open('POST', '/sent'); request.onloadend = () => tell('sent', request.status); request.send('words');
            navigator.sendBeacon('/sent', 'words'); fetch('/sent', {method: 'POST', body: 'words'}).catch(() => 0);
            const frame = document.createElement('iframe'); frame.name = 'frame'; document.body.append(frame);
            const form = document.createElement('form');
            form.action = '/sent'; form.method = 'post'; form.target = 'frame';
            document.body.append(form); form.submit();""", "sent")
        self.assertFalse(site.asked("/sent"))

    def test_no_worker_stays_behind_the_page(self):
        worker = ("text/javascript", b"oninstall = () => {};")
        site = self.tries("""
            const workers = navigator.serviceWorker;
            if (workers) workers.register('/worker.js').then(() => tell('worker', 'there'), () => tell('worker', 'refused'));
            else tell('worker', 'refused');""", "worker", pages={"/worker.js": worker})
        self.assertEqual(site.said("worker"), ["refused"])

    def test_nobody_is_asked_to_keep_the_screen_on(self):
        bus = socket.socket(socket.AF_UNIX)
        self.addCleanup(bus.close)
        path = self.home.runtime / "bus"
        bus.bind(str(path))
        bus.listen()
        bus.setblocking(False)
        address = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={path}", "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={path}"}
        self.tries("""
            const canvas = document.createElement('canvas');
            const video = document.createElement('video');
            video.srcObject = canvas.captureStream(); video.play().catch(() => 0); document.body.append(video);
            document.documentElement.requestFullscreen().catch(() => 0);
            const lock = navigator.wakeLock ? navigator.wakeLock.request('screen') : Promise.reject();
            lock.then(() => tell('asked', 1), () => tell('asked', 1));""", "asked", **address)
        self.assertRaises(BlockingIOError, bus.accept)

    def test_nothing_asks_for_the_whole_screen_the_pointer_the_clipboard_or_a_file(self):
        site = self.tries("""
            const told = name => [() => tell(name, 'given'), () => tell(name, 'refused')];
            document.documentElement.requestFullscreen().then(...told('screen'));
            document.body.requestPointerLock(); setTimeout(() => tell('pointer', document.pointerLockElement !== null), 500);
            (navigator.clipboard ? navigator.clipboard.readText() : Promise.reject()).then(...told('clipboard'));
            const picker = document.createElement('input'); picker.type = 'file'; picker.onchange = () => tell('file', 1);
            document.body.append(picker); picker.click(); print();""", "screen", "pointer", "clipboard")
        self.assertEqual((site.said("screen"), site.said("pointer"), site.said("clipboard"), site.said("file")),
                         (["refused"], ["false"], ["refused"], []))

    def test_nothing_pops_up(self):
        site = self.tries("""
            const opened = window.open('/popup.html');
            tell('opened', opened !== null);
            const link = document.createElement('a');
            link.href = '/popup.html'; link.target = '_blank';
            document.body.append(link); link.click();
            alert('stop'); tell('after', confirm('go on?'));""", "opened", "after")
        self.assertEqual((site.said("opened"), site.said("after")), (["false"], ["false"]))
        self.assertFalse(site.asked("/popup.html"))

    def test_nothing_is_downloaded(self):
        archive = ("application/zip", b"PK" * 1000, ("Content-Disposition", "attachment; filename=a.zip"))
        image = "const image = new Image(); image.src = '/never'; document.body.append(image);"
        link = "const link = document.createElement('a'); link.href = '/a.zip'; document.body.append(link);"
        for when, script in (("by its words", f"{link} link.download = 'a.zip'; link.click();"),
                             ("by its type", f"{link} link.click();"),
                             ("before all is there", f"{image} {link} link.click();"),
                             ("once all is there", f"{link} onload = () => setTimeout(() => link.click(), 100);"),
                             ("in a frame", "document.body.innerHTML = \"<iframe src='/a.zip'>\";")):
            with self.subTest(when):
                site = self.tries(script, pages={"/a.zip": archive, "/never": None})
                self.assertEqual(sum(request.path == "/a.zip" for request in site.requests), 1)
                self.assertEqual([str(path) for path in self.home.path.rglob("*.zip*")], [])

    def test_no_permission_is_granted(self):
        site = self.tries("""
            navigator.geolocation.getCurrentPosition(() => tell('place', 'given'), () => tell('place', 'refused'));
            Notification.requestPermission().then(answer => tell('notices', answer));
            const media = navigator.mediaDevices;
            if (media) media.getUserMedia({audio: true}).then(() => tell('ear', 'given'), () => tell('ear', 'refused'));""",
                          "place")
        self.assertEqual(site.said("place"), ["refused"])
        self.assertNotIn("granted", site.said("notices"))
        self.assertNotIn("given", site.said("ear"))

    def test_no_other_program_is_started(self):
        programs = self.home.path / "programs"
        programs.mkdir()
        for name in ("xdg-open", "x-www-browser", "xdg-email", "sensible-browser"):
            program = programs / name
            program.write_text(f"#!/bin/sh\ntouch {self.home.path}/started\n")
            program.chmod(0o755)
        self.tries("""
            for (const address of ['mailto:a@b.org', 'tel:1', 'kestro:x', 'file:///tmp']) {
                const frame = document.createElement('iframe');
                frame.src = address; document.body.append(frame);
            }
            setTimeout(() => { location = 'mailto:a@b.org'; }, 300);""", PATH=f"{programs}:{os.environ['PATH']}")
        self.assertFalse((self.home.path / "started").exists())

    def test_nothing_is_kept_for_the_next_run(self):
        script = """
            tell('cookie', document.cookie); tell('stored', localStorage.getItem('mark'));
            document.cookie = 'mark=1; max-age=99999'; localStorage.setItem('mark', '1');
            const request = new XMLHttpRequest();
            request.open('GET', '/kept.txt'); request.onload = () => tell('fetched', 1); request.send();"""
        told = ("cookie", "stored", "fetched")
        kept = ("text/plain", b"kept", ("Cache-Control", "public, max-age=99999"))
        site = self.tries(script, *told, pages={"/kept.txt": kept})
        self.sees(site, told, times=2)
        self.assertEqual(site.said("cookie"), ["", ""])
        self.assertEqual(site.said("stored"), ["null", "null"])
        self.assertEqual(sum(request.path == "/kept.txt" for request in site.requests), 2)
        self.assertFalse(any("mark" in (request.cookie or "") for request in site.requests if request.path == "/page.html"))

    def test_what_is_written_goes_with_the_profile(self):
        before = set(self.home.path.rglob("*"))
        self.tries("localStorage.setItem('a', 1);")
        wait_until(lambda: not list(self.home.runtime.glob("kestro/web-*")), "the profile to go")
        new = {path.name.lower() for path in set(self.home.path.rglob("*")) - before}
        by_chance = re.compile(r"tmp[a-z0-9_]{8}")  # what tempfile calls what the test itself makes
        self.assertEqual({name for name in new if re.search("web|qt", name) and not by_chance.fullmatch(name)}, set())

    def test_a_page_that_is_not_there_is_black(self):
        run = PageRun(self, self.site().url("/gone.html"))
        run.wait_for_log("Web content: ")
        run.wait_for(BLACK)
        self.assertEqual(run.end().count("\n"), 1)

    def test_a_page_that_never_comes_is_black(self):
        site = self.site({"/never": None})
        run = PageRun(self, site.url("/never"))
        wait_until(lambda: site.asked("/never"), "the page to be asked for")
        run.wait_for(BLACK)

    def test_a_page_that_hangs_becomes_black_and_is_logged(self):
        script = """const ask = (what, isAsync) => {
            const request = new XMLHttpRequest();
            request.open('GET', what, isAsync);
            request.onload = () => { if (request.responseText === 'hang') ask('/never', false); };
            request.send();
        };
        setInterval(() => ask('/word', true), 100);"""
        site = self.site({"/word": ("text/plain", b"go on"), "/never": None})
        site.pages["/page.html"] = ("text/html", SHOWN + f"<script>{script}</script>".encode())
        run = PageRun(self, site.url("/page.html"))
        run.wait_for(RED)
        site.pages["/word"] = ("text/plain", b"hang")
        run.wait_for_log("the page hangs")
        run.wait_for(BLACK)


if __name__ == "__main__":
    unittest.main()
