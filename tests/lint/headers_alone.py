"""Every header compiles without anything before it.

A header that its own source file includes first is shown to by the build, so only that order is checked; every other
one is compiled here, with the flags that its folder's sources are built with.

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


def needs_compiling(root, header):
    source = header[:-2] + ".cpp"
    if not os.path.exists(os.path.join(root, source)):
        return True
    first = FIRST_INCLUDE.search(lint.blank(lint.read(root, source), strings=False))
    return first is None or first[1] != '"%s"' % header.removeprefix("src/")


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
    headers = [header for header in lint.files(root, [".h"], "src") if needs_compiling(root, header)]
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
        write("Good.cpp", '// "why"\n#include "Good.h"\n#include <vector>\n')
        write("Bad.cpp", '#include <string>\n#include "Bad.h"\n')
        right = (
            compile_alone(compiler, ["-std=c++20"], good) is None,
            compile_alone(compiler, ["-std=c++20"], bad) is not None,
            not needs_compiling(root, "src/Good.h"),
            needs_compiling(root, "src/Bad.h"),
        )
    print(f"self-check: {right}")
    return 0 if all(right) else 1


if __name__ == "__main__":
    cxx = os.environ.get("CXX", "c++")
    sys.exit(self_check(cxx) if sys.argv[1:] == ["--self-check"] else check_tree(sys.argv[1], sys.argv[2], cxx))
