"""The rules by which a page is read, as plainly as they can be written; pages and feeds are text of one byte a
character. Slow and simple on purpose: the parser of the program is compared with it."""

import ipaddress
import re
import urllib.parse

UNKNOWN = "---"
LEGAL = re.compile(r"(?:[A-Za-z0-9\-_.!~*'();/?:@&=+$,\[\]#]|%[0-9A-Fa-f]{2})*\Z")
PARTS = re.compile(r"(?:(?P<scheme>[A-Za-z][A-Za-z0-9+.-]*):)?(?P<rest>[^#]*)(?P<fragment>#.*)?\Z", re.S)
HIERARCHY = re.compile(r"(?://(?P<authority>[^/?]*))?(?P<path>[^?]*)(?P<query>\?.*)?\Z", re.S)
USUAL_PORTS = {"http": "80", "https": "443"}


class URL:
    """The parts of a URL; only made by parse()."""

    def __init__(self, scheme, authority, path, query, fragment):
        self.scheme, self.authority, self.raw_path = scheme, authority, path
        self.query, self.fragment = query, fragment
        self.host_and_port = (authority or "").split("@")[-1].removesuffix(":")
        found = re.fullmatch(r"(.*?)(?::([^:\]]*))?", self.host_and_port)
        self.host, self.port = found[1], found[2]

    @property
    def path(self):
        stripped = self.raw_path.rstrip("/")
        return stripped or self.raw_path[:1]

    def port_in(self, scheme):
        return self.port or USUAL_PORTS.get(scheme, "")


def parse(text):
    if not LEGAL.match(text) or text.count("#") > 1:
        return None
    found = PARTS.match(text)
    scheme, rest = found["scheme"], found["rest"]
    if scheme and not rest.startswith("/"):
        return URL(scheme, None, "", "", "")
    inner = HIERARCHY.match(rest)
    return URL(scheme, inner["authority"], inner["path"], inner["query"] or "", found["fragment"] or "")


def extension(path):
    name = path.rstrip("/").split("/")[-1]
    before, dot, after = name.rpartition(".")
    return after if dot and before else ""


def components(path):
    return (["/"] if path.startswith("/") else []) + [piece for piece in path.split("/") if piece]


def join(pieces):
    if pieces[:1] == ["/"]:
        return "/" + "/".join(pieces[1:])
    return "/".join(pieces)


def merged_string(link, base_text):
    base, url = parse(base_text), parse(link)
    if base is None or not base.scheme or not base.host or url is None:
        return None
    if url.scheme and url.scheme != base.scheme:
        return None
    if url.host and (url.host, url.port_in(base.scheme)) != (base.host, base.port_in(base.scheme)):
        return None
    path = url.path
    if not path:
        return None
    if not path.startswith("/"):
        gathered = components(base.path or "/")
        for piece in components(link):
            if piece == "..":
                gathered = gathered[:-1]
            elif piece != ".":
                gathered = gathered + [piece]
        path = join(gathered)
    if not path.endswith("/") and not extension(path):
        path += "/"
    return f"{base.scheme}://{base.host_and_port}{path}"


def absolute(text, base_text):
    """RFC 3986, 5.2."""
    url, base = parse(text), parse(base_text)
    if url is None:
        return None
    if url.scheme:
        return text
    if url.authority is not None:
        return f"{base.scheme}:{text}"
    start = f"{base.scheme}://{base.authority}"
    if not url.raw_path:
        return start + base.raw_path + (url.query or base.query) + url.fragment
    path = url.raw_path
    if not path.startswith("/"):
        path = (base.raw_path[:base.raw_path.rfind("/") + 1] or "/") + path
    kept = []
    pieces = path.split("/")[1:]
    for piece in pieces:
        if piece == "..":
            kept = kept[:-1]
        elif piece != ".":
            kept.append(piece)
    if pieces[-1] in (".", ".."):
        kept.append("")
    return start + "/" + "/".join(kept) + url.query + url.fragment


def pieces_between(text, opening, closing):
    """What stands between each `opening`, in whatever case, and the next `closing`."""
    found, at, lower = [], 0, ascii_lower(text)
    while (start := lower.find(opening, at)) >= 0:
        start += len(opening)
        end = text.find(closing, start)
        if end < 0:
            at = start
            continue
        found.append(text[start:end])
        at = end + 1
    return found


