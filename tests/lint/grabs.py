"""Nothing takes the keyboard or the pointer for itself: a screen locker that starts meanwhile could not lock."""

import lint

GRABS = [
    r"\bxcb_(input_)?(xi_)?(passive_)?grab_\w+",
    r"\bXI?Grab(Key|Keyboard|Button|Pointer|Server|Device\w*|Enter|FocusIn|Keycode|TouchBegin)\b",
    r"\bset(Keyboard|Mouse)GrabEnabled\b",
    r"\bgrab(Keyboard|Mouse)\b",
]


def check(_path, text):
    code = lint.blank(text)
    return [finding for pattern in GRABS for finding in lint.matches(pattern, code, "takes input for itself: {0}")]


SAMPLES = [
    ("src/a.cpp", "xcb_grab_keyboard(c, 1, w, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);", 1),
    ("src/a.cpp", "xcb_grab_pointer(c);\nxcb_grab_server(c);\nxcb_grab_button(c);", 3),
    ("src/a.cpp", "xcb_input_xi_grab_device(c);\nxcb_input_xi_passive_grab_device(c);\nxcb_input_grab_device(c);", 3),
    ("src/a.cpp", "XGrabKeyboard(d, w);\nXIGrabDevice(d, 3);\nXGrabServer(d);", 3),
    ("src/a.cpp", "window.setKeyboardGrabEnabled(true);\nwindow.setMouseGrabEnabled(true);", 2),
    ("src/a.cpp", "void f(QWidget& w) { w.grabMouse(); w.grabKeyboard(QCursor()); }", 2),
    ("src/a.cpp", "// xcb_grab_keyboard would keep a locker out\nvoid grabTableBits();\nQPixmap p = w.grab();", 0),
    ("src/a.cpp", "if (mode == XCB_NOTIFY_MODE_GRAB) return;\nxcb_ungrab_keyboard(c, 0);", 0),
]


if __name__ == "__main__":
    lint.main(check, SAMPLES, lambda root: lint.files(root, lint.CPP, "src"))
