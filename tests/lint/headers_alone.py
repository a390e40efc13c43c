"""Every header compiles without anything before it.

A header that comes first in something that is compiled is shown to by the build: that which a source of ours or of the
tests includes first, and that which such a header includes first in turn. Every other one is compiled here, with the flags
that its folder's sources are built with.

usage: headers_alone.py ROOT BUILD | headers_alone.py --self-check
"""

import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile

import lint

FIRST_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(["<][^">]+[">])', re.M)
JOBS = 2


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


def shown_by_the_build(root, sources):
    """The headers that come first in one of these sources, by way of others that do."""
    shown = set()
    for source in sources:
        header = included_first(root, source)
        while header is not None and header not in shown:
            shown.add(header)
            header = included_first(root, header)
    return shown


def compiled_sources(root, build):
    """Those of the root that the build compiles, from the root."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        paths = [os.path.relpath(entry["file"], root) for entry in json.load(file)]
    return sorted({path for path in paths if path.startswith(("src/", "tests/"))})


def flags_by_folder(build):
    """The most compile flags that a source of each folder has, by its absolute path; without file names."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    flags = {}
    for entry in entries:
        words = shlex.split(entry["command"])
        kept = [word for word in words if re.match(r"-(std|D|I|W|f|pthread)", word)]
        for index, word in enumerate(words):
            if word == "-isystem":
                kept += words[index : index + 2]
        folder = os.path.dirname(entry["file"])
        flags[folder] = max(flags.get(folder, []), kept, key=len)
    return flags


def compile_alone(compiler, flags, header):
    """What the compiler complains about; nothing where it is content."""
    command = [compiler, *flags, "-fsyntax-only", "-include", header, "-x", "c++", os.devnull]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return None if done.returncode == 0 else done.stderr


def check_tree(root, build, compiler):
    shown = shown_by_the_build(root, compiled_sources(root, build))
    headers = [header for header in lint.files(root, [".h"], "src") if header not in shown]
    flags = flags_by_folder(build)
    fallback = max(flags.values(), key=len)

    def check(header):
        path = os.path.join(root, header)
        return compile_alone(compiler, flags.get(os.path.dirname(path), fallback), path)

    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        faults = [fault for fault in pool.map(check, headers) if fault]
    print("".join(faults) + f"{len(headers)} headers compiled, {len(faults)} do not stand alone")
    return 1 if faults else 0


def self_check(compiler):
    with tempfile.TemporaryDirectory() as root:
        os.mkdir(os.path.join(root, "src"))

        def write(name, text):
            path = os.path.join(root, "src", name)
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
            return path

        good = write("Good.h", "#pragma once\n#include <string>\nstd::string a();\n")
        bad = write("Bad.h", "#pragma once\nstd::string a();\n")
        write("First.h", '#pragma once\n#include "Good.h"\n#include "Bad.h"\n')
        write("First.cpp", '// "why"\n#include "First.h"\n#include <vector>\n')
        write("Bad.cpp", '#include <string>\n#include "Bad.h"\n')
        right = (
            compile_alone(compiler, ["-std=c++20"], good) is None,
            compile_alone(compiler, ["-std=c++20"], bad) is not None,
            shown_by_the_build(root, ["src/First.cpp", "src/Bad.cpp"]) == {"src/First.h", "src/Good.h"},
        )
    print(f"self-check: {right}")
    return 0 if all(right) else 1


if __name__ == "__main__":
    cxx = os.environ.get("CXX", "c++")
    sys.exit(self_check(cxx) if sys.argv[1:] == ["--self-check"] else check_tree(sys.argv[1], sys.argv[2], cxx))
