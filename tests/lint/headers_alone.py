"""Every header compiles without anything before it.

A header that comes first in something that is compiled is shown to by the build: that which a source of ours or of the
tests includes first, and that which such a header includes first in turn. For every other one a source is made that
includes nothing else, and the build compiles those too.

usage: headers_alone.py ROOT FOLDER          whether the folder has these sources, and no others
       headers_alone.py --make ROOT FOLDER   makes them, and prints their paths
       headers_alone.py --self-check
"""

import os
import re
import sys
import tempfile

import lint

FIRST_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(["<][^">]+[">])', re.M)
# These are compiled by a build of their own.
ELSEWHERE = "tests/fuzz/"


def included_first(root, path):
    """The header of ours that is the first thing a file includes, from the root; None where that is another's."""
    first = FIRST_INCLUDE.search(lint.blank(lint.read(root, path), strings=False))
    if first is None or first[1][0] != '"':
        return None
    for folder in ("src", "tests"):
        header = folder + "/" + first[1].strip('"')
        if os.path.exists(os.path.join(root, header)):
            return header
    return None


def shown_by_the_build(root):
    """The headers that come first in one of the sources, by way of others that do."""
    shown = set()
    for source in lint.files(root, [".cpp"], "src") + lint.files(root, [".cpp"], "tests"):
        header = None if source.startswith(ELSEWHERE) else included_first(root, source)
        while header is not None and header not in shown:
            shown.add(header)
            header = included_first(root, header)
    return shown


def sources_of_others(root):
    """What compiles the other headers alone: the source's name to its text."""
    headers = sorted(set(lint.files(root, [".h"], "src")) - shown_by_the_build(root))
    names = [header.removeprefix("src/") for header in headers]
    return {name.replace("/", "_").removesuffix(".h") + ".cpp": f'#include "{name}"\n' for name in names}


def sources_in(folder):
    return {name: lint.read(folder, name) for name in (os.listdir(folder) if os.path.isdir(folder) else ())}


def make(root, folder):
    """Leaves alone what is as it should be, which needs not be compiled again."""
    wanted, found = sources_of_others(root), sources_in(folder)
    os.makedirs(folder, exist_ok=True)
    for name in found.keys() - wanted.keys():
        os.remove(os.path.join(folder, name))
    for name, text in wanted.items() - found.items():
        with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
            file.write(text)
    return [os.path.join(folder, name) for name in sorted(wanted)]


def check(root, folder):
    wanted, found = sources_of_others(root), sources_in(folder)
    for name, _ in sorted(wanted.items() ^ found.items()):
        print(f"{name}: is not what this tree needs to have each header compiled alone; configure the build again")
    return 0 if wanted == found else 1


def self_check():
    with tempfile.TemporaryDirectory() as root:
        os.mkdir(os.path.join(root, "src"))
        os.mkdir(os.path.join(root, "tests"))
        made = os.path.join(root, "made")

        def write(path, text):
            with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                file.write(text)

        for name, text in (("Good", ""), ("Bad", ""), ("First", '#include "Good.h"\n#include "Bad.h"\n')):
            write(f"src/{name}.h", "#pragma once\n" + text)
        write("src/First.cpp", '// "why"\n#include "First.h"\n#include <vector>\n')
        write("src/Bad.cpp", '#include <string>\n#include "Bad.h"\n')
        right = [shown_by_the_build(root) == {"src/First.h", "src/Good.h"}, check(root, made) == 1]
        right += [make(root, made) == [os.path.join(made, "Bad.cpp")], check(root, made) == 0]
        write("tests/BadTest.cpp", '#include "Bad.h"\n')
        right += [check(root, made) == 1, make(root, made) == [], check(root, made) == 0, os.listdir(made) == []]
    print(f"self-check: {right}")
    return 0 if all(right) else 1


def main(words):
    if words == ["--self-check"]:
        return self_check()
    if words[0] == "--make":
        print("\n".join(make(*words[1:])))
        return 0
    return check(*words)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
