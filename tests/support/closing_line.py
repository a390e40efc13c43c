"""The closing line of a run of tests, counting cases. An entry of ctest is a suite of C++ or a module of Python, which has
many; one that tells of none counts as one. The cases that failed are named above it.

usage: closing_line.py RESULTS.xml, as ctest's --output-junit writes it
"""

import re
import sys
import xml.etree.ElementTree as ElementTree

COUNTS = [r"^\[=+\] (\d+) tests? from .* ran\.", r"^Ran (\d+) tests? in "]
FAILURES = [r"^\[  FAILED  \] ([^\s,]+(?:, where .*)?)$", r"^(?:FAIL|ERROR): (\S+ \(\S+\))"]


def cases(name, is_bad, output):
    """How many cases an entry has, and the names of those that failed."""
    counts = [int(count) for pattern in COUNTS for count in re.findall(pattern, output, re.M)]
    failed = sorted({case for pattern in FAILURES for case in re.findall(pattern, output, re.M)})
    named = [f"{name}: {case}" for case in failed] or [name]
    return max([sum(counts), len(named), 1]), named if is_bad else []


def closing_line(count, failures):
    percent = int(100 * (count - failures) / count) if count else 0
    return f"{percent}% tests passed, {failures} tests failed out of {count}"


def has_failed(entry):
    """Whether it failed or could not be run, but for what says so itself."""
    skipped = entry.find("skipped")
    could_not_run = skipped is not None and not skipped.get("message").startswith("SKIP_")
    return could_not_run or entry.find("failure") is not None


def report(text):
    """What is printed of the results: the cases that failed, a line each, and the closing line."""
    count, failed = 0, []
    for entry in ElementTree.fromstring(text).iter("testcase"):
        if entry.get("status") == "disabled":
            continue
        output = entry.findtext("system-out") or ""
        its_count, its_failed = cases(entry.get("name"), has_failed(entry), output)
        count += its_count
        failed += its_failed
    return [f"failed: {name}" for name in failed] + [closing_line(count, len(failed))]


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8", errors="replace") as results:
        print("\n".join(report(results.read())))
