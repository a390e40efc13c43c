"""Every text of the windows is there in every language, with what the code puts into it, a shortcut key of its own and its
shape; and so is what menus and software centres show. docs/languages.md tells how much of each string table every
language has.

usage: translated.py ROOT | translated.py --table ROOT | translated.py --self-check

With --table it prints what belongs into docs/languages.md.
"""

import glob
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import lint

LANGUAGES = {"de": "German", "es": "Spanish", "fr": "French", "ja": "Japanese", "zh_CN": "Chinese"}
TABLE = "docs/languages.md"
TABLE_HEAD = """# Languages

Which texts there are in which language. A row is a string table: that of the messages of the saver ("Kestro"), or the texts of
a window or a part of one. Other texts than these, lines of the log and answers of commands among them, are English.
`tools/update-translations` makes this page.

"""
FOLDER = "resources/translations"
WINDOWS = ["src/widgets", "src/config_ui", "src/trailers/panel", "src/host/preferences"]
PLACEHOLDER = re.compile(r"%L?\d+|%n|%[ds@]")
MNEMONIC = re.compile(r"&([^\s&])")
# What stands in the window of another class.
WINDOW_OF = {
    "kestro::IdlePanel": "kestro::PreferencesWindow",
    "kestro::ScreensPanel": "kestro::PreferencesWindow",
    "kestro::XscreensaverPanel": "kestro::PreferencesWindow",
    "ThemePanel": "kestro::ThemePanel",
}
# How a text ends, and what may stand there instead in another language.
ENDINGS = {"…": "…", "...": "...…", ":": ":：", ".": ".。", "?": "?？", "\n": "\n", " ": " "}
# What shows a text, and a literal handed to it: such a text cannot be translated.
BARE_TEXT = (
    r"\b(set(Text|WindowTitle|Title|ToolTip|StatusTip|WhatsThis|PlaceholderText|AccessibleName|AccessibleDescription|"
    r"LabelText|InformativeText)|addButton|addAction|addRow|addTab|addItem)\s*\(\s*"
    r'(QStringLiteral\s*\(\s*|QLatin1String(View)?\s*\(\s*|u)?"[^"]*[A-Za-z]{2}'
)


def messages(text):
    """(context, source) to (type, translations) of a file of texts; one that counts has several translations."""
    found = {}
    for context in ElementTree.fromstring(text).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = [form.text or "" for form in translation.iter("numerusform")] or [translation.text or ""]
            found[context.findtext("name"), message.findtext("source")] = (translation.get("type"), forms)
    return found


def faults(source, translation):
    """What is wrong with one translation, in words."""
    found = []
    if not translation.strip():
        return ["is empty"]
    if sorted(PLACEHOLDER.findall(source)) != sorted(PLACEHOLDER.findall(translation)):
        found.append("has other placeholders")
    if len(MNEMONIC.findall(source)) != len(MNEMONIC.findall(translation)):
        found.append("has another number of shortcut keys")
    if source.count("\n") != translation.count("\n"):
        found.append("has other line ends")
    ending = next((end for end in ENDINGS if source.endswith(end)), None)
    if ending and translation[-1] not in ENDINGS[ending]:
        found.append(f"does not end like the text, in {ending!r}")
    return found


def check_language(path, wanted, present):
    """Lines about one language: `wanted` are the texts of the code, `present` is what its file has."""
    found = [f"{path}: not translated: {key}" for key in wanted if key not in present]
    for key, (kind, forms) in present.items():
        if key not in wanted:
            found.append(f"{path}: not in the code any more: {key}")
        elif kind is not None:
            found.append(f"{path}: {kind}: {key}")
        else:
            found += [f"{path}: {fault}: {key}" for form in forms for fault in faults(key[1], form)]
    return found


def shared_keys(path, texts):
    """Lines about the shortcut keys that two texts of one window have; `texts` has pairs of a window and a text."""
    found, seen = [], {}
    for window, text in texts:
        for key in MNEMONIC.findall(text):
            other = seen.setdefault((window, key.lower()), text)
            if other != text:
                found.append(f"{path}: {key!r} is the key of {other!r} and of {text!r} in {window}")
    return found


def in_windows(found):
    """Of messages(): each text with its window, as the code has it, and as the language has it."""
    pairs = [(WINDOW_OF.get(context, context), source, forms) for (context, source), (_, forms) in found.items()]
    return [(window, source) for window, source, _ in pairs], [(window, form) for window, _, forms in pairs for form in forms]


