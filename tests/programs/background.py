"""What the tests of a saver behind the movies share: bundles, pictures, preferences and hacks of a home."""

import os
import pathlib
import plistlib

from PIL import Image

PICTURES_SAVER = pathlib.Path("System/Library/Frameworks/ScreenSaver.framework/Versions/A/Resources/Pictures Folder.saver")
FLY = {"FullScreenMode": "0", "PartialMode": "0", "Scale": "1"}
BOUNCE = {"FullScreenMode": "0", "PartialMode": "1", "Scale": "1"}
BLUE, GREEN, YELLOW, WHITE, CYAN = (0, 0, 255), (0, 128, 0), (255, 255, 0), (255, 255, 255), (0, 255, 255)
FIVE = {"blue": BLUE, "green": GREEN, "yellow": YELLOW, "white": WHITE, "cyan": CYAN}


def savers_of(home):
    return home.path / "Library" / "Screen Savers"


def write_bundle(path, **info):
    """A saver bundle with nothing but its Info.plist."""
    contents = path / "Contents"
    contents.mkdir(parents=True)
    (contents / "Info.plist").write_bytes(plistlib.dumps(info))
    return path


def put_pictures_saver(home):
    """The system's saver of picture folders, below the home's platform root."""
    return write_bundle(home.root / PICTURES_SAVER, NSPrincipalClass="PictureFolderView")


def draw_pictures(folder, colours, size="64x48"):
    """A picture of each colour."""
    folder.mkdir(parents=True)
    for colour in colours:
        Image.new("RGB", tuple(map(int, size.split("x"))), colour).save(folder / f"{colour}.png")


class SlidePreferences:
    """The slide show's preference file of a home."""

    def __init__(self, home):
        self.path = home.preferences / "ByHost" / "com.apple.screensaver.slideshow.0017f2.plist"
        self.path.parent.mkdir()

    def write(self, **preferences):
        self.path.write_bytes(plistlib.dumps(preferences))

    def read(self):
        return plistlib.loads(self.path.read_bytes())


def put_picture_background(home, colour="blue", size="640x480"):
    """A picture folder of one colour as the slide show of the user; answers the saver to put into "BackSaver"."""
    pictures = home.path / "Behind"
    draw_pictures(pictures, [colour], size)
    SlidePreferences(home).write(SlideFolder=str(pictures))
    return str(write_bundle(savers_of(home) / "Pictures Folder.saver", NSPrincipalClass="PictureFolderView"))


def processes_with(text):
    """The numbers of the processes that have the text in their environment or command line."""
    found = []
    for entry in pathlib.Path("/proc").iterdir():
        if not entry.name.isdigit() or int(entry.name) == os.getpid():
            continue
        try:
            if any(text.encode() in (entry / name).read_bytes() for name in ("environ", "cmdline")):
                found.append(int(entry.name))
        except OSError:
            continue  # it is gone, or not ours
    return found


def commands_of(processes):
    """The program names of those processes that still run."""
    names = []
    for process in processes:
        try:
            names.append(pathlib.Path(f"/proc/{process}/comm").read_text().strip())
        except OSError:
            continue
    return names
