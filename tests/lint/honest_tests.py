"""A test neither sleeps nor measures time, asserts something that can fail, and is never switched off."""

import re

import lint

SLEEPS = [
    r"\bsleep_(for|until)\b",
    r"\b(u|nano|clock_nano)sleep\s*\(",
    r"\bQThread::[mu]?sleep\b",
    r"\bqWait\s*\(|\bqSleep\s*\(",
    r"(?<![.\w])sleep\s*\(",
    r"\b(time|asyncio)\.sleep\b",
    r"\bselect\.select\(\[\], \[\], \[\]",
]
SHELL_SLEEPS = [r"(?<![-.\w/])sleep\s+[\d.$\"'{]"]
TIMINGS = [
    r"\b(steady|system|high_resolution)_clock::now\b",
    r"\bQElapsedTimer\b",
    r"\bgettimeofday\s*\(|\bclock_gettime\s*\(",
    r"\btime\.(time|perf_counter|process_time)\b",
]
EMPTY_ASSERTIONS = [
    r"\b(EXPECT|ASSERT)_TRUE\s*\(\s*(true|1)\s*\)",
    r"\b(EXPECT|ASSERT)_FALSE\s*\(\s*(false|0)\s*\)",
    r"\b(EXPECT|ASSERT)_(TRUE|FALSE)\s*\([^;]*(\|\|\s*true|&&\s*false)\s*\)",
    r"\b(EXPECT|ASSERT)_(EQ|LE|GE)\s*\(\s*([\w.:]+)\s*,\s*\3\s*\)",
    r"\b(EXPECT|ASSERT)_GE\s*\([^;,]*\bsize\(\)\s*,\s*0u?\s*\)",
    r"\bSUCCEED\s*\(|\bassert\s+True\b",
]
SWITCHED_OFF = [
    r"\bDISABLED_\w+",
    r"\bGTEST_SKIP\b|\bQSKIP\b|\bQEXPECT_FAIL\b",
    r"^\s*#\s*if\s+0\b",
    r"\bunittest\.skip|\bskipTest\s*\(|\bpytest\.(mark\.)?(skip|xfail)",
    r"\bDISABLED\s+(TRUE|ON|1)\b|\bSKIP_(RETURN_CODE|REGULAR_EXPRESSION)\b",
]
# What a machine may lack, and the module says so itself: the right to mount a file system.
MAY_BE_SKIPPED = r"\bset_tests_properties\(programs\.dead_disk PROPERTIES TIMEOUT 1200 SKIP_RETURN_CODE 77$"
TEST = re.compile(r"^TEST(?:_F|_P)?\s*\(\s*(\w+)\s*,\s*(\w+)\s*\)\s*\{", re.M)
ASSERTION = re.compile(r"\b(EXPECT_|ASSERT_|ADD_FAILURE|FAIL\(|(expect|assert|check|verify)[A-Z]\w*\s*\()")
NAME = re.compile(r"[a-z]\w*?_[a-z]\w*")


def body(code, opening):
    """What stands between the brace at `opening` and its partner."""
    depth = 0
    for position in range(opening, len(code)):
        depth += {"{": 1, "}": -1}.get(code[position], 0)
        if depth == 0:
            return code[opening:position]
    return code[opening:]


def check_cases(code):
    findings = []
    for case in TEST.finditer(code):
        if not ASSERTION.search(body(code, case.end() - 1)):
            findings.append((lint.line_of(code, case.start()), f"{case[2]} asserts nothing"))
    return findings


def check(path, text):
    is_cpp = path.endswith(lint.CPP)
    code = lint.blank(text) if is_cpp else re.sub(r"^\s*#(?!\s*if).*", "", text, flags=re.M)
    findings = check_cases(code) if is_cpp else []
    groups = [
        (SLEEPS, "sleeps: {0}"),
        (TIMINGS, "measures time: {0}"),
        (EMPTY_ASSERTIONS, "cannot fail: {0}"),
        (SWITCHED_OFF, "is switched off: {0}"),
    ]
    if not is_cpp:
        groups.append((SHELL_SLEEPS, "sleeps: {0}"))
    else:
        findings += lint.matches(r'"[^"\n]*(?<![-.\w/])sleep\s+[\d.]+[^"\n]*"', text, "sleeps: {0}")
    if path == "tests/programs/CMakeLists.txt":
        code = re.sub(MAY_BE_SKIPPED, "", code, flags=re.M)
    for patterns, message in groups:
        for pattern in patterns:
            findings += lint.matches(pattern, code, message)
    return findings


SAMPLES = [
    ("tests/a.cpp", "TEST(A, does_when) { EXPECT_EQ(clock.now(), 2); }", 0),
    ("tests/a.cpp", "TEST(A, does_when) { std::this_thread::sleep_for(1ms); EXPECT_TRUE(a); }", 1),
    ("tests/a.cpp", "TEST(A, does_when)\n{\n    run();\n}\n", 1),
    ("tests/a.cpp", "TEST_F(A, does_when)\n{\n    expectColour(p, red);\n}\n", 0),
    ("tests/a.cpp", "void f() { QTest::qWait(10); }", 1),
    ("tests/a.cpp", "void f() { usleep(3); QThread::msleep(2); }", 2),
    ("tests/a.cpp", "void f() { QElapsedTimer t; }", 1),
    ("tests/a.cpp", "void f() { auto t = std::chrono::steady_clock::now(); }", 1),
    ("tests/a.cpp", "void f() { EXPECT_TRUE(true); }", 1),
    ("tests/a.cpp", "void f() { EXPECT_TRUE(a || true); }", 1),
    ("tests/a.cpp", "void f() { EXPECT_EQ(a.b, a.b); ASSERT_EQ(1, 1); }", 2),
    ("tests/a.cpp", "void f() { EXPECT_GE(list.size(), 0u); SUCCEED(); }", 2),
    ("tests/a.cpp", "TEST(A, DISABLED_does) { EXPECT_TRUE(a); }", 1),
    ("tests/a.cpp", "void f() { GTEST_SKIP() << \"no display\"; }", 1),
    ("tests/a.cpp", "#if 0\n#endif\n", 1),
    ("tests/a.cpp", "// never sleep_for(1)\nauto s = \"sleep_for\";", 0),
    ("tests/a.cpp", 'system("kestro & sleep 2");', 1),
    ("tests/a.py", "import time\ntime.sleep(1)\n", 1),
    ("tests/a.py", "select.select([], [], [], 0.1)\n", 1),
    ("tests/a.py", "select.select([stream], [], [], 0.1)\n", 0),
    ("tests/a.py", "@unittest.skip('later')\n", 1),
    ("tests/a.py", "subprocess.run(command, timeout=20)\n", 0),
    ("tests/a.sh", "kestro &\nsleep 2\n", 1),
    ("tests/a.sh", "# sleep 2\nxdotool search --sync --name Kestro\n", 0),
    ("tests/CMakeLists.txt", "set_tests_properties(a PROPERTIES DISABLED TRUE)", 1),
    ("tests/programs/CMakeLists.txt", "set_tests_properties(programs.dead_disk PROPERTIES TIMEOUT 1200 SKIP_RETURN_CODE 77\n", 0),
    ("tests/programs/CMakeLists.txt", "set_tests_properties(programs.render PROPERTIES TIMEOUT 1200 SKIP_RETURN_CODE 77\n", 1),
]


def selected(root):
    # This folder holds the patterns themselves.
    return [path for path in lint.files(root, below="tests") if not path.startswith("tests/lint/")]


if __name__ == "__main__":
    lint.main(check, SAMPLES, selected)