def texts_of_the_code(root):
    with tempfile.TemporaryDirectory() as scratch:
        out = os.path.join(scratch, "all.ts")
        lupdate = os.environ.get("LUPDATE", "/usr/lib/qt6/bin/lupdate")
        command = [lupdate, "-silent", "-locations", "none", "-extensions", "cpp,h,ui", "-I", "src", "src", "-ts", out]
        result = subprocess.run(command, cwd=root, capture_output=True, text=True, check=True, timeout=120)
        complaints = [f"lupdate: {line}" for line in result.stderr.splitlines() if line.strip()]
        with open(out, encoding="utf-8") as file:
            return messages(file.read()), complaints


def string_table(key):
    """The name of the string table that a text is in: a layout and its class have one."""
    return key[0].removeprefix("kestro::")


def share(name, wanted, present):
    """How much of a string table a language has: "all", or how many of its texts."""
    keys = [key for key in wanted if string_table(key) == name]
    done = sum(present.get(key, ("missing", []))[0] is None for key in keys)
    return "all" if done == len(keys) else f"{done} of {len(keys)}"


def table(wanted, languages):
    """The page with the completeness of each string table; `languages` has the messages of each language by its name."""
    rows = [["String table", *languages], ["---"] * (len(languages) + 1)]
    for name in sorted({string_table(key) for key in wanted}):
        rows.append([name, *(share(name, wanted, each) for each in languages.values())])
    return TABLE_HEAD + "".join(f"| {' | '.join(row)} |\n" for row in rows)


def table_of_tree(root, wanted):
    paths = {name: f"{FOLDER}/kestro_{code}.ts" for code, name in LANGUAGES.items()}
    return table(wanted, {name: messages(lint.read(root, path)) for name, path in paths.items()})


def check_bare(path, text):
    return lint.matches(BARE_TEXT, text, "a text that cannot be translated: {0}")


def check_entry(path, text):
    """A desktop file has each text that it has in one language in all of them, and so has the description for software centres."""
    if path.endswith(".desktop") or path.endswith(".desktop.in"):
        tongues = [(key, tongue) for key, tongue in re.findall(r"^(\w+)\[(\w+)\]=.", text, re.M)]
    else:
        tongues = []
        place = 0
        for tongue in re.findall(r'xml:lang="(\w+)">.', text):
            place += tongue == "de"
            tongues.append((f"text {place}", tongue))
    keys = {key for key, _ in tongues}
    found = [f"{path}: {key} is not there in {tongue}" for key in sorted(keys) for tongue in LANGUAGES if (key, tongue) not in tongues]
    return found if keys else [f"{path}: nothing is translated"]


def check_tree(root):
    wanted, found = texts_of_the_code(root)
    if not wanted:
        sys.exit("no texts found where there must be some")
    found += shared_keys("the code", in_windows(wanted)[0])
    files = {os.path.basename(path) for path in glob.glob(os.path.join(root, FOLDER, "*.ts"))}
    if files != {f"kestro_{language}.ts" for language in LANGUAGES}:
        found.append(f"{FOLDER} has {sorted(files)}")
    for name in sorted(files):
        present = messages(lint.read(root, f"{FOLDER}/{name}"))
        found += check_language(name, wanted, present)
        found += shared_keys(name, in_windows(present)[1])
    if lint.read(root, TABLE) != table_of_tree(root, wanted):
        found.append(f"{TABLE} is not what tools/update-translations makes of the texts")
    for path in [path for folder in WINDOWS for path in lint.files(root, lint.CPP, folder)]:
        found += [f"{path}:{line}: {message}" for line, message in check_bare(path, lint.read(root, path))]
    entries = lint.files(root, (".desktop", ".desktop.in", ".metainfo.xml.in"))
    if len(entries) < 2:
        found.append("no desktop files found where there must be some")
    for path in entries:
        found += check_entry(path, lint.read(root, path))
    print("\n".join(found))
    print(f"{len(wanted)} texts in {len(files)} languages, {len(found)} findings")
    sys.exit(1 if found else 0)


