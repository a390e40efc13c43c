"""What the Debian packages say of Kestro agrees with the tree: what it is built with and needs with the list of packages, their
changelog with CHANGELOG.md, their copyright with the files of others, their address with that of the project.

usage: packaged.py ROOT | packaged.py --self-check
"""

import importlib.machinery
import importlib.util
import os
import re
import sys

import lint

# Every Debian machine that builds has it.
IMPLIED = {"build-essential"}
BUILT_WITH = ("build", "libraries", "the helper for web content", "intro movie")
NEEDED = ("run time",)


def sections(text):
    """The packages of each section of the list; a section is called as its heading begins."""
    found, section = {}, None
    for line in text.splitlines():
        if line.startswith("#"):
            section = re.split(r"[;,.]", line[1:])[0].strip()
        elif line.strip():
            found.setdefault(section, set()).add(line.strip())
    return found


def listed(text, names):
    found = sections(text)
    return set().union(*(found.get(name, set()) for name in names)) - IMPLIED


def packages_of(field):
    """The names in a field of debian/control, without versions, profiles and what is filled in later."""
    names = {re.split(r"[\s(<]", entry.strip())[0] for entry in field.split(",") if entry.strip()}
    return {name for name in names if not name.startswith(("${", "debhelper-compat", "kestro"))}


def fields(control, name):
    """What stands in that field of every paragraph, joined."""
    return ",".join(re.findall(rf"^{name}:(.*(?:\n[ \t].*)*)", control, re.M))


def disagreement(what, one, other):
    return [f"{what}: only one of debian/control and packaging/apt-packages.txt has {name}" for name in sorted(one ^ other)]


def check_packages(control, wanted):
    needed = packages_of(fields(control, "Depends")) | packages_of(fields(control, "Recommends"))
    needed -= {"qt6-base-dev"}  # what is built against Kestro needs it
    return disagreement("to build", packages_of(fields(control, "Build-Depends")), listed(wanted, BUILT_WITH)) + disagreement(
        "to run", needed, listed(wanted, NEEDED)
    )


def check_copyright(text, files):
    named = set(re.findall(r"^Files: (\S+)$", text, re.M))
    return [f"debian/copyright does not name {path}" for path in files if path not in named] + [
        f"debian/copyright names {path}, which is not there" for path in sorted(named) if "*" not in path and path not in files
    ]


def foreign_files(root):
    """Those that say somebody else's copyright."""
    mark = re.compile(r"Copyright (?:\u00a9|\(c\)) \d{4} (?!The Kestro developers)")
    return [path for path in lint.files(root, (".xml", ".h", ".cpp", ".js", ".svg", ".css")) if mark.search(lint.read(root, path) or "")]


def check_address(project, control, copyright_text):
    addresses = {
        re.search(r"HOMEPAGE_URL (\S+)", project)[1],
        re.search(r"^Homepage: (\S+)$", control, re.M)[1],
        re.search(r"^Source: (\S+)$", copyright_text, re.M)[1],
    }
    return [] if len(addresses) == 1 else [f"different addresses of the project: {sorted(addresses)}"]


def changelog_writer(root):
    loader = importlib.machinery.SourceFileLoader("debian_changelog", os.path.join(root, "packaging/debian-changelog"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("debian_changelog", loader))
    loader.exec_module(module)
    return module.changelog


def check_tree(root):
    control, text = lint.read(root, "debian/control"), lint.read(root, "debian/copyright")
    foreign = foreign_files(root)
    faults = [] if foreign else ["no file of others found: is this the root of the tree?"]
    faults += check_packages(control, lint.read(root, "packaging/apt-packages.txt"))
    faults += check_copyright(text, foreign)
    faults += check_address(lint.read(root, "CMakeLists.txt"), control, text)
    if changelog_writer(root)(lint.read(root, "CHANGELOG.md")) != lint.read(root, "debian/changelog"):
        faults.append("debian/changelog is not what packaging/debian-changelog writes")
    print("\n".join(faults))
    return 1 if faults else 0


def self_check():
    control = "Source: a\nBuild-Depends:\n debhelper-compat (= 13),\n cmake (>= 3),\n x <!y>,\n\nDepends: ${misc:Depends}, b\n"
    wanted = "# build, and more\nbuild-essential\ncmake\nx\n# run time\nb\n# tests\nc\n"
    one = "HOMEPAGE_URL https://a.example", "Homepage: https://a.example", "Source: https://a.example"
    writer = changelog_writer(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
    right = (
        check_packages(control, wanted) == [],
        len(check_packages(control, wanted.replace("x\n", ""))) == 1,
        len(check_packages(control, wanted.replace("b\n", "d\n"))) == 2,
        check_copyright("Files: *\nFiles: a.xml\n", ["a.xml"]) == [],
        len(check_copyright("Files: *\nFiles: a.xml\n", ["b.xml"])) == 2,
        check_address(*one) == [],
        len(check_address(*one[:2], "Source: https://b.example")) == 1,
        writer("## [2.0.0] - 2026-01-02\n\n- `a`\n  b\n").startswith("kestro (2.0.0-1) unstable; urgency=medium\n\n  * a b\n\n -- "),
        writer("## [Unreleased]\n\n- a\n") == "",
    )
    print(f"self-check: {right}")
    return 0 if all(right) else 1


if __name__ == "__main__":
    sys.exit(self_check() if sys.argv[1:] == ["--self-check"] else check_tree(sys.argv[1]))
