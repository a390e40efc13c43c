"""Flash movies made by hand: a tiny assembler for SWF files, their ActionScript 1 bytecode and ActionScript 3 classes.

The layouts are those of the SWF file format specification, version 19, and of the AVM2 overview. Positions are in
pixels; the file counts in twentieths of them.
"""

import struct
import zlib

TWIPS = 20


def tag(code, body=b""):
    """A tag with the long form of its length."""
    return struct.pack("<HI", code << 6 | 0x3F, len(body)) + body


class Bits:
    """Bit fields, the highest bit first."""

    def __init__(self):
        self._text = ""

    def unsigned(self, value, width):
        self._text += format(value, f"0{width}b") if width else ""
        return self

    def signed(self, value, width):
        return self.unsigned(value & ((1 << width) - 1), width)

    def bytes(self):
        padded = self._text + "0" * (-len(self._text) % 8)
        return int(padded, 2).to_bytes(len(padded) // 8, "big")


def width_of(*values):
    """The bits that signed numbers take."""
    return max(value.bit_length() for value in values) + 1


def rect(width, height):
    right, bottom = width * TWIPS, height * TWIPS
    width = width_of(right, bottom)
    return Bits().unsigned(width, 5).signed(0, width).signed(right, width).signed(0, width).signed(bottom, width).bytes()


def colour(value):
    return bytes(value)


def movie(tags, size=(320, 240), rate=24, frames=1, version=9, is_packed=False):
    body = rect(*size) + struct.pack("<HH", rate * 256, frames) + b"".join(tags) + tag(0)
    head = b"CWS" if is_packed else b"FWS"
    return head + bytes([version]) + struct.pack("<I", 8 + len(body)) + (zlib.compress(body) if is_packed else body)


def background(value):
    return tag(9, colour(value))


def box(identity, width, height, value):
    """DefineShape: a filled box, its corner at the origin."""
    right, bottom = width * TWIPS, height * TWIPS
    bits = Bits().unsigned(1, 4).unsigned(0, 4)  # one bit for fills, none for lines
    bits.unsigned(0, 1).unsigned(0b00010, 5).unsigned(1, 1)  # a style change: the fill to the right
    for along, way in ((True, right), (False, bottom), (True, -right), (False, -bottom)):
        length = width_of(way)
        bits.unsigned(0b11, 2).unsigned(length - 2, 4).unsigned(0, 1).unsigned(0 if along else 1, 1).signed(way, length)
    shape = bits.unsigned(0, 6).bytes()
    styles = bytes([1, 0x00]) + colour(value) + bytes([0])
    return tag(2, struct.pack("<H", identity) + rect(width, height) + styles + shape)


def matrix(x, y):
    across, down = x * TWIPS, y * TWIPS
    width = width_of(across, down)
    return Bits().unsigned(0, 2).unsigned(width, 5).signed(across, width).signed(down, width).bytes()


def clip(identity, shape):
    """DefineSprite: a clip of one frame that holds a shape, so that it can have a name."""
    place = tag(26, bytes([0b110]) + struct.pack("<HH", 1, shape) + matrix(0, 0))
    return tag(39, struct.pack("<HH", identity, 1) + place + show_frame() + tag(0))


def place(identity, x, y, name=None, depth=1):
    flags = 0b110 | (0b100000 if name else 0)
    named = name.encode() + b"\0" if name else b""
    return tag(26, bytes([flags]) + struct.pack("<HH", depth, identity) + matrix(x, y) + named)


def show_frame():
    return tag(1)


# ActionScript 1

def do_action(*actions):
    return tag(12, b"".join(actions) + b"\0")


def push(*values):
    body = b"".join(b"\x00" + v.encode() + b"\0" if isinstance(v, str) else b"\x07" + struct.pack("<i", v) for v in values)
    return b"\x96" + struct.pack("<H", len(body)) + body


GET_VARIABLE, SET_VARIABLE, GET_MEMBER, SET_MEMBER = b"\x1c", b"\x1d", b"\x4e", b"\x4f"
ADD, EQUALS, NOT, POP = b"\x47", b"\x49", b"\x12", b"\x17"


def move_clip(name, pixels):
    """name._x = name._x + pixels"""
    return (push(name) + GET_VARIABLE + push("_x") + push(name) + GET_VARIABLE + push("_x") + GET_MEMBER + push(pixels)
            + ADD + SET_MEMBER)


def put_clip(name, x):
    """name._x = x"""
    return push(name) + GET_VARIABLE + push("_x", x) + SET_MEMBER


def if_equal(variable, value, actions):
    """if (variable == value) { actions }"""
    jump = b"\x9d" + struct.pack("<Hh", 2, len(actions))
    return push(variable) + GET_VARIABLE + push(value) + EQUALS + NOT + jump + actions


def once(actions):
    """The actions, at the first pass alone."""
    return if_equal("passes", 0, b"") if not actions else unless_set("done", push("done", 1) + SET_VARIABLE + actions)


def unless_set(variable, actions):
    jump = b"\x9d" + struct.pack("<Hh", 2, len(actions))
    return push(variable) + GET_VARIABLE + push(1) + EQUALS + jump + actions


def load_variables(url):
    """loadVariables(url, _root)"""
    return push(url, "_root") + b"\x9a" + struct.pack("<HB", 1, 0b11000000)


def get_url(url, window):
    body = url.encode() + b"\0" + window.encode() + b"\0"
    return b"\x83" + struct.pack("<H", len(body)) + body


def endless_loop():
    return b"\x99" + struct.pack("<Hh", 2, -5)


# ActionScript 3

def u30(value):
    out = b""
    while True:
        low, value = value & 0x7F, value >> 7
        out += bytes([low | (0x80 if value else 0)])
        if not value:
            return out


class Constants:
    """The constants of a block of ActionScript 3: each is there once, numbered from one."""

    def __init__(self):
        self._pools = {"integer": [], "string": [], "namespace": [], "name": []}

    def _index(self, pool, value):
        if value not in self._pools[pool]:
            self._pools[pool].append(value)
        return self._pools[pool].index(value) + 1

    def integer(self, value):
        return self._index("integer", u30(value & 0xFFFFFFFF))

    def string(self, text):
        return self._index("string", u30(len(text)) + text.encode())

    def name(self, text, package=""):
        space = self._index("namespace", b"\x16" + u30(self.string(package)))
        return self._index("name", b"\x07" + u30(space) + u30(self.string(text)))

    def bytes(self):
        def pool(name):
            values = self._pools[name]
            return u30(len(values) + 1 if values else 0) + b"".join(values)

        none = u30(0)
        return pool("integer") + none + none + pool("string") + pool("namespace") + none + pool("name")


def moving_class(name, pixels, side, value):
    """DoABC and SymbolClass: a movie whose main class draws a box and moves it by some pixels at each frame."""
    constants = Constants()
    own, sprite = constants.name(name), constants.name("Sprite", "flash.display")
    word = {text: constants.name(text) for text in ("graphics", "beginFill", "drawRect", "addEventListener", "tick", "x")}
    shade = constants.integer(value[0] << 16 | value[1] << 8 | value[2])
    entered = constants.string("enterFrame")

    this, scope, done = b"\xd0", b"\x30", b"\x47"
    get = lambda text: b"\x66" + u30(word[text])
    call = lambda text, count: b"\x4f" + u30(word[text]) + u30(count)
    number = lambda n: b"\x25" + u30(n)

    init = (this + scope + this + b"\x49" + u30(0)
            + this + get("graphics") + b"\x2d" + u30(shade) + call("beginFill", 1)
            + this + get("graphics") + number(0) * 2 + number(side) * 2 + call("drawRect", 4)
            + this + b"\x2c" + u30(entered) + this + get("tick") + call("addEventListener", 2) + done)
    tick = this + scope + this + this + get("x") + number(pixels) + b"\xa0" + b"\x61" + u30(word["x"]) + done
    script = this + scope + b"\x5d" + u30(own) + b"\x60" + u30(sprite) + b"\x58" + u30(0) + b"\x68" + u30(own) + done

    nothing = this + scope + done
    bodies = [(0, init, 1), (1, tick, 2), (2, nothing, 1), (3, script, 1)]
    methods = [0, 1, 0, 0]  # how many arguments each takes
    block = struct.pack("<HH", 16, 46) + constants.bytes()
    block += u30(len(methods)) + b"".join(u30(n) + u30(0) * (n + 1) + u30(0) + b"\0" for n in methods)
    block += u30(0)  # metadata
    trait = u30(word["tick"]) + b"\x01" + u30(0) + u30(1)
    block += u30(1) + u30(own) + u30(sprite) + b"\x01" + u30(0) + u30(0) + u30(1) + trait  # the instance
    block += u30(2) + u30(0)  # the class
    block += u30(1) + u30(3) + u30(1) + u30(own) + b"\x04" + u30(0) + u30(0)  # the script, with the class as its trait
    block += u30(len(bodies))
    for method, code, registers in bodies:
        block += u30(method) + u30(6) + u30(registers) + u30(0) + u30(6) + u30(len(code)) + code + u30(0) + u30(0)
    code = tag(82, struct.pack("<I", 1) + b"main\0" + block)
    return code + tag(76, struct.pack("<HH", 1, 0) + name.encode() + b"\0")


# Whole movies

def still(value, size=(320, 240)):
    """One frame of one colour."""
    return movie([background(value), show_frame()], size)


def avm1(actions, size=(320, 240), rate=24, back=(0, 0, 255), front=(255, 0, 0), side=60, is_packed=False):
    """A box named "box" at the left, on a ground; the actions run at each of two frames, over and over."""
    frame = do_action(actions) + show_frame()
    tags = [background(back), box(1, side, side, front), clip(2, 1), place(2, 0, 0, "box")]
    return movie([*tags, frame, frame], size, rate, frames=2, version=6, is_packed=is_packed)


def avm2(pixels=4, size=(320, 240), rate=24, back=(0, 0, 255), front=(255, 0, 0), side=60):
    attributes = tag(69, struct.pack("<I", 0b1000))
    return movie([attributes, background(back), moving_class("Main", pixels, side, front), show_frame()], size, rate,
                 version=9)