FAULTS = [
    ("Add", "Hinzufügen", 0),
    ("Add", " ", 1),
    ("&Add", "&Hinzufügen", 0),
    ("&Find:", "検索(&F):", 0),
    ("&Add", "Hinzufügen", 1),
    ("Add", "Hin&zufügen", 1),
    ("Fish & Chips", "Fisch & Pommes", 0),
    ("Saving %1…", "%1 wird gesichert …", 0),
    ("Saving %1…", "Wird gesichert…", 1),
    ("%1 of %2", "%2 von %1", 0),
    ("%d/%d", "%d/%s", 1),
    ("Size:", "Größe:", 0),
    ("Size:", "大小：", 0),
    ("Size:", "Größe", 1),
    ("Save…", "Sichern", 1),
    ("Failed.\nTry again.", "Fehlgeschlagen.\nNoch einmal.", 0),
    ("Failed.\nTry again.", "Fehlgeschlagen. Noch einmal.", 1),
    ("Failed.", "失敗しました。", 0),
]
BARE = [
    ('box.setText(QStringLiteral("Hello"));', 1),
    ('box.setWindowTitle("Hello");', 1),
    ('box.setText(tr("Hello"));', 0),
    ('box.setText(QStringLiteral("%1/%2").arg(a));', 0),
    ("box.setText(name);", 0),
]
KEYS = [
    ([("A", "&Add"), ("A", "&Delete")], 0),
    ([("A", "&Add"), ("A", "B&ack")], 1),
    ([("A", "&Add"), ("A", "&Add")], 0),
    ([("A", "&Add"), ("B", "B&ack")], 0),
    ([("A", "追加(&D)"), ("A", "&delete")], 1),
    ([("A", "Fish && Chips"), ("A", "&&"), ("A", "a & b")], 0),
]
TS = '<TS><context><name>A</name><message><source>{}</source><translation{}>{}</translation></message></context></TS>'
FILES = [
    (TS.format("Add", "", "Hinzu"), 0),
    (TS.format("Add", ' type="unfinished"', ""), 1),
    (TS.format("Add", ' type="vanished"', "Hinzu"), 1),
    (TS.format("Away", "", "Weg"), 2),
    ("<TS/>", 1),
]
ALL = "".join(f"Name[{language}]=B\n" for language in LANGUAGES)
ENTRIES = [
    ("a.desktop", "Name=A\n" + ALL, 0),
    ("a.desktop", "Name=A\n" + ALL.replace("Name[ja]=B\n", ""), 1),
    ("a.desktop.in", "Name=A\nComment[de]=C\n" + ALL, 4),
    ("a.desktop", "Name=A\n", 1),
    ("a.metainfo.xml.in", "".join(f'<p xml:lang="{language}">B</p>' for language in [*LANGUAGES, *LANGUAGES]), 0),
    ("a.metainfo.xml.in", "".join(f'<p xml:lang="{language}">B</p>' for language in [*LANGUAGES, "de"]), 4),
]


def self_check():
    wrong = [f"{s!r}, {t!r}: {faults(s, t)}" for s, t, count in FAULTS if len(faults(s, t)) != count]
    wrong += [text for text, count in BARE if len(check_bare("a.cpp", text)) != count]
    wrong += [str(texts) for texts, count in KEYS if len(shared_keys("a.ts", texts)) != count]
    wrong += [text for path, text, count in ENTRIES if len(check_entry(path, text)) != count]
    wanted = messages(TS.format("Add", "", ""))
    wrong += [text for text, count in FILES if len(check_language("a.ts", wanted, messages(text))) != count]
    two = messages(TS.format("Add", "", "Hinzu")) | messages(TS.format("Away", ' type="unfinished"', ""))
    last = table({**two, ("B", "Ok"): (None, [])}, {"German": two, "Greek": {}}).splitlines()[-4:]
    wrong += [row for row, ends in zip(last, ["Greek |", "--- |", "A | 1 of 2 | 0 of 2 |", "B | 0 of 1 | 0 of 1 |"]) if not row.endswith(ends)]
    wrong += [] if share("A", wanted, wanted) == "all" else ["a string table that is whole"]
    print("\n".join(wrong))
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    if sys.argv[1:] == ["--self-check"]:
        self_check()
    if sys.argv[1] == "--table":
        print(table_of_tree(sys.argv[2], texts_of_the_code(sys.argv[2])[0]), end="")
        sys.exit(0)
    check_tree(sys.argv[1])
