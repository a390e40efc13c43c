"""What the shells complete after "kestro" is what kestro itself lists in its help."""

import os
import pathlib
import re
import subprocess
import unittest

from harness import BOUND, ProgramTest

FOLDER = pathlib.Path(os.environ["COMPLETIONS"])
MODES = {"fullscreen", "fly", "bounce"}

# The words in, the candidates out, as bash itself does it.
BASH = """
source "$1"; shift
COMP_WORDS=(kestro "$@"); COMP_CWORD=$#; COMPREPLY=()
_kestro
printf '%s\\n' "${COMPREPLY[@]}"
"""

# zsh completes in a terminal alone: its helpers, in the places of which these stand, are told all that there is.
ZSH = """
_arguments() { print -rl -- "$@"; state=command }
_describe() { print -rl -- "${(@P)4}" }
fpath=("$1" $fpath); shift
autoload -Uz _kestro
words=(kestro "$@"); CURRENT=$(( $# + 1 ))
_kestro
"""


def words_of(text):
    """The first word of each line, without what a shell adds to it."""
    return {re.split(r"[=\[:\t ]", line)[0] for line in text.splitlines() if line}


class Completions(ProgramTest):
    def shell(self, *command):
        done = subprocess.run(command, env=self.home.environment(), cwd=self.home.path, capture_output=True, text=True,
                              timeout=BOUND, stdin=subprocess.DEVNULL)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def bash(self, *words):
        return words_of(self.shell("bash", "--norc", "-c", BASH, "bash", str(FOLDER / "kestro"), *words))

    def zsh(self, *words):
        return words_of(self.shell("zsh", "-f", "-c", ZSH, "zsh", str(FOLDER), *words))

    def fish(self, *words):
        return words_of(self.shell("fish", "--no-config", "-c", "source $argv[1]; complete -C $argv[2]",
                                   str(FOLDER / "kestro.fish"), " ".join(["kestro", *words])))

    def commands(self):
        return set(re.findall(r"^  kestro ([a-z][-a-z]*)", self.run_kestro("--help").stdout, re.M))

    def options(self, command):
        listed = self.run_kestro(*command.split(), "--help").stdout
        return set(re.findall(r"^ *(--[a-z][-a-z]*)", listed, re.M)) | {"--help"}

    def test_commands_areThoseOfTheHelp_whenNothingIsWritten(self):
        commands = self.commands()
        self.assertIn("render", commands)
        self.assertEqual(self.bash(""), commands)
        self.assertEqual({word for word in self.zsh("") if word in commands}, commands)
        self.assertEqual(self.fish(""), commands)

    def test_options_areThoseOfTheHelp_whenACommandIsWritten(self):
        for command in self.commands():
            with self.subTest(command=command):
                options = self.options(command)
                self.assertEqual(self.bash(command, "--"), options)
                self.assertEqual({word for word in self.zsh(command, "--") if word.startswith("--")}, options)
                self.assertEqual(self.fish(command, "--"), options)

    def test_options_areThoseOfARun_whenNoCommandIsWritten(self):
        options = self.options("")
        self.assertIn("--mode", options)
        self.assertEqual(self.bash("--"), options)
        self.assertEqual({word for word in self.zsh("--") if word.startswith("--")}, options)
        self.assertEqual(self.fish("--"), options)

    def test_modes_areOffered_whenTheOptionIsWritten(self):
        self.assertEqual(self.bash("--mode", ""), MODES)
        self.assertEqual(self.bash("--mode", "=", "f"), {"fullscreen", "fly"})
        self.assertEqual(self.fish("--mode", '""'), MODES)
        self.assertIn(f"({' '.join(['fullscreen', 'fly', 'bounce'])})",
                      self.shell("zsh", "-f", "-c", ZSH, "zsh", str(FOLDER), "--"))

    def test_files_areOffered_whereAFileIsMeant(self):
        (self.home.path / "page.html").touch()
        (self.home.path / "pages").mkdir()
        self.assertLessEqual({"page.html", "pages"}, self.bash("inspect-page", "pag"))
        self.assertEqual(self.bash("render", "--out", "pag"), {"pages"})
        self.assertEqual(self.bash("latest", "pag"), set())
        self.assertIn("page.html", self.fish("inspect-page", "pag"))
        self.assertEqual(self.fish("render", "--out", "pag"), {"pages/"})

    def test_nothing_isOffered_afterAWordThatIsNoCommand(self):
        self.assertEqual(self.bash("frobnicate", "--"), set())
        self.assertEqual(self.fish("frobnicate", "--"), set())


if __name__ == "__main__":
    unittest.main()
