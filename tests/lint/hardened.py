"""What was built has the marks of a hardened build: each program and library that is installed, as it lies in the build.

usage: hardened.py ROOT BUILD | hardened.py --self-check
"""

import os
import subprocess
import sys
import tempfile

import elf

LANDING_PAD = b"\xf3\x0f\x1e\xfa"
# They come with the C library, which was built without.
OF_THE_C_LIBRARY = {"_start", "_init", "_fini", "__pthread_atfork"}
OPTIONS = ("-fstack-protector-strong", "-fstack-clash-protection")
ALWAYS_FORTIFIED = {"printf", "fprintf", "vprintf", "vfprintf", "dprintf"}


def layout_findings(file):
    """What the linker was to do."""
    findings = []
    if file.type != elf.SHARED:
        findings.append("has to stand where it was linked for")
    stack = file.segment(elf.GNU_STACK)
    if not stack or stack.flags & 1:
        findings.append("may run code on its stack")
    if any(segment.type == elf.LOAD and segment.flags & 3 == 3 for segment in file.segments):
        findings.append("has memory that can both be written and run")
    if not file.segment(elf.GNU_RELRO):
        findings.append("can change its table of addresses: no RELRO")
    dynamic = file.dynamic()
    if not (dynamic.get(elf.FLAGS, 0) & 8 or dynamic.get(elf.FLAGS_1, 0) & 1):
        findings.append("looks names up when they are first used: no BIND_NOW")
    if elf.TEXT_RELOCATIONS in dynamic or dynamic.get(elf.FLAGS, 0) & 4:
        findings.append("changes its code when it is loaded")
    return findings


def path_findings(file):
    """Where libraries are looked for: beside the file itself and nowhere else, an empty part being the current folder."""
    if elf.RPATH in file.dynamic():
        return ["has an RPATH, which comes before what the user says"]
    runpath = file.dynamic_text(elf.RUNPATH)
    parts = [] if runpath is None else runpath.split(":")
    return [f"RUNPATH {runpath!r}: part {part!r}" for part in parts if part.split("/")[0] != "$ORIGIN"]


def compiler_findings(file):
    """What the compiler was told, and what is to be seen of it."""
    noted = file.compiler_options()
    findings = [] if noted else ["does not say how it was compiled"]
    findings += [f"{option} missing: {options}" for option in OPTIONS for options in noted if option not in options]
    if file.machine != elf.X86_64:
        return findings
    bare = {
        symbol.name
        for symbol in file.symbols()
        if symbol.is_function and symbol.is_global and 0 < symbol.section < 0xFF00
        if symbol.name not in OF_THE_C_LIBRARY and file.code_at(symbol, 4) != LANDING_PAD
    }
    return findings + [f"no landing pad (CET) at {name}" for name in sorted(bare)[:3]]


def fortify_findings(file):
    """Calls that always become others where the C library looks at sizes."""
    plain = sorted({symbol.name.split("@")[0] for symbol in file.symbols() if symbol.section == 0} & ALWAYS_FORTIFIED)
    return [f"calls {name}, which FORTIFY replaces" for name in plain]


def check(content):
    file = elf.Elf(content)
    return layout_findings(file) + path_findings(file) + compiler_findings(file) + fortify_findings(file)


def is_fortified(content):
    """Whether some call is one that looks at the size of what it writes to."""
    names = {symbol.name.split("@")[0] for symbol in elf.Elf(content).symbols() if symbol.section == 0}
    return any(name.startswith("__") and name.endswith("_chk") for name in names)


def elf_files(tree):
    """The programs and libraries below bin and lib, with what they hold."""
    for below in ("bin", "lib"):
        for folder, _, names in sorted(os.walk(os.path.join(tree, below))):
            for path in (os.path.join(folder, name) for name in sorted(names)):
                with open(path, "rb") as file:
                    content = file.read()
                if content.startswith(b"\x7fELF"):
                    yield path, content


def main(tree):
    count = findings = fortified = 0
    for path, content in elf_files(tree):
        count += 1
        fortified += is_fortified(content)
        for finding in check(content):
            findings += 1
            print(f"{os.path.relpath(path, tree)}: {finding}")
    if not fortified:
        findings += 1
        print("nothing that was built is fortified")
    print(f"{count} files, {findings} findings")
    sys.exit(1 if findings else 0)


GOOD = ["-O2", "-g1", "-fPIC", "-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection",
        "-U_FORTIFY_SOURCE", "-D_FORTIFY_SOURCE=2", "-Wl,-z,relro,-z,now", "-Wl,-rpath,$ORIGIN"]
PROGRAM = ["-pie"]
LIBRARY = ["-shared", "-DLIBRARY"]
# What is taken from or added to the good options, and whether a lint that knows nothing else complains.
SAMPLES = [
    (PROGRAM, (), (), False),
    (LIBRARY, (), (), False),
    (PROGRAM, ("-Wl,-rpath,$ORIGIN",), (), False),
    (PROGRAM, ("-pie", "-fPIC"), ("-no-pie", "-fno-pie"), True),
    (LIBRARY, (), ("-Wl,-z,norelro",), True),
    (LIBRARY, (), ("-Wl,-z,lazy",), True),
    (LIBRARY, (), ("-Wl,-z,execstack",), True),
    (LIBRARY, ("-fstack-protector-strong",), ("-fno-stack-protector",), True),
    (LIBRARY, ("-fstack-clash-protection",), ("-fno-stack-clash-protection",), True),
    (LIBRARY, ("-fcf-protection",), ("-fcf-protection=none",), True),
    (LIBRARY, ("-D_FORTIFY_SOURCE=2",), (), True),
    (LIBRARY, ("-g1",), (), True),
    (LIBRARY, (), ("-Wl,-rpath,",), True),
    (LIBRARY, (), ("-Wl,-rpath,/tmp",), True),
    (LIBRARY, ("-Wl,-rpath,$ORIGIN",), ("-Wl,-rpath,$ORIGIN::",), True),
    (LIBRARY, (), ("-Wl,--disable-new-dtags",), True),
]
SOURCE = """#include <cstdio>
int told(const char* text) { char room[64]; std::sscanf(text, "%63s", room); return std::printf("%s %d", room, room[0]); }
#ifndef LIBRARY
int main(int, char** words) { return told(words[0]); }
#endif
"""


def self_check():
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        source, built = os.path.join(folder, "a.cpp"), os.path.join(folder, "a")
        with open(source, "w", encoding="utf-8") as file:
            file.write(SOURCE)
        for kind, without, more, is_bad in SAMPLES:
            options = [option for option in GOOD + kind if option not in without] + list(more)
            subprocess.run([os.environ.get("CXX", "c++"), *options, source, "-o", built], check=True, timeout=60)
            with open(built, "rb") as file:
                findings = check(file.read())
            if bool(findings) != is_bad:
                wrong += 1
                print(f"self-check: {'findings' if is_bad else 'none'} expected of {options}: {findings}")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    if sys.argv[1:] == ["--self-check"]:
        self_check()
    main(sys.argv[2])
