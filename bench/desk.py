"""A virtual screen whose pixels can be read without asking its server, and processes whose cost is counted."""

import mmap
import os
import random
import signal
import struct
import subprocess
import tempfile
import time

TICKS = os.sysconf("SC_CLK_TCK")


class Screen:
    """An Xvfb of our own; its frame buffer is a file in memory."""

    def __init__(self, width=1920, height=1080):
        self.width, self.height = width, height
        self.folder = tempfile.TemporaryDirectory()
        reader, writer = os.pipe()
        # A server that looks for a free number itself can take away the socket of one that runs beside it.
        number = random.randrange(1000, 50000)
        self.process = subprocess.Popen(
            ["Xvfb", f":{number}", "-displayfd", str(writer), "-screen", "0", f"{width}x{height}x24", "-fbdir", self.folder.name,
             "-nolisten", "tcp", "-noreset"], pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as answer:
            self.display = ":" + answer.readline().strip()
        with open(os.path.join(self.folder.name, "Xvfb_screen0"), "rb") as file:
            self.pixels = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        header, _, _, _, _, _, _, _, _, _, _, _, stride = struct.unpack(">13I", self.pixels[:52])
        colours = struct.unpack(">I", self.pixels[76:80])[0]
        self.start, self.stride = header + colours * 12, stride

    def pixel(self, x, y):
        """The colour at a place counted from the top left, as 0xrrggbb."""
        at = self.start + y * self.stride + x * 4
        return struct.unpack("<I", self.pixels[at:at + 4])[0] & 0xFFFFFF

    def plug_in(self, name, geometry, output):
        """Makes a part of the desk a monitor; `output` is "screen" for the first of them, else "none"."""
        subprocess.run(["xrandr", "--setmonitor", name, geometry, output], env=self.environment(), check=True,
                       stdout=subprocess.DEVNULL)

    def row(self, y):
        """The pixels of a row counted from the top, four bytes each, blue first."""
        at = self.start + y * self.stride
        return self.pixels[at:at + self.width * 4]

    def environment(self, **more):
        env = {**os.environ, "DISPLAY": self.display, **more}
        env.pop("WAYLAND_DISPLAY", None)
        return env

    def close(self):
        self.pixels.close()
        end(self.process)
        self.folder.cleanup()


def end(process):
    """Ends a process of ours and waits for it."""
    if process.poll() is None:
        process.send_signal(signal.SIGTERM)
    process.wait()


def cpu_seconds(pid):
    """Processor time that a process has used, all its threads together."""
    with open(f"/proc/{pid}/stat") as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def peak_megabytes(pid):
    """The most memory a process held at once, in MiB."""
    return status_megabytes(pid, "VmHWM")


def megabytes(pid):
    """The memory that a process holds now, in MiB."""
    return status_megabytes(pid, "VmRSS")


def status_megabytes(pid, field):
    with open(f"/proc/{pid}/status") as file:
        for line in file:
            if line.startswith(field):
                return int(line.split()[1]) / 1024
    return 0.0


def cost(pids, settle, span):
    """Processor seconds a second of each process over `span` seconds, after `settle` seconds."""
    time.sleep(settle)
    before, begun = [cpu_seconds(pid) for pid in pids], time.monotonic()
    time.sleep(span)
    passed = time.monotonic() - begun
    return [(cpu_seconds(pid) - was) / passed for pid, was in zip(pids, before)]
