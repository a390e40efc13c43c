"""All C++ is formatted as .clang-format says.

usage: formatted.py ROOT | formatted.py --self-check
"""

import os
import subprocess
import sys

import lint


def clang_format(arguments, text=None):
    command = [os.environ.get("CLANG_FORMAT", "clang-format"), "--dry-run", "--Werror", *arguments]
    return subprocess.run(command, input=text, text=True, check=False).returncode


def check_tree(root):
    paths = lint.files(root, lint.CPP)
    print(f"{len(paths)} files")
    return clang_format([os.path.join(root, path) for path in paths]) if paths else 1


def self_check():
    style = "--style=file:" + os.path.join(os.path.dirname(__file__), "../../.clang-format")
    good = clang_format([style], "int f(int* a);\n")
    bad = clang_format([style], "int f( int *a ) ;\n")
    return 0 if good == 0 and bad != 0 else 1


if __name__ == "__main__":
    sys.exit(self_check() if sys.argv[1:] == ["--self-check"] else check_tree(sys.argv[1]))
