"""Nothing in the engine and below it turns the event loop inside itself: whoever has to wait is told when to go on."""

import lint

FOLDERS = ("src/engine/", "src/presentation/", "src/settings/")
LOOPS = [
    r"\bQEventLoop\b",
    r"\bprocessEvents\s*\(",
    r"\bsendPostedEvents\s*\(",
    r"(?:\.|->|::)exec\s*\(",
]


def check(_path, text):
    code = lint.blank(text, strings=False)
    return [finding for pattern in LOOPS for finding in lint.matches(pattern, code, "turns the event loop: {0}")]


SAMPLES = [
    ("src/engine/a.cpp", "#include <QTimer>\nvoid f() { timer.start(); }", 0),
    ("src/engine/a.cpp", "QEventLoop loop;\nloop.exec();", 2),
    ("src/engine/a.cpp", "void f() { QCoreApplication::processEvents(); }", 1),
    ("src/settings/a.cpp", "void f() { QCoreApplication::sendPostedEvents(); }", 1),
    ("src/presentation/a.cpp", "int f() { return dialog->exec(); }", 1),
    ("src/engine/a.cpp", "#include <QEventLoop>\n", 1),
    ("src/engine/a.cpp", "// no QEventLoop here\nvoid exec();", 0),
]


def selected(root):
    return [path for path in lint.files(root, lint.CPP, below="src") if path.startswith(FOLDERS)]


if __name__ == "__main__":
    lint.main(check, SAMPLES, selected)
