# SPDX-License-Identifier: Apache-2.0
"""Completion of words: what the program offers, and what real shells make of it."""
import os
import pathlib
import pty
import shutil
import subprocess
import unittest

from command import COMMAND, CommandTest

BASH_CALL = 'source <(velrzm completion bash); COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _velrzm velrzm; ' \
            'printf "%s\\n" "${COMPREPLY[@]}"'
BASH_SETUP = "PS1=; source <(velrzm completion bash)\n"
ZSH_SETUP = "PS1=; autoload -U compinit; compinit -u -D; source <(velrzm completion zsh)\n"
TO_BEGINNING = "\001"  # of the line, as both shells have it


class Completion(CommandTest):

    def setUp(self):
        super().setUp()
        self.environment["PATH"] = f"{pathlib.Path(COMMAND).parent}:{self.environment['PATH']}"

    def offered(self, *words):
        return [line.split("\t")[0] for line in self.done("complete", "--", *words).splitlines()]

    def bash_offers(self, *words):
        run = subprocess.run(["bash", "-c", BASH_CALL, "bash", "velrzm", *words], cwd=self.directory, text=True,
                             env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=True, timeout=60)
        self.assertEqual(run.stderr, "")
        return run.stdout.split()

    def typed(self, setup, *lines, shell):
        """What becomes of lines in a terminal, each completed where it ends."""
        controller, terminal = pty.openpty()
        with subprocess.Popen(shell, cwd=self.directory, env={**self.environment, "TERM": "dumb", "ZDOTDIR": "/nowhere"},
                              stdin=terminal, stdout=terminal, stderr=terminal, start_new_session=True) as process:
            os.close(terminal)
            echoes = "".join(f"{line}\t{TO_BEGINNING}echo '{line}' becomes \n" for line in lines)
            os.write(controller, f"{setup}{echoes}exit\n".encode())
            written = b""
            try:
                while piece := os.read(controller, 65536):
                    written += piece
            except OSError:  # the shell has ended
                pass
            os.close(controller)
            process.wait(timeout=60)
        shown = written.decode().replace("\r", "\n").splitlines()
        return [[text.split(" becomes ", 1)[1].strip() for text in shown if text.startswith(f"{line} becomes ")]
                for line in lines]

    def test_offers_what_may_stand_next(self):
        self.assertEqual(self.offered("it"), ["item", "item-ref"])
        self.assertEqual(self.offered("item", "cr"), ["create"])
        self.assertEqual(self.offered("--user", "item", "us"), ["user"])
        self.assertEqual(self.offered("--format=json", "user", "pass"), ["passwd"])
        self.assertEqual(self.offered("ec", "open", "EC-1", "--format", ""), ["table", "json", "csv", "printlist"])
        self.assertEqual(self.offered("ec", "open", "--format=j"), ["--format=json"])
        self.assertEqual(self.offered("help", "item", "o"), ["open"])
        self.assertEqual(self.offered("completion", ""), ["bash", "zsh"])
        for words in (["batch", ""], ["load", "options", "x"], ["--store", ""], ["ec", "open", "--password-file=x"]):
            self.assertEqual(self.offered(*words), [":file"], words)
        for words in (["item", "create", ""], ["item", "create", "--name", ""], ["item", "create", "--", "--"],
                      ["nonsense", "create", "x"], ["item", "create", "--nonsense="]):
            self.assertEqual(self.offered(*words), [], words)

    def test_options_are_offered_once_unless_they_may_be_repeated(self):
        offered = self.offered("item", "create", "A-1", "--name", "x", "--set", "a=b", "--")
        self.assertLessEqual({"--ec", "--type", "--set", "--format", "--help"}, set(offered))
        self.assertNotIn("--name", offered)
        self.assertEqual(len(offered), len(set(offered)))

    def test_an_option_of_a_command_hides_the_shared_one(self):
        self.assertEqual(self.offered("bom", "tree", "A", "--form"), ["--format"])
        self.assertEqual(self.offered("bom", "tree", "A", "--format=s"), ["--format=svg"])
        self.assertNotIn("--format.", self.done("bom", "tree", "--help"))

    def test_bash(self):
        self.assertEqual(self.bash_offers("doc", "check"), ["checkout", "checkin"])
        self.assertEqual(self.bash_offers("ec", "open", "--format", "="), ["table", "json", "csv", "printlist"])
        self.assertEqual(self.bash_offers("ec", "open", "--format", "=", "j", ), ["json"])
        self.assertEqual(self.bash_offers("--store", "sqlite", ":", "x.db", "user", "pa"), ["passwd"])

    def test_bash_in_a_terminal(self):
        (self.directory / "my parts.csv").touch()
        self.assertEqual(self.typed(BASH_SETUP, "velrzm imp", "velrzm ec open X --format=j", "velrzm import my",
                                    shell=["bash", "--norc", "--noprofile", "-i"]),
                         [["velrzm import"], ["velrzm ec open X --format=json"], ["velrzm import my parts.csv"]])

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_zsh_in_a_terminal(self):
        (self.directory / "parts.csv").touch()
        self.assertEqual(self.typed(ZSH_SETUP, "velrzm imp", "velrzm ec open X --format=j", "velrzm import pa",
                                    shell=["zsh", "-f", "-i"]),
                         [["velrzm import"], ["velrzm ec open X --format=json"], ["velrzm import parts.csv"]])


if __name__ == "__main__":
    unittest.main()
