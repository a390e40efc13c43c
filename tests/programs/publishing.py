"""What the tests of `kestro publish` share: movies with names that ask for trouble, runs, what came out."""

import functools
import hashlib
import json
import shutil
import subprocess

from harness import BOUND, ProgramTest, movie

# Names that pages, addresses and scripts have to be careful with, their frame sizes, and what their titles are.
TREE = {
    "Ocean Life/tide_480.mov": ("480x204", "Tide"),
    "Ocean Life/tide_640.mov": ("640x272", "Tide"),
    "Ocean Life/tide_1280.mov": ("1280x544", "Tide"),
    "Space/Cassini/t_480.mp4": ("480x270", "Cassini"),
    "Space/Cassini/t_640.mp4": ("640x360", "Cassini"),
    "Über, 'Straße' (2) & \"<b>\"_480.mp4": ("480x204", "Über, 'Straße' (2) & \"<b>\""),
    "海の映画.mkv": ("320x240", "海の映画"),
}
TITLES = {title for _, title in TREE.values()}


@functools.cache
def streamable(path):
    """The movie with its index first, as movies for the web have it."""
    made = path.with_suffix(".web.mp4")
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-i", str(path), "-c", "copy", "-movflags", "+faststart",
                    str(made)], check=True, timeout=BOUND, stdin=subprocess.DEVNULL)
    return made


def put(folder, path, size="480x204", colour="red", is_streamable=True):
    """A movie of that size at a path below a folder; its content is that of other movies of the size and colour."""
    made = movie(f"published-{size}-{colour}", colour, size=size)
    made = streamable(made) if is_streamable else made
    target = folder / path
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(made, target)
    return target


class PublishTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.movies = self.home.path / "movies"
        self.movies.mkdir()
        self.site = self.home.path / "site"
        self.trailers = self.site / "trailers"

    def put_tree(self):
        for path, (size, _) in TREE.items():
            put(self.movies, path, size)

    def publish(self, *words, status=0):
        return self.run_kestro("publish", str(self.movies), str(self.site), *words, status=status)

    def feed(self):
        return json.loads((self.trailers / "feed.json").read_text())

    def snapshot(self):
        """Every file of the site with its content and time."""
        return {str(path.relative_to(self.site)): (hashlib.sha256(path.read_bytes()).hexdigest(), path.stat().st_mtime_ns)
                for path in sorted(self.site.rglob("*")) if path.is_file()}

    def contents(self):
        return {path: content for path, (content, _) in self.snapshot().items()}
