# SPDX-License-Identifier: Apache-2.0
"""Completion of words: what the program offers, and what real shells make of it."""
import pathlib
import shutil
import subprocess
import unittest

from command import COMMAND, CommandTest

BASH_CALL = 'source <(velrzm completion bash); COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _velrzm velrzm; ' \
            'printf "%s\\n" "${COMPREPLY[@]}"'
TO_BEGINNING = "\001"  # of the line, as both shells have it


class Completion(CommandTest):

    def setUp(self):
        super().setUp()
        self.environment.update(TERM="dumb", ZDOTDIR="/nowhere")

    def bash_offers(self, *words):
        run = subprocess.run(["bash", "-c", BASH_CALL, "bash", "velrzm", *words], cwd=self.directory, text=True,
                             env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=True, timeout=60)
        self.assertEqual(run.stderr, "")
        return run.stdout.split()

    def assert_completed(self, setup, shell, *arguments):
        """What becomes of lines in a terminal, each completed where it ends."""
        (self.directory / "my parts.csv").touch()
        completed = {"velrzm imp": "velrzm import", "velrzm ec open X --format=j": "velrzm ec open X --format=json",
                     "velrzm import my": "velrzm import my parts.csv"}
        echoes = "".join(f"{line}\t{TO_BEGINNING}echo '{line}' becomes \n" for line in completed)
        shown = self.on_terminal([], *arguments, program=shell, typed=f"{setup}{echoes}exit\n")[1].replace("\r", "\n")
        for line, whole in completed.items():
            self.assertEqual([text.strip() for text in shown.splitlines() if text.startswith(f"{line} becomes ")],
                             [f"{line} becomes {whole}"])

    def test_offers_what_may_stand_next(self):
        every_format = "table json csv printlist"
        for line, offered in (("it", "item item-ref"), ("item cr", "create"), ("--user item us", "user"),
                              ("--format=json user pass", "passwd"), ("ec open EC-1 --format ", every_format),
                              ("ec open --format=j", "--format=json"), ("help item o", "open"),
                              ("completion ", "bash zsh"), ("batch ", ":file"), ("load options x", ":file"),
                              ("--store ", ":file"), ("ec open --password-file=x", ":file"), ("item create ", ""),
                              ("item create --name ", ""), ("item create -- --", ""), ("nonsense create x", ""),
                              ("item create --nonsense=", ""), ("bom tree A --form", "--format"),
                              ("bom tree A --format=s", "--format=svg")):
            told = self.done("complete", "--", *line.split(" ")).splitlines()
            self.assertEqual([answer.split("\t")[0] for answer in told], offered.split(), line)

    def test_options_are_offered_once_unless_they_may_be_repeated(self):
        told = self.done("complete", "--", "item", "create", "A-1", "--name", "x", "--set", "a=b", "--").splitlines()
        offered = [answer.split("\t")[0] for answer in told]
        self.assertLessEqual({"--ec", "--type", "--set", "--format", "--help"}, set(offered))
        self.assertNotIn("--name", offered)
        self.assertEqual(len(offered), len(set(offered)))

    def test_bash(self):
        self.assertEqual(self.bash_offers("doc", "check"), ["checkout", "checkin"])
        self.assertEqual(self.bash_offers("ec", "open", "--format", "="), ["table", "json", "csv", "printlist"])
        self.assertEqual(self.bash_offers("ec", "open", "--format", "=", "j", ), ["json"])
        self.assertEqual(self.bash_offers("--store", "sqlite", ":", "x.db", "user", "pa"), ["passwd"])
        self.assert_completed("PS1=; source <(velrzm completion bash)\n", "bash", "--norc", "--noprofile", "-i")

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_zsh(self):
        self.assert_completed("PS1=; autoload -U compinit; compinit -u -D; source <(velrzm completion zsh)\n",
                              "zsh", "-f", "-i")
