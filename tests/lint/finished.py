"""Nothing in the tree is marked as left for later."""

import lint

# Put together here so that this file does not hold them.
MARKS = [first + second for first, second in [("TO", "DO"), ("FIX", "ME"), ("X", "XX")]]
PATTERN = r"\b(" + "|".join(MARKS) + r")\b"


def check(path, text):
    return lint.matches(PATTERN, text, "left for later: {0}")


SAMPLES = [
    ("a.cpp", f"// {MARKS[0]}: more", 1),
    ("a.py", f"# {MARKS[1]}", 1),
    ("README.md", f"{MARKS[2]}", 1),
    ("a.cpp", 'QString("kestro-%s")' % ("X" * 6), 0),
    ("a.cpp", "// todos los dias", 0),
]

if __name__ == "__main__":
    lint.main(check, SAMPLES, lint.files)
