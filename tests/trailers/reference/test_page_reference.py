"""Thousands of generated pages, read by the parser and by a plain implementation of the same rules."""

import json
import os
import pathlib
import random
import struct
import subprocess
import tempfile
import unittest

import page_reference as reference

PAGES = 6000
BASES = ["http://h/trailers/studio/", "http://h/", "http://h", "https://nas:8080/trailers/", "http://h:80/a.b/c//d/",
         "http://ada:x@[::1]:81/x?q#f", "http://h/trailers/v1.0", "http://h/a/../b/./"]
SITES = ["h", "h:80", "nas", "nas:8080", "[::1]", "[::1]:81", "H", "", "h:81"]
WORDS = ["a", "b.html", "t.mov", "T_480.MOV", ".mov", "v1.0", "..", ".", "trailers", "style.css", "x.json", "%20", "%4",
         "\xe9", " ", "title?x=1", "#top", "?page=2", "a;p", "~ada", "a:b", "http:", "new.html?u=/c", "", "index.d/"]
STARTS = ["", "", "", "/", "/trailers/", "../", "./", "http://h/", "http://h:80/", "https://nas:8080/trailers/", "http://",
          "//h/", "//other/", "http://other/", "http://other/x.mov", "HTTP://h/", "ftp://h/", "mailto:", "http:///",
          "https://nas/", "http://[::1]:81/", "http://eve@h/trailers/", "../../../"]
NOISE = ["\n", "\t", " ", "'", '"', "(", ")", ",", "{", "}", "<a ", ">", "=", "href", "HREF=", "href='", ".json",
         "'x.json", "QT_Write", "\x00", "\xff", "\x7f", "width:480", "location", ":", "/", "_", "%", "</html>"]
SIDES = ["480", "'480'", '"204"', " 4 80 ", "0", "", "480px", "-1", "\xa0480", "'0'", " \n272", "'", "00", "+5", "'href'"]


def cased(chance, text):
    return "".join(c.upper() if chance.random() < 0.5 else c.lower() for c in text)


def link(chance):
    return chance.choice(STARTS) + chance.choice(["/", "//", "/"]).join(chance.choices(WORDS, k=chance.randint(0, 3)))


def argument(chance, text):
    return chance.choice(["'%s'", "'%s'", '"%s"', "%s", " '%s' ", "'%s", "\"'%s'"]) % text


def movie(chance):
    return link(chance) + chance.choice(["", "/t.mov", "/t.MoV", "t.mov"])


def object_call(chance):
    arguments = [argument(chance, movie(chance)), *chance.choices(SIDES, k=2)]
    for _ in range(chance.randint(0, 2)):
        name = chance.choice(["href", "href", "href", "HREF", "controller"])
        arguments += [argument(chance, name), argument(chance, movie(chance))]
    return "QT_WriteOBJECT_XHTML(" + ",".join(arguments[:chance.choice([1, 2, 3, 9, 9, 9, 9, 9])]) + ")"


def package_call(chance):
    pairs = [chance.choice(["width", "height", " width", "'width'", "\theight", "src"]) + chance.choice([":", " : ", "::"]) +
             chance.choice(SIDES + ["http://h/a"]) for _ in range(chance.randint(0, 4))]
    text = ",".join([argument(chance, "m"), argument(chance, movie(chance)), "{" + ",".join(pairs) + "}"])
    return "AC.Quicktime.packageMovie(" + text + ")"


def piece(chance):
    kind = chance.randrange(8)
    if kind == 0:
        return cased(chance, "href=") + f'"{link(chance)}"'
    if kind == 1:
        return f"'{chance.choice(STARTS)}{chance.choice(WORDS)}" + cased(chance, ".json") + chance.choice(["'", '"', ""])
    if kind == 2:
        return object_call(chance)
    if kind == 3:
        return package_call(chance)
    if kind == 4:
        call, arguments = object_call(chance).split("(", 1)
        return cased(chance, call) + "(" + arguments
    return "".join(chance.choices(NOISE, k=chance.randint(1, 12)))


def broken(chance, text):
    """The text with a few characters lost or doubled, or cut off."""
    for _ in range(chance.randint(0, 3)):
        at = chance.randrange(len(text) + 1)
        text = text[:at] + chance.choice(["", text[at:at + 1] * 2, chance.choice(NOISE)]) + text[at + 1:]
    return text if chance.random() < 0.9 else text[:chance.randrange(len(text) + 1)]


def page_of(chance):
    return broken(chance, "".join(piece(chance) for _ in range(chance.randint(1, 30))))


def feed_of(chance):
    items = [cased(chance, '"location"') + chance.choice([":", ":", ":", " : "]) + f'"{link(chance)}"'
             for _ in range(chance.randint(0, 4))]
    return broken(chance, "[{" + "},{".join(items) + "}]")


def packed(data):
    return struct.pack(">I", len(data)) + data


class Case:
    def __init__(self, chance):
        self.base, self.site = chance.choice(BASES), chance.choice(SITES)
        self.page = page_of(chance)
        self.feeds = {}
        for url in feeds_named(self.page, self.base):
            if chance.random() < 0.8:
                self.feeds[url] = feed_of(chance)

    def packed(self):
        feeds = [text for pair in self.feeds.items() for text in pair]
        return b"".join([packed(self.base.encode("latin-1")), packed(self.site.encode("latin-1")),
                         struct.pack(">I", len(feeds)), *(packed(text.encode("latin-1")) for text in feeds),
                         packed(self.page.encode("latin-1"))])

    def expected(self):
        links = reference.link_list(self.page, self.base, self.feeds)
        followed = [reference.is_followed(one, self.site, lambda url: len(url) % 2 == 1) for one in links]
        return {"links": links, "movies": reference.movie_list(self.page, self.base), "followed": followed}


def feeds_named(page, base):
    """The URLs of the feeds that the page names, as the reference asks for them."""
    asked = []

    class Recorder(dict):
        def get(self, key, default=None):
            asked.append(key)
            return default

    reference.link_list(page, base, Recorder())
    return asked


class PageReference(unittest.TestCase):
    def test_parser_and_reference_agree_on_every_page(self):
        chance = random.Random(20080314)
        cases = [Case(chance) for _ in range(PAGES)]
        with tempfile.TemporaryDirectory(prefix="kestro-pages-") as folder:
            file = pathlib.Path(folder) / "pages"
            file.write_bytes(b"".join(case.packed() for case in cases))
            done = subprocess.run([os.environ["PAGE_BATCH"], str(file)], capture_output=True, text=True, check=True,
                                  timeout=240)
        reports = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual(len(reports), PAGES)
        for case, report in zip(cases, reports):
            self.assertEqual(report, case.expected(), (case.base, case.site, case.page, case.feeds))
        # What is compared has to be there.
        self.assertGreater(sum(len(report["links"]) for report in reports), PAGES)
        self.assertGreater(sum(len(report["movies"]) for report in reports), PAGES)
        self.assertGreater(sum(any(report["followed"]) for report in reports), PAGES // 50)
        self.assertGreater(sum(bool(case.feeds) for case in cases), PAGES // 4)
        self.assertGreater(sum("AC" in movie for report in reports for movie in report["movies"]), PAGES // 4)


if __name__ == "__main__":
    unittest.main()
