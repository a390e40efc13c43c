"""What a screen of an X server shows, asked of the server itself: a look through another program costs ten times as much."""

import contextlib
import ctypes

IMAGE_OF_WHOLE_PIXELS = 2  # XCB_IMAGE_FORMAT_Z_PIXMAP
ALL_PLANES = 0xFFFFFFFF


class Cookie(ctypes.Structure):
    _fields_ = [("sequence", ctypes.c_uint)]


class Screen(ctypes.Structure):
    """The beginning of xcb_screen_t."""

    _fields_ = [("root", ctypes.c_uint32)]


class Screens(ctypes.Structure):
    _fields_ = [("first", ctypes.POINTER(Screen)), ("left", ctypes.c_int), ("index", ctypes.c_int)]


class Geometry(ctypes.Structure):
    _fields_ = [("kind", ctypes.c_uint8), ("depth", ctypes.c_uint8), ("sequence", ctypes.c_uint16), ("length", ctypes.c_uint32),
                ("root", ctypes.c_uint32), ("x", ctypes.c_int16), ("y", ctypes.c_int16), ("width", ctypes.c_uint16),
                ("height", ctypes.c_uint16)]


def function(library, name, result, *arguments):
    found = getattr(library, name)
    found.restype, found.argtypes = result, arguments
    return found


LIBC = ctypes.CDLL("libc.so.6")
XCB = ctypes.CDLL("libxcb.so.1")
POINTER, NUMBER, PLACE, SIZE = ctypes.c_void_p, ctypes.c_uint32, ctypes.c_int16, ctypes.c_uint16
release = function(LIBC, "free", None, POINTER)
connect = function(XCB, "xcb_connect", POINTER, ctypes.c_char_p, POINTER)
has_error = function(XCB, "xcb_connection_has_error", ctypes.c_int, POINTER)
disconnect = function(XCB, "xcb_disconnect", None, POINTER)
setup_of = function(XCB, "xcb_get_setup", POINTER, POINTER)
screens_of = function(XCB, "xcb_setup_roots_iterator", Screens, POINTER)
ask_geometry = function(XCB, "xcb_get_geometry", Cookie, POINTER, NUMBER)
geometry_reply = function(XCB, "xcb_get_geometry_reply", POINTER, POINTER, Cookie, POINTER)
ask_image = function(XCB, "xcb_get_image", Cookie, POINTER, ctypes.c_uint8, NUMBER, PLACE, PLACE, SIZE, SIZE, NUMBER)
image_reply = function(XCB, "xcb_get_image_reply", POINTER, POINTER, Cookie, POINTER)
image_data = function(XCB, "xcb_get_image_data", POINTER, POINTER)
image_length = function(XCB, "xcb_get_image_data_length", ctypes.c_int, POINTER)


@contextlib.contextmanager
def connection(display):
    made = connect(display.encode(), None)
    try:
        if has_error(made):
            raise ConnectionError(f"no X server at {display}")
        yield made
    finally:
        disconnect(made)


@contextlib.contextmanager
def answered(reply):
    if not reply:
        raise ConnectionError("the X server gives no picture")
    try:
        yield reply
    finally:
        release(reply)


def picture_of(display):
    """(width, height, pixels): what the first screen of the X server shows, its windows too, three bytes a pixel. The screen
    has four."""
    with connection(display) as server:
        root = screens_of(setup_of(server)).first.contents.root
        with answered(geometry_reply(server, ask_geometry(server, root), None)) as reply:
            size = Geometry.from_address(reply)
            width, height = size.width, size.height
        asked = ask_image(server, IMAGE_OF_WHOLE_PIXELS, root, 0, 0, width, height, ALL_PLANES)
        with answered(image_reply(server, asked, None)) as reply:
            blue_first = ctypes.string_at(image_data(reply), image_length(reply))
    pixels = bytearray(3 * width * height)
    for channel in range(3):
        pixels[channel::3] = blue_first[2 - channel :: 4]
    return width, height, bytes(pixels)
