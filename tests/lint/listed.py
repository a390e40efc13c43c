"""CMake is told of everything by name: each source stands in a list, one a line, so that none is left out unseen; and a folder
of src/ is linked to each folder that it includes."""

import os
import re
import sys

import include_arrows
import lint

CALL = re.compile(r"^[ \t]*(\w+)\(([^()]*(?:\([^()]*\)[^()]*)*)\)", re.M)
LISTS = re.compile(r"^(src|tests)/.*CMakeLists\.txt$")
# Theirs are listed where they are linked: in several programs, or in a build of its own with another compiler.
LISTED_ELSEWHERE = ("tests/support/", "tests/fuzz/")
TARGETS = {"module": "Kestro", "trailers/panel": "trailer_panel", "host/publish": "publishing"}
# What one program starts and nothing links.
STARTED = {("host", "publishing")}


def target_of(folder):
    return TARGETS.get(folder, folder.rsplit("/", 1)[-1])


def linked(text):
    """Everything that targets of this list are linked to."""
    found = set()
    for call, inside in CALL.findall(text):
        keyword = "LINK" if call == "target_link_libraries" else None
        for word in inside.split():
            if call == "kestro_library" and word in ("SOURCES", "LINK", "LINK_PRIVATE"):
                keyword = word
            elif keyword in ("LINK", "LINK_PRIVATE"):
                found.add(word)
    return found


def check_lines(text):
    findings = []
    for match in re.finditer(r"\.cpp[ \t]+\S+\.cpp\b", text):
        findings.append((lint.line_of(text, match.start()), "several sources on one line"))
    for match in re.finditer(r"file\(GLOB\w*[^)]*[\s/]\*\.cpp", text):
        findings.append((lint.line_of(text, match.start()), "takes whatever source lies there: list them"))
    return findings


def check_list(path, text, sources):
    """`sources` are those that the list is about: {path: text}."""
    findings = check_lines(text)
    folder = os.path.dirname(path)
    links = linked(text)
    own = include_arrows.folder_of(folder.removeprefix("src/") + "/") if path.startswith("src/") else None
    for source, code in sorted(sources.items()):
        stem = os.path.splitext(os.path.basename(source))[0]
        if source.endswith(".cpp") and not source.startswith(LISTED_ELSEWHERE) and not re.search(rf"\b{stem}\b", text):
            findings.append((1, f"leaves out {source}"))
        if own is None or "/helper/" in source:
            continue
        for quoted, _ in include_arrows.INCLUDE.findall(lint.blank(code, strings=False)):
            below = include_arrows.folder_of(quoted)
            if below not in (None, own) and target_of(below) not in links and (own, target_of(below)) not in STARTED:
                findings.append((1, f"{source} includes {quoted}, and {target_of(below)} is not linked"))
    return findings


def sources_of(root, path, lists):
    """The sources that lie in a list's folder and in no folder that has a list of its own."""
    found = {}
    for source in lint.files(root, lint.CPP, os.path.dirname(path)):
        folder = os.path.dirname(source)
        while os.path.join(folder, "CMakeLists.txt") not in lists:
            folder = os.path.dirname(folder)
        if os.path.join(folder, "CMakeLists.txt") == path:
            found[source] = lint.read(root, source)
    return found


ENGINE = "src/engine/CMakeLists.txt"
PRETENDED = {
    "src/engine/MySaver.cpp": '#include "engine/MySaver.h"\n#include "settings/Settings.h"\n#include <QUrl>',
    "src/engine/Bounce.cpp": "",
}
SAMPLES = [
    (ENGINE, "kestro_library(engine\n  SOURCES\n    Bounce.cpp\n    MySaver.cpp\n  LINK settings Qt6::Core)", 0),
    (ENGINE, "kestro_library(engine\n  SOURCES\n    MySaver.cpp\n  LINK_PRIVATE Qt6::Core settings)", 1),
    (ENGINE, "kestro_library(engine\n  SOURCES Bounce.cpp MySaver.cpp\n  LINK settings)", 1),
    (ENGINE, "kestro_library(engine\n  SOURCES\n    Bounce.cpp\n    MySaver.cpp\n  LINK base)", 1),
    (ENGINE, "add_library(x\n    Bounce.cpp\n    MySaver.cpp)\ntarget_link_libraries(x PRIVATE settings)", 0),
    (ENGINE, "file(GLOB s *.cpp)\n# Bounce MySaver\nkestro_library(engine SOURCES ${s} LINK settings)", 1),
]

if __name__ == "__main__":
    if sys.argv[1:] == ["--self-check"]:
        lint.main(lambda path, text: check_list(path, text, PRETENDED), SAMPLES, None)
    tree = sys.argv[1]
    all_lists = {path for path in lint.files(tree, ("CMakeLists.txt",)) if LISTS.match(path)}
    lint.main(lambda path, text: check_list(path, text, sources_of(tree, path, all_lists)), SAMPLES, lambda _: sorted(all_lists))
