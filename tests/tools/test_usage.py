# SPDX-License-Identifier: Apache-2.0
"""The command line itself: help, versions, wrong usage."""
import re
import shlex
import unittest

from command import CommandTest, DONE, WRONG_USAGE


def commands_in(help_text):
    """The commands that a help text lists."""
    _, _, listed = help_text.partition("Subcommands:\n")
    return re.findall(r"^  (\S+)", listed, re.MULTILINE)


class Usage(CommandTest):

    def all_commands(self):
        for name in commands_in(self.done("--help")):
            below = commands_in(self.done(name, "--help"))
            yield from ([name, word] for word in below) if below else ([name],)

    def test_versions(self):
        self.assertRegex(self.done("--version"), r"^velrzm \d+\.\d+\.\d+ \(library RZM 424\.1 / QV 340\)\n$")

    def test_every_command_has_an_example_that_can_be_typed(self):
        self.done("init")
        examples = {}
        for command in self.all_commands():
            example = re.search(r"^Example: velrzm (.*)$", self.done(*command, "--help"), re.MULTILINE)
            self.assertIsNotNone(example, command)
            words = shlex.split(example[1])
            self.assertEqual(words[:len(command)], command)
            redirection = words.index(">") if ">" in words else len(words)  # is the shell's
            examples[" ".join(command)] = words[:redirection]
        self.assertGreater(len(examples), 35)
        for command, words in examples.items():
            run = self.run_command(*words)
            self.assertNotEqual(run.returncode, WRONG_USAGE, f"{command}: {run.stderr}")

    def test_wrong_usage(self):
        self.done("init")
        for line in ("", "nonsense", "ec", "ec nonsense", "ec create", "ec create A B", "item query --status",
                     "ec open EC-1 --format yaml", "ec open EC-1 --trace much", "ec open EC-1 --nonsense",
                     "bom explode A-1 --level x", "item create A-1 --set mass", "item create A-1 --set =1"):
            self.wrong(*line.split())

    def test_help_is_a_result(self):
        run = self.run_command("ec", "open", "--help")
        self.assertEqual((run.returncode, run.stderr), (DONE, ""))
        self.assertIn("--select", run.stdout)


if __name__ == "__main__":
    unittest.main()
