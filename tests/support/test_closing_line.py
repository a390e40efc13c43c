"""The closing line counts cases, and names those that failed."""

import unittest

from closing_line import report

PASSED = "[==========] Running 3 tests from 1 test suite.\n[==========] 3 tests from 1 test suite ran. (1 ms total)\n"
FAILED = """[  FAILED  ] A.does_when (1 ms)
[==========] 3 tests from 1 test suite ran. (1 ms total)
[  FAILED  ] 2 tests, listed below:
[  FAILED  ] A.does_when
[  FAILED  ] Ways/A.goes_when/0, where GetParam() = 4

 2 FAILED TESTS
"""
PYTHON_FAILED = """FAIL: test_one (__main__.A.test_one) (number=1)
FAIL: test_one (__main__.A.test_one) (number=2)
Ran 5 tests in 1.2s
"""


def entry(output, status="run", inside=""):
    return f'<testcase name="a" status="{status}">{inside}<system-out>{output}</system-out></testcase>'


def failed(output):
    return entry(output, "fail", '<failure message=""/>')


class ClosingLine(unittest.TestCase):
    def assertReport(self, entries, *lines):
        self.assertEqual(report(f"<testsuite>{''.join(entries)}</testsuite>"), list(lines))

    def test_cases_are_counted_where_an_entry_tells_of_them(self):
        self.assertReport([entry(PASSED), entry("Ran 1 test in 0.1s\nOK"), entry("12 files, 0 findings")],
                          "100% tests passed, 0 tests failed out of 5")

    def test_each_case_that_failed_is_named(self):
        self.assertReport([entry(PASSED), failed(FAILED)], "failed: a: A.does_when",
                          "failed: a: Ways/A.goes_when/0, where GetParam() = 4", "66% tests passed, 2 tests failed out of 6")

    def test_a_python_case_that_failed_twice_is_one(self):
        self.assertReport([failed(PYTHON_FAILED)], "failed: a: test_one (__main__.A.test_one)",
                          "80% tests passed, 1 tests failed out of 5")

    def test_an_entry_that_died_is_one_that_failed(self):
        self.assertReport([failed("[ RUN      ] A.does_when\n"), entry(PASSED)], "failed: a",
                          "75% tests passed, 1 tests failed out of 4")

    def test_what_is_not_built_has_failed(self):
        missing = entry("", "notrun", '<skipped message="Unable to find executable"/>')
        self.assertReport([missing], "failed: a", "0% tests passed, 1 tests failed out of 1")

    def test_what_says_that_it_cannot_run_here_has_not_failed(self):
        self.assertReport([entry("", "notrun", '<skipped message="SKIP_' 'RETURN_CODE=77"/>')],
                          "100% tests passed, 0 tests failed out of 1")


if __name__ == "__main__":
    unittest.main()
