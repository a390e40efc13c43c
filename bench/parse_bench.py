"""The speed of the page parser beside grep's, on the same bytes. usage: parse_bench.py PARSE_BENCH

Pages look like those of a trailer site: about 13 kB of markup, scripts and text with 25 links, a feed and two movies. The
parser takes links and movies out of them; `grep -c -i -F` only counts the lines that hold one of the four texts that the
parser searches for. Processor time of one core; grep's own, from the kernel, of reading the file from memory."""

import os
import random
import resource
import statistics
import subprocess
import sys
import tempfile

MEGABYTES = 64
ROUNDS = 5
LEAST = 500  # MB/s
NEEDLES = ['href="', ".json", "QT_WriteOBJECT_XHTML(", "AC.Quicktime.packageMovie("]
WORDS = """the movie trailer opens in theaters everywhere this summer directed by with music from and starring a story of
two friends who travel across country to find what they lost watch exclusive clip featurette cast crew release date
studio pictures entertainment presents production company""".split()


def text(chance, count):
    return " ".join(chance.choices(WORDS, k=count))


def link(chance, number):
    place = chance.choice(["/trailers/studio/", "", "../", "http://trailers.example/trailers/", "http://other.example/"])
    name = chance.choice(["title", "index.html", "large.html", "images/poster.jpg", "?page=2"])
    return (f'<li class="item n{number}"><a href="{place}{name.replace("title", f"title{number}/")}" title="{text(chance, 3)}">'
            f'<img src="/images/thumbs/{number}_small.jpg" width="66" height="100" alt="{text(chance, 2)}" /></a>\n'
            f'<p class="desc">{text(chance, 30)}.</p></li>\n')


def page(chance, number):
    links = "".join(link(chance, number * 25 + i) for i in range(25))
    script = "\n".join(f"  var v{i} = document.getElementById('{WORDS[i]}'); if (v{i}) {{ v{i}.style.display = 'none'; }}"
                       for i in range(30))
    return (f"<html><head><title>{text(chance, 4)}</title>\n<script type=\"text/javascript\">\n{script}\n"
            f"  new Ajax.Request('/trailers/home/feeds/studios{number}.json', {{method:'get'}});\n"
            f"  QT_WriteOBJECT_XHTML('http://trailers.example/p{number}.mov', '480', '204', '', 'href', "
            f"'http://trailers.example/trailers/t{number}_480.mov', 'controller', 'true');\n"
            f"  AC.Quicktime.packageMovie('m{number}', '/trailers/t{number}_640.mov', {{width:640, height:272, "
            f"controller:true}});\n</script></head><body>\n<ul>\n{links}</ul></body></html>\n")


def write_pages(path):
    chance = random.Random(480)
    size, number = 0, 0
    with open(path, "w", encoding="ascii") as file:
        while size < MEGABYTES * 1_000_000:
            size += file.write(page(chance, number))
            number += 1
    print(f"{size / 1e6:.0f} MB, {number} pages of {size / number / 1000:.1f} kB")
    return size


def grep_seconds(path, locale):
    command = ["grep", "-c", "-i", "-F"]
    for needle in NEEDLES:
        command += ["-e", needle]
    environment = {**os.environ, "LC_ALL": locale}

    def once():
        # Its count is read: with nowhere to write to, grep stops at the first match.
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        subprocess.run([*command, path], check=True, capture_output=True, env=environment)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime

    return statistics.median(once() for _ in range(ROUNDS))


def parser_seconds(program, path):
    done = subprocess.run([program, path], check=True, capture_output=True, text=True)
    seconds, links, movies = done.stdout.split()
    print(f"  {links} links, {movies} movies")
    return float(seconds)


def main():
    program = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as folder:
        path = os.path.join(folder, "pages.html")
        print("parse: links and movies of pages, in processor time of one core")
        size = write_pages(path)
        speed = size / parser_seconds(program, path) / 1e6
        print(f"  parser {speed:.0f} MB/s (at least {LEAST}) {'ok' if speed >= LEAST else 'MISSED'}")
        for locale in ["C", "C.UTF-8"]:
            grep = size / grep_seconds(path, locale) / 1e6
            print(f"  grep -c -i -F, LC_ALL={locale}: {grep:.0f} MB/s; the parser is {speed / grep:.2f} times as fast")


if __name__ == "__main__":
    main()
