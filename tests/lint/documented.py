"""What a user can set is documented, and what is documented exists: settings keys, those of kestro.conf, environment variables,
and the commands and options that the program itself lists. A settings key is spelled in one file.

usage: documented.py ROOT KESTRO | documented.py --self-check
"""

import os
import re
import subprocess
import sys

import lint

DOCUMENTS = ["README.md", "docs/kestro.1"]
KEYS = "src/settings/Options.h"
CONFIGURATION = "docs/kestro.conf.5"
CONFIGURATION_KEY = re.compile(r'Key = QStringLiteral\("([-a-z]+)"\)')
CONFIGURATION_TERM = re.compile(r'^\.TP\n\.(?:BR ([-a-z]+) "|B ([a-z]+)$)', re.M)
KEY = re.compile(r'"([A-Z]\w+)"_L1')
VARIABLE = re.compile(r"\bKESTRO_[A-Z]+\b")
VARIABLE_READ = re.compile(r'"(KESTRO_[A-Z]+)"')
COMMAND = re.compile(r"^  kestro ([a-z][-a-z]*)", re.M)
OPTION = re.compile(r"^ *(--[a-z][-a-z]*)", re.M)
UNLISTED = {"--help", "--version"}


def undocumented(names, documents):
    """A line for each name that a document (name to text) does not have as a word."""
    return [
        f"{document} does not name {name}"
        for name in sorted(names)
        for document, text in documents.items()
        if not re.search(r"(?<![-\w])" + re.escape(name) + r"(?![-\w])", text)
    ]


def settings_keys(root):
    return set(KEY.findall(lint.read(root, KEYS)))


def configuration_keys(root):
    """Those of kestro.conf, by the sources that read it."""
    texts = [lint.read(root, path) for path in lint.files(root, (".cpp",), "src")]
    return {key for text in texts if "platform/base/ConfigurationFile.h" in text for key in CONFIGURATION_KEY.findall(text)}


def configuration_faults(keys, manual):
    terms = {one or other for one, other in CONFIGURATION_TERM.findall(manual.replace("\\-", "-"))}
    return [f"only one of the code and {CONFIGURATION} has {key}" for key in sorted(keys ^ terms)]


def spelled_elsewhere(keys, sources):
    """A line for each source (path to text) that spells a key itself."""
    return [
        f'{path} spells "{key}": use its row in {KEYS}'
        for path, text in sorted(sources.items())
        for key in sorted(keys)
        if f'"{key}"' in text
    ]


def variables_read(root):
    return {name for path in lint.files(root, lint.CPP, "src") for name in VARIABLE_READ.findall(lint.read(root, path))}


def help_of(kestro, *words):
    return subprocess.run([kestro, *words, "--help"], capture_output=True, text=True, check=True, timeout=60).stdout


def commands_and_options(kestro):
    overview = help_of(kestro)
    commands = set(COMMAND.findall(overview))
    options = set(OPTION.findall(overview))
    for command in commands:
        options |= set(OPTION.findall(help_of(kestro, command)))
    return commands, options - UNLISTED


def check_tree(root, kestro):
    documents = {name: lint.read(root, name).replace("\\-", "-") for name in DOCUMENTS}
    keys, variables = settings_keys(root), variables_read(root)
    commands, options = commands_and_options(kestro)
    print(f"{len(keys)} keys, {len(variables)} variables, {sorted(commands)}, {sorted(options)}")
    if not (keys and variables and commands and options):
        print("nothing found where there must be something")
        return 1
    # The list of trailers has a version of its own.
    others = {KEYS, "src/trailers/TrailerListFile.cpp"}
    sources = {path: lint.read(root, path) for path in lint.files(root, lint.CPP, "src") if path not in others}
    # Keys of older releases need not be explained one by one in the manual page, nor what no file holds.
    older = {"FlyMode", "Bounce", "FullScreen", "LeavesNothing"}
    faults = undocumented(keys - older | variables | commands | options, documents)
    faults += spelled_elsewhere(keys, sources)
    faults += configuration_faults(configuration_keys(root), lint.read(root, CONFIGURATION))
    for name, text in documents.items():
        faults += [f"{name} names {v}, which nothing reads" for v in sorted(set(VARIABLE.findall(text)) - variables)]
    print("\n".join(faults))
    return 1 if faults else 0


def self_check():
    documents = {"README.md": "`Scale` and `--out DIR`, `FullScreenMode`"}
    right = (
        undocumented({"Scale", "--out"}, documents) == [],
        len(undocumented({"Interval", "--seconds"}, documents)) == 2,
        len(undocumented({"FullScreen"}, documents)) == 1,
        KEY.findall('StoredOption<bool> fadeout{"Fadeout"_L1, "fadeoutEffect"_L1};') == ["Fadeout"],
        spelled_elsewhere({"Scale"}, {"a.cpp": 'option(QStringLiteral("Scale"))'}) != [],
        spelled_elsewhere({"Scale"}, {"a.cpp": "option::scale, tr(\"Scaled\")"}) == [],
        configuration_faults({"after", "host"}, '.TP\n.BR after " (" 5 )\n.TP\n.B host\n') == [],
        len(configuration_faults({"after", "low"}, '.TP\n.BR after " (" 5 )\n.B or\n.TP\n.BR in\\-all " (" no )\n')) == 2,
        CONFIGURATION_KEY.findall('const QString lowKey = QStringLiteral("low");') == ["low"],
        COMMAND.findall("  kestro render  Writes") == ["render"],
        OPTION.findall("Options:\n  --out DIR  where") == ["--out"],
        VARIABLE_READ.findall('qgetenv("KESTRO_HOME")') == ["KESTRO_HOME"],
    )
    print(f"self-check: {right}")
    return 0 if all(right) else 1


if __name__ == "__main__":
    sys.exit(self_check() if sys.argv[1:] == ["--self-check"] else check_tree(sys.argv[1], os.path.abspath(sys.argv[2])))
