"""Who reads a source finds its tests: by its name, or by a line in its header that names the suite.

The suite of a source `Name.cpp` is a file `NameTest.cpp`, or several `Name…Test.cpp`, or `test_name.py`, where the
"Command" that a command's class ends with is not said. What is tested as a part of something else says so in its header,
in the source where it has no header: "Tested by OtherTest." or "Tested by OneTest and test_other." A source without a
header of its name may also be meant by the header of its folder that it includes first.

usage: suites.py ROOT | suites.py --self-check
"""

import os
import re
import sys

import lint

NAMED = re.compile(r"\bTested by ((?:\w+)(?:(?:,| and)\s+\w+)*)\.")
FIRST_INCLUDE = re.compile(r'^#include "([^"]+)"', re.M)
UNNAMED = {"main"}


def stem(path):
    return os.path.splitext(os.path.basename(path))[0]


def snake(name):
    """ShowSettingsCommand as show_settings."""
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])", "_", name.removesuffix("Command")).lower()


def suites_of(paths):
    """The names of all suites, of C++ and of Python."""
    return {stem(path) for path in paths if re.search(r"/([A-Z]\w*Test\.cpp|test_\w+\.py)$", path)}


def owners(suites, sources):
    """The sources that have a suite of their name. `NameOfMoreTest` is of `NameOf`, where there is one, not of `Name`."""
    found = set()
    for suite in suites:
        subject = suite.removesuffix("Test")
        fitting = [name for name in sources if subject.startswith(name) and not subject[len(name) :][:1].islower()]
        found.update([max(fitting, key=len)] if fitting and suite != subject else [])
    return found | {name for name in sources if f"test_{snake(name)}" in suites}


def own_place(path, texts):
    """Where a source says what tests it: its header, or itself."""
    header = path.removesuffix(".cpp") + ".h"
    return header if header in texts else path


def shared_header(path, texts):
    """The header of its folder that a source without one of its own belongs to; nothing where there is none."""
    first = FIRST_INCLUDE.search(texts[path])
    header = f"src/{first[1]}" if first else ""
    is_its = own_place(path, texts) == path and header in texts and os.path.dirname(header) == os.path.dirname(path)
    return header if is_its else ""


def named_in(text):
    """The suites that the comments of a file name."""
    said = " ".join(re.findall(r"//[/!<]*\s*(.*)", text))
    return [name for match in NAMED.finditer(said) for name in re.split(r"(?:,| and)\s+", match[1])]


def check(texts):
    """`texts` is a tree, paths to texts. Findings are (path, message)."""
    suites = suites_of(path for path in texts if path.startswith("tests/"))
    sources = sorted(path for path in texts if path.startswith("src/") and path.endswith(".cpp"))
    with_suite = owners(suites, {stem(path) for path in sources} - UNNAMED)
    findings = []
    for path in sources:
        own, shared = own_place(path, texts), shared_header(path, texts)
        named = named_in(texts[own])
        findings += [(own, f"there is no {name}") for name in named if name not in suites]
        if named and stem(path) in with_suite:
            findings.append((own, "names a suite, and has one of its name"))
        if not named and stem(path) not in with_suite and not (
            shared and (stem(shared) in with_suite or named_in(texts[shared]))
        ):
            findings.append((path, f"no {stem(path)}Test, and {own} names no suite"))
    return sorted(set(findings))


def tree(root):
    paths = [path for folder in ("src", "tests") for path in lint.files(root, (*lint.CPP, ".py"), below=folder)]
    return {path: lint.read(root, path) for path in paths}


HEADER = "/// What it is for.\n/// {0}\nclass A;\n"
SAMPLES = [
    ({"src/a/A.cpp": "", "tests/a/ATest.cpp": ""}, 0),
    ({"src/a/A.cpp": "", "tests/a/AEndTest.cpp": ""}, 0),
    ({"src/a/A.cpp": "", "tests/a/AbTest.cpp": ""}, 1),
    ({"src/a/A.cpp": "", "src/a/AEnd.cpp": "", "tests/a/AEndTest.cpp": ""}, 1),
    ({"src/a/A.cpp": "", "tests/a/ATest.h": ""}, 1),
    ({"src/a/ShowAllCommand.cpp": "", "tests/p/test_show_all.py": ""}, 0),
    ({"src/a/ShowAllCommand.cpp": "", "tests/p/test_show.py": ""}, 1),
    ({"src/a/A.cpp": "", "src/a/A.h": "class A;"}, 1),
    ({"src/a/A.cpp": "", "src/a/A.h": HEADER.format("Tested by BTest."), "tests/b/BTest.cpp": ""}, 0),
    ({"src/a/A.cpp": "", "src/a/A.h": HEADER.format("Tested by\n/// BTest and test_c."), "tests/b/BTest.cpp": "",
      "tests/p/test_c.py": ""}, 0),
    ({"src/a/A.cpp": "", "src/a/A.h": HEADER.format("Tested by BTest.")}, 1),
    ({"src/a/A.cpp": "", "src/a/A.h": HEADER.format("Tested by BTest."), "tests/a/ATest.cpp": "", "tests/BTest.cpp": ""}, 1),
    ({"src/a/main.cpp": "", "tests/a/mainTest.cpp": ""}, 1),
    ({"src/a/main.cpp": "// The program. Tested by test_c.\n", "tests/p/test_c.py": ""}, 0),
    ({"src/a/AMore.cpp": '#include "a/A.h"\n', "src/a/A.h": "", "src/a/A.cpp": "", "tests/a/ATest.cpp": ""}, 0),
    ({"src/a/Lost.cpp": '#include "b/A.h"\n', "src/b/A.h": "", "src/b/A.cpp": "", "tests/b/ATest.cpp": ""}, 1),
]


def self_check():
    wrong = [(texts, expected, check(texts)) for texts, expected in SAMPLES if len(check(texts)) != expected]
    for texts, expected, found in wrong:
        print(f"self-check: {expected} expected, found {found} in {texts}")
    return 1 if wrong else 0


def check_tree(root):
    texts = tree(root)
    findings = check(texts)
    for path, message in findings:
        print(f"{path}: {message}")
    print(f"{len(texts)} files, {len(findings)} findings")
    return 1 if findings or not texts else 0


if __name__ == "__main__":
    sys.exit(self_check() if sys.argv[1:] == ["--self-check"] else check_tree(sys.argv[1]))
