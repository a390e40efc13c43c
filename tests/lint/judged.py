"""What the distribution's own judges say of manual pages, desktop files, the description for software centres, scripts and
spelling: nothing.

usage: judged.py ROOT BUILD | judged.py --self-check
"""

import os
import re
import subprocess
import sys
import tempfile

import lint

# Identifiers, names and words of ffmpeg that look like slips.
KNOWN_WORDS = "alledges,alls,atleast,caf,colourfull,fadin,nce,renderd,ser,setts,strat"
FOREIGN_LINES = r".*(\[\w+\]=|xml:lang=).*"
IDENTIFIERS = r"\b\w*[a-z][A-Z]\w*"
SPELLED = (".cpp", ".h", ".py", ".md", ".1", ".5", ".txt", ".cmake", ".xml", ".in", ".ui", ".desktop", ".html", ".js")
SHELL = re.compile(r"#!.*\b(ba)?sh\b")

JUDGES = {
    "manual page": ["mandoc", "-Tlint"],
    "desktop file": ["desktop-file-validate"],
    "metainfo": ["appstreamcli", "validate", "--no-net", "--no-color"],
    "script": ["shellcheck"],
    "spelling": ["codespell", "--ignore-words-list=" + KNOWN_WORDS, f"--ignore-regex={FOREIGN_LINES}|{IDENTIFIERS}"],
}


def verdict(kind, paths):
    """What the judge of that kind has against the files; empty for nothing."""
    done = subprocess.run([*JUDGES[kind], *paths], capture_output=True, text=True, timeout=300, check=False)
    said = (done.stdout + done.stderr).strip()
    if kind == "manual page":
        return said
    return (said or "failed") if done.returncode else ""


def shell_scripts(root):
    return [path for path in lint.files(root) if SHELL.match((lint.read(root, path) or "").split("\n", 1)[0])]


def judged(root, build):
    """The files of each kind."""
    def here(paths):
        return [os.path.join(root, path) for path in paths]

    made = os.path.join(build, "packaging/desktop/org.kestro.kestro.metainfo.xml")
    spelled = [path for path in lint.files(root, SPELLED) if "/corpus/" not in path]
    return {
        "manual page": here(lint.files(root, (".1", ".5"), "docs")),
        "desktop file": here(lint.files(root, (".desktop",))) + [os.path.join(build, "packaging/desktop/kestro.desktop")],
        "metainfo": [made],
        "script": here(shell_scripts(root)) + [os.path.join(build, "completions/kestro")],
        "spelling": here(spelled + shell_scripts(root)),
    }


def check_tree(root, build):
    faults = 0
    for kind, paths in judged(root, build).items():
        said = verdict(kind, paths) if paths else "there is none"
        print(f"{kind}: {len(paths)} files" + (f"\n{said}" if said else ""))
        faults += bool(said)
    return 1 if faults else 0


METAINFO = """<?xml version="1.0" encoding="UTF-8"?>
<component type="generic"><id>org.kestro.sample</id><metadata_license>MIT</metadata_license><project_license>MIT</project_license>
<name>Sample</name><summary>Sample of a description</summary><url type="homepage">https://kestro.example</url>
<developer_name>Somebody</developer_name><content_rating type="oars-1.1"/>
<description><p>It is here to be looked at, and it says enough of itself to be taken.</p></description></component>
"""
SAMPLES = {
    "manual page": (".TH A 1 2026-01-01 B C\n.SH NAME\na \\- b\n", ".TH A 1 2026-01-01 B C\n.SH NAME\na \\- b\n.PP\n"),
    "desktop file": ("[Desktop Entry]\nType=Application\nName=A\nExec=a\n", "[Desktop Entry]\nType=Application\nExec=a\n"),
    "metainfo": (METAINFO, METAINFO.replace("<name>Sample</name>", "")),
    "script": ("#!/bin/sh\ntouch \"$1\"\n", "#!/bin/sh\ntouch $1\n"),
    "spelling": ("It is received.\nName[de]=oder\n", "It is recieved.\n"),
}
ENDINGS = {"manual page": ".1", "desktop file": ".desktop", "metainfo": ".metainfo.xml"}


def self_check():
    wrong = []
    with tempfile.TemporaryDirectory() as folder:
        for kind, samples in SAMPLES.items():
            for is_bad, sample in enumerate(samples):
                path = os.path.join(folder, "org.kestro.sample" + ENDINGS.get(kind, ""))
                with open(path, "w", encoding="utf-8") as file:
                    file.write(sample)
                said = verdict(kind, [path])
                if bool(said) != bool(is_bad):
                    wrong.append(f"{kind}: {said or 'no word'} of {sample!r}")
    print("\n".join(wrong) or "self-check: each judge tells bad from good")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(self_check() if sys.argv[1:] == ["--self-check"] else check_tree(*sys.argv[1:3]))
