"""The files that Kestro keeps, saved by SAVE_PROBE and SITE_PROBE, and what must hold of each whenever that is killed."""

import json
import os
import pathlib
import plistlib
import shutil
import subprocess
import tempfile

PROBE, SITE_PROBE = os.environ["SAVE_PROBE"], os.environ["SITE_PROBE"]
BOUND = 180
XSCREENSAVER = "timeout:\t0:10:00\nprograms:\t\\\n\tmaze --root\t\\n\\\n" + "\tother --root\t\\n\\\n" * 2000 + "\n"


class Kind:
    """One kind of save, in a folder of its own. Each state of the file has a number, that of the saving."""

    def __init__(self, name, files, program=PROBE):
        self.name = name
        self.program = program
        self.files = files
        self.holder = tempfile.TemporaryDirectory(prefix="kestro-saves-")
        self.folder = pathlib.Path(self.holder.name) / "home"

    def start(self):
        """The state number 0."""
        first = self.folder.with_name("first")
        if not first.exists():
            self.folder.mkdir()
            self.prepare()
            self.save(0).check_returncode()
            self.folder.rename(first)
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(first, self.folder)

    def prepare(self):
        """What the user had before."""

    def command(self, number):
        return [self.program, self.name, str(self.folder), str(number)]

    def save(self, number, **environment):
        return subprocess.run(self.command(number), env={**os.environ, **environment}, timeout=BOUND, check=False)

    def state(self):
        """The number of the saving that the file is of; an exception where it is not whole."""
        raise NotImplementedError

    def leftovers(self):
        """Files that are none of those which are to be there."""
        found = {str(path.relative_to(self.folder)) for path in self.folder.rglob("*") if path.is_file()}
        return found - set(self.files)

    def close(self):
        self.holder.cleanup()


def only(values):
    """The one value that all are."""
    (value,) = set(values)
    return value


class Settings(Kind):
    def __init__(self):
        super().__init__("settings", ["Library/Preferences/Kestro.plist"])

    def state(self):
        read = plistlib.loads((self.folder / self.files[0]).read_bytes())
        number = read["Number"]
        assert read["Text"] == str(number) * 20_000
        return number


class Resume(Kind):
    def __init__(self):
        super().__init__("resume", ["Library/Preferences/Kestro.def.plist"])

    def state(self):
        read = plistlib.loads((self.folder / self.files[0]).read_bytes())
        return only([int(read["LastMovie"].removesuffix(".mov")), int(read["LastPos"])])


class Trailers(Kind):
    def __init__(self):
        super().__init__("trailers", ["Library/Preferences/Kestro_Scanned_Trailers.lst"])

    def state(self):
        read = plistlib.loads((self.folder / self.files[0]).read_bytes())["Trailers"]
        assert len(read) == 300
        return only(int(record["URL"].rpartition("/")[2].removesuffix(".mov")) for record in read)


class Xscreensaver(Kind):
    def __init__(self):
        super().__init__("xscreensaver", [".xscreensaver", ".xscreensaver.kestro-backup"])

    def prepare(self):
        (self.folder / ".xscreensaver").write_text(XSCREENSAVER)

    def state(self):
        text = (self.folder / ".xscreensaver").read_text()
        kept = self.folder / ".xscreensaver.kestro-backup"
        assert not kept.exists() or kept.read_text().startswith(XSCREENSAVER[:-1])
        without = "".join(line for line in text.splitlines(keepends=True) if '"Kestro"' not in line)
        assert without == XSCREENSAVER
        return int(text != without)


class Site(Kind):
    def __init__(self):
        super().__init__("site", [".kestro-site.json", "page.html"], SITE_PROBE)

    def state(self):
        text = (self.folder / "page.html").read_text()
        assert text and text == text[: len(text) // 20_000] * 20_000  # a number, so often
        movies = json.loads((self.folder / ".kestro-site.json").read_text())["movies"]
        return int(only(movies).removesuffix(".mov"))


KINDS = [Settings, Resume, Trailers, Xscreensaver, Site]
