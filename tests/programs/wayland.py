"""A Wayland session without a screen of glass: sway with outputs in memory, and a pointer of the tests' own."""

import json
import os
import pathlib
import signal
import socket
import struct
import subprocess
import tempfile

from harness import BOUND, Pixels, wait_until
from plainuser import NOBODY, PlainUser

SETTINGS = """
xwayland disable
output HEADLESS-1 resolution 400x300 position 0 0
output * bg #000000 solid_color
output HEADLESS-2 resolution 320x240 position 400 0
output HEADLESS-3 resolution 80x60 position 400 240
"""


class Session:
    """sway with two outputs side by side and room for a third, as "nobody" where the tests run as root: it refuses to be root.
    The outputs are in memory or, where `display` names one, windows on an X server. Ended by close()."""

    def __init__(self, display=None):
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-wayland-")
        top = pathlib.Path(self._holder.name)
        top.chmod(0o755)
        self._runtime = top / "run"
        self._runtime.mkdir(mode=0o700)
        if os.getuid() == 0:
            os.chown(self._runtime, NOBODY, NOBODY)
        settings = top / "settings"
        settings.write_text(SETTINGS)
        self._log = top / "log"
        variables = {"PATH": "/usr/bin:/bin", "XDG_RUNTIME_DIR": str(self._runtime), "HOME": str(self._runtime),
                     "WLR_BACKENDS": "headless", "WLR_HEADLESS_OUTPUTS": "2", "WLR_RENDERER": "pixman",
                     "WLR_LIBINPUT_NO_DEVICES": "1"}
        if display:
            variables |= {"WLR_BACKENDS": "x11", "WLR_X11_OUTPUTS": "2", "DISPLAY": display}
        with self._log.open("w") as log:
            self._process = subprocess.Popen(PlainUser.command("sway", "-c", str(settings)), env=variables, stdout=log,
                                             stderr=log, stdin=subprocess.DEVNULL, start_new_session=True)
        self.display = str(self._await_socket("wayland-[0-9]"))
        self._control = str(self._await_socket("sway-ipc.*.sock"))

    def _await_socket(self, pattern):
        found = wait_until(lambda: self._process.poll() is not None or list(self._runtime.glob(pattern)), "sway")
        if found is True:
            raise AssertionError(self._log.read_text())
        return found[0]

    def close(self):
        if self._process.poll() is None:
            os.killpg(self._process.pid, signal.SIGTERM)
            self._process.wait(timeout=BOUND)
        self._holder.cleanup()

    def kill(self):
        """Ends it as a crash would."""
        os.killpg(self._process.pid, signal.SIGKILL)
        self._process.wait(timeout=BOUND)

    def environment(self):
        return {**os.environ, "WAYLAND_DISPLAY": self.display, "XDG_RUNTIME_DIR": str(self._runtime)}

    def tell(self, *words):
        """Has sway carry out a command, or answer a question."""
        command = ["swaymsg", "-r", "-s", self._control, *words]
        return json.loads(subprocess.run(command, check=True, capture_output=True, timeout=BOUND).stdout)

    def views(self):
        """The places of the windows that cover an output, as (width, height, x, y), and False for other windows."""
        found = []
        self._collect(self.tell("-t", "get_tree"), found)
        return sorted(found)

    def _collect(self, node, found):
        if node.get("pid") and node["type"] in ("con", "floating_con"):
            place = node["rect"]
            is_covering = node["fullscreen_mode"] == 1 and node["visible"]
            found.append(is_covering and (place["width"], place["height"], place["x"], place["y"]))
        for inner in node["nodes"] + node["floating_nodes"]:
            self._collect(inner, found)

    def picture(self, *words):
        """What all outputs show now, with the pointer; of one output its very pixels, with "-o" and its name."""
        path = pathlib.Path(self._holder.name, "picture.ppm")
        subprocess.run(["grim", "-c", "-t", "ppm", *words, str(path)], env=self.environment(), check=True, timeout=BOUND)
        return Pixels.of_file(path)

    def typing(self, *words):
        """A process that does at a keyboard what wtype does with those words, by default presses a key again and again. The
        keyboard is there while it runs."""
        return subprocess.Popen(["wtype", *(words or ("-d", "50", "a" * 2000))], env=self.environment(),
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Listening:
    """A program whose output is kept, line by line. Ended by close()."""

    def __init__(self, command, environment, stdin=subprocess.DEVNULL):
        self._holder = tempfile.TemporaryDirectory(prefix="kestro-heard-")
        self._heard = pathlib.Path(self._holder.name, "heard")
        with self._heard.open("w") as heard:
            self._process = subprocess.Popen(command, env=environment, stdin=stdin, stdout=heard,
                                             stderr=subprocess.DEVNULL, text=True)

    def lines(self):
        """The whole lines so far."""
        return [line.strip() for line in self._heard.read_text().split("\n")[:-1]]

    def is_running(self):
        return self._process.poll() is None

    def close(self):
        self._process.kill()
        self._process.wait(timeout=BOUND)
        if self._process.stdin:
            self._process.stdin.close()
        self._holder.cleanup()


class OddCompositor(Listening):
    """A compositor that answers when it is told to and shows nothing."""

    def __init__(self, *words):
        self._runtime = tempfile.TemporaryDirectory(prefix="kestro-odd-")
        self.display = str(pathlib.Path(self._runtime.name, "odd"))
        environment = {"PATH": "/usr/bin:/bin", "XDG_RUNTIME_DIR": self._runtime.name}
        super().__init__([os.environ["ODD_COMPOSITOR"], "odd", *words], environment, stdin=subprocess.PIPE)
        wait_until(lambda: self.lines() == ["ready"], "the compositor")

    def close(self):
        super().close()
        self._runtime.cleanup()

    def tell(self, *orders):
        """All of them at once."""
        self._process.stdin.write("".join(order + "\n" for order in orders))
        self._process.stdin.flush()


class Pointer:
    """A mouse: a client of the compositor that speaks the virtual pointer protocol of wlroots. Gone with close()."""

    DISPLAY, REGISTRY, MANAGER, POINTER = range(1, 5)
    LEFT_BUTTON = 0x110

    def __init__(self, session):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.settimeout(BOUND)
        self._socket.connect(session.display)
        self._heard = b""
        self._send(self.DISPLAY, 1, struct.pack("=I", self.REGISTRY))
        interface = b"zwlr_virtual_pointer_manager_v1"
        name = self._find(interface)
        text = struct.pack("=I", len(interface) + 1) + interface.ljust(32, b"\0")
        self._send(self.REGISTRY, 0, struct.pack("=I", name) + text + struct.pack("=II", 1, self.MANAGER))
        self._send(self.MANAGER, 0, struct.pack("=II", 0, self.POINTER))

    def close(self):
        self._socket.close()

    def move_to(self, x, y, width=720, height=300):
        """Moves to a place of the desk, all outputs together being of that size."""
        self._send(self.POINTER, 1, struct.pack("=IIIII", 0, x, y, width, height))
        self._send(self.POINTER, 4)

    def click(self):
        for is_down in (1, 0):
            self._send(self.POINTER, 2, struct.pack("=III", 0, self.LEFT_BUTTON, is_down))
            self._send(self.POINTER, 4)

    def _send(self, receiver, request, arguments=b""):
        self._socket.sendall(struct.pack("=IHH", receiver, request, 8 + len(arguments)) + arguments)

    def _find(self, interface):
        """The number under which the registry lists an interface."""
        while True:
            sender, event, body = self._event()
            length = struct.unpack_from("=I", body, 4)[0] if len(body) > 8 else 0
            if sender == self.REGISTRY and event == 0 and body[8 : 8 + length - 1] == interface:
                return struct.unpack_from("=I", body)[0]

    def _event(self):
        sender, event, size = struct.unpack("=IHH", self._read(8))
        return sender, event, self._read(size - 8)

    def _read(self, count):
        while len(self._heard) < count:
            more = self._socket.recv(65536)
            if not more:
                raise AssertionError("the compositor hung up")
            self._heard += more
        taken, self._heard = self._heard[:count], self._heard[count:]
        return taken
