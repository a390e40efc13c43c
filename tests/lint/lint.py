"""What the lints share: the files of the tree, comments taken out of C++, findings, and the self-check.

A lint is a function from a file's path (relative to the root, with slashes) and its text to findings (line, message).
Run with the root, it reports on every file that it is about; with --self-check it shows on samples that it complains
about what is bad and about nothing else.
"""

import os
import re
import sys

SKIPPED_FOLDERS = {"build", "__pycache__"}
CPP = (".h", ".cpp")


def files(root, suffixes=None, below=""):
    """Paths of the files in the tree, sorted; of those suffixes and below that folder only, where given."""
    found = []
    for folder, names, leaves in os.walk(os.path.join(root, below)):
        names[:] = [name for name in names if name not in SKIPPED_FOLDERS and (name == ".ci" or name[0] != ".")]
        for leaf in leaves:
            if suffixes is None or leaf.endswith(tuple(suffixes)):
                found.append(os.path.relpath(os.path.join(folder, leaf), root))
    return sorted(found)


def read(root, path):
    """The text of a file; None when it is not text."""
    try:
        with open(os.path.join(root, path), encoding="utf-8") as file:
            return file.read()
    except UnicodeDecodeError:
        return None


_TOKEN = re.compile(
    r"""//[^\n]*|/\*.*?\*/|R"(?P<d>[^(\s]*)\(.*?\)(?P=d)"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'""",
    re.DOTALL,
)


def blank(text, strings=True):
    """C++ without comments and, unless told otherwise, without what stands in literals; lines stay where they are."""

    def empty(match):
        token = match.group(0)
        if token.startswith("/"):
            return "\n" * token.count("\n")
        return token if not strings else token[0] + "\n" * token.count("\n") + token[-1]

    return _TOKEN.sub(empty, text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def matches(pattern, text, message):
    """A finding for each place where the pattern stands; {0} in the message is what was found."""
    return [(line_of(text, m.start()), message.format(m.group(0).strip())) for m in re.finditer(pattern, text, re.M)]


def _report(path, findings):
    for line, message in findings:
        print(f"{path}:{line}: {message}")
    return len(findings)


def _self_check(check, samples):
    """Each sample is (path, text, number of findings)."""
    wrong = 0
    for path, text, expected in samples:
        findings = check(path, text)
        if len(findings) != expected:
            wrong += 1
            print(f"self-check: {expected} expected, {len(findings)} found in {path}: {text!r}")
            _report(path, findings)
    if not any(expected for _, _, expected in samples):
        wrong += 1
        print("self-check: no bad sample")
    return wrong


def main(check, samples, selected):
    """`selected(root)` names the paths that the lint is about. Ends the process; status 1 on any finding."""
    if sys.argv[1:] == ["--self-check"]:
        sys.exit(1 if _self_check(check, samples) else 0)
    root = sys.argv[1]
    paths = selected(root)
    if not paths:
        sys.exit("nothing to check: is this the root of the tree?")
    count = 0
    for path in paths:
        text = read(root, path)
        count += _report(path, check(path, text)) if text is not None else 0
    print(f"{len(paths)} files, {count} findings")
    sys.exit(1 if count else 0)
