"""Files and functions stay small enough to be read at a sitting."""

import re

import lint

LINES = {".h": 200, ".cpp": 400, ".py": 400}
FUNCTION_LINES = 60

SCOPE = re.compile(r"\b(namespace|class|struct|union|enum|extern)\b[^()]*$")
# What stands before a function's body, or its next member, where a member was initialised in braces.
AFTER_INITIALISER = re.compile(r"\s*(,|$)")
BLOCKS_AND_BRACES = re.compile(r"[{};]")


def functions(code):
    """(first line, lines) of each function body that does not lie in another one."""
    found, kinds, start = [], [], 0
    for match in BLOCKS_AND_BRACES.finditer(code):
        head, position = code[start : match.start()], match.start()
        start = match.end()
        if match[0] == "{":
            outside = all(kind == "scope" for kind, _ in kinds)
            is_function = outside and ("(" in head or AFTER_INITIALISER.match(head)) and not SCOPE.search(head)
            is_scope = outside and not is_function and SCOPE.search(head)
            kinds.append(("function" if is_function else "scope" if is_scope else "block", position))
        elif match[0] == "}" and kinds:
            kind, opening = kinds.pop()
            if kind == "function":
                first = lint.line_of(code, opening)
                found.append((first, lint.line_of(code, position) - first + 1))
    return found


def check(path, text):
    suffix = path[path.rindex(".") :]
    count = len(text.splitlines())
    findings = []
    if count > LINES[suffix]:
        findings.append((count, f"{count} lines; {LINES[suffix]} at most"))
    if suffix in lint.CPP:
        code = re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", "", lint.blank(text), flags=re.M)
        for first, lines in functions(code):
            if lines > FUNCTION_LINES:
                findings.append((first, f"a function of {lines} lines; {FUNCTION_LINES} at most"))
    return findings


def function(lines):
    return "namespace kestro {\nvoid f(int a)\n{\n" + "    a += 1;\n" * (lines - 2) + "}\n}\n"


def lambda_inside(lines):
    return "void f()\n{\n    g([] {\n" + "        h();\n" * (lines - 4) + "    });\n}\n"


SAMPLES = [
    ("src/a.cpp", function(60), 0),
    ("src/a.cpp", function(61), 1),
    ("src/a.cpp", lambda_inside(60), 0),
    ("src/a.cpp", lambda_inside(61), 1),
    ("src/a.cpp", function(40) * 2, 0),
    ("src/a.cpp", "A::A()\n    : m_b{1}\n{\n" + "    f();\n" * 61 + "}\n", 1),
    ("src/a.h", "class A : public B<int> {\n    int f() const { return 1; }\n" + "    int m_a;\n" * 100 + "};\n", 0),
    ("src/a.cpp", "auto s = R\"({)\";\nconst char c = '{';\n" + function(50), 0),
    ("src/a.h", "int a;\n" * 200, 0),
    ("src/a.h", "int a;\n" * 201, 1),
    ("src/a.cpp", "int a;\n" * 400, 0),
    ("src/a.cpp", "int a;\n" * 401, 1),
]

if __name__ == "__main__":
    lint.main(check, SAMPLES, lambda root: lint.files(root, LINES))