def ascii_lower(text):
    return "".join(c.lower() if "A" <= c <= "Z" else c for c in text)


def link_list(page, base, feeds):
    links = [merged_string(link, base) for link in pieces_between(page, 'href="', '"')]
    stretch, lower = 0, ascii_lower(page)
    while (at := lower.find(".json", stretch)) >= 0:
        end = at + len(".json")
        quote = page.rfind("'", stretch, at)
        feed = merged_string(page[quote + 1:end], base) if quote >= 0 else None
        # Steps up past the root eat into the host; no feed of another host is read.
        if feed is not None and parse(feed).host_and_port == parse(base).host_and_port:
            locations = pieces_between(feeds.get(feed.lower(), ""), '"location":"', '"')
            links += [merged_string(location, base) for location in locations]
        stretch = end
    return [link for link in links if link is not None]


def internal_string(argument, remove_spaces=False):
    for quote in "'\"":
        pieces = argument.split(quote)
        if len(pieces) >= 2:
            return pieces[1]
    if remove_spaces:
        return "".join(c for c in argument if c != " " and ord(c) < 128)
    return argument


def attributes(text):
    if "{" not in text or "}" not in text or text.index("}") < text.index("{"):
        return None
    inner = text[text.index("{") + 1:text.index("}")]
    for blank in "\n\t ":
        inner = inner.replace(blank, "")
    pairs = [piece.split(":") for piece in inner.split(",") if piece]
    return {pair[0]: pair[1] for pair in pairs if len(pair) == 2}


def side(text):
    number = re.match(r"[ \t\n\v\f\r]*[+-]?([0-9]*)", text)[1]
    return text if number and int(number) != 0 else UNKNOWN


LABEL = "[A-Za-z0-9_-]+"
SERVER = re.compile(rf"(\[(?P<six>[0-9A-Fa-f:.]+)\]|{LABEL}(\.{LABEL})*\.?)(:(?P<port>[0-9]*))?")


def is_address(text):
    try:
        ipaddress.IPv6Address(text)
    except ValueError:
        return False
    return True


def is_movie_on_web(text):
    """A site may name its pages as it likes: what counts is the path of the whole URL, as a server sees it."""
    url = parse(text)
    path = urllib.parse.unquote(url.raw_path)
    server = SERVER.fullmatch((url.authority or "").rpartition("@")[2])
    is_named = server is not None and int(server["port"] or 0) < 65536 and is_address(server["six"] or "::")
    return ascii_lower(url.scheme) in ("http", "https") and is_named and ascii_lower(extension(path)) == "mov"


def record(movie, base, sides, **more):
    if ascii_lower(extension(movie)) != "mov":
        return None
    url = absolute(movie, base)
    if url is None or not is_movie_on_web(url):
        return None
    return {"URL": url, "Size": f"{side(sides[0])} x {side(sides[1])}", "Date": "2008/03/14", **more}


def object_record(text, base):
    arguments = text.split(",")
    names = [internal_string(argument) for argument in arguments]
    if len(arguments) < 3 or ("href" in names and names.index("href") == len(names) - 1):
        return None
    movie = names[0]
    if "href" in names:
        href = names[names.index("href") + 1]
        poster = absolute(names[0], base)
        merged = merged_string(href, poster) if poster is not None else None
        url = parse(href)
        if merged is None and url and url.scheme and url.host and ascii_lower(extension(href)) == "mov":
            merged = href
        movie = names[0] if merged is None else merged
    return record(movie, base, [internal_string(argument, True) for argument in arguments[1:3]])


def package_record(text, base):
    arguments, pairs = text.split(","), attributes(text)
    if len(arguments) < 2 or pairs is None:
        return None
    return record(internal_string(arguments[1]), base, [pairs.get("width", ""), pairs.get("height", "")], AC="Y")


def movie_list(page, base):
    records = [object_record(text, base) for text in pieces_between(page, "qt_writeobject_xhtml(", ")")]
    records += [package_record(text, base) for text in pieces_between(page, "ac.quicktime.packagemovie(", ")")]
    return [found for found in records if found is not None]


def is_followed(link, site, is_passed):
    url, host = parse(link), URL(None, site, "", "", "")
    if url is None or not site or url.host != host.host:
        return False
    if host.port and host.port != url.port_in(url.scheme):
        return False
    return url.path.startswith("/trailers") and ascii_lower(extension(url.path)) != "css" and not is_passed(link)
