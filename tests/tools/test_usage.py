# SPDX-License-Identifier: Apache-2.0
"""The command line itself: help, versions, wrong usage."""
import re
import shlex
import unittest

from command import CommandTest, DONE, WRONG_USAGE


def commands_in(help_text):
    """The commands that the list of all commands tells."""
    return [name.split() for name in re.findall(r"^  (\S+(?: \S+)?)", help_text, re.MULTILINE)]


class Usage(CommandTest):

    def test_versions(self):
        self.assertRegex(self.done("--version"), r"^velrzm \d+\.\d+\.\d+ \(library RZM 424\.1 / QV 340\)\n$")

    def test_every_command_has_an_example_that_can_be_typed(self):
        self.done("init")
        examples = {}
        for command in commands_in(self.done("help", "--all")):
            example = re.search(r"^Example: velrzm (.*)$", self.done(*command, "--help"), re.MULTILINE)
            self.assertIsNotNone(example, command)
            words = shlex.split(example[1])
            self.assertEqual(words[:len(command)], command)
            redirection = words.index(">") if ">" in words else len(words)  # is the shell's
            examples[" ".join(command)] = words[:redirection]
        self.assertGreater(len(examples), 50)
        for command, words in examples.items():
            run = self.run_command(*words)
            self.assertNotEqual(run.returncode, WRONG_USAGE, f"{command}: {run.stderr}")

    def test_wrong_usage(self):
        self.done("init")
        for line in ("", "nonsense", "ec", "ec nonsense", "ec create", "ec create A B", "item query --status",
                     "ec open EC-1 --format yaml", "ec open EC-1 --trace much", "ec open EC-1 --nonsense",
                     "bom explode A-1 --level x", "item create A-1 --set mass", "item create A-1 --set =1"):
            self.wrong(*line.split())

    def test_wrong_words_are_named_and_the_right_ones_suggested(self):
        for line, word, meant in (("usr list", "usr", "user"), ("item crate A-1", "crate", "create"),
                                  ("item opne --help", "opne", "open"), ("tree A-1", "tree", "bom tree"),
                                  ("item creat --name X", "creat", "create"), ("help bom tre", "tre", "tree"),
                                  ("ec open EC-1 --fromat json", "--fromat", "--format"),
                                  ("item create A-1 --nmae=x", "--nmae", "--name"),
                                  ("item create A-1 -ec EC-1", "-ec", "--ec")):
            self.assertIn(f'"{word}"; did you mean "{meant}"?', " ".join(self.wrong(*line.split()).split()))

    def test_wrong_usage_says_what_and_where_to_read_on(self):
        for line, told in (("item nothing-like-it", "create, save, open, query, header, effectivity, link"),
                           ("item create", "ITEM is missing"), ("doc control 1 1", "--ec CHANGE is missing"),
                           ("item create A B", '"B" is one too many'), ("item query --status", "--status needs a value"),
                           ("item query --name x --name y", "--name is given more than once"),
                           ("ec open X --format yaml", '"yaml" is none of table, json, csv, printlist')):
            complaint = self.wrong(*line.split())
            self.assertIn(told, " ".join(complaint.split()))
            self.assertRegex(complaint, rf'See "velrzm {line.split()[0]}( \w+)? --help"\.\n$')
            self.assertLessEqual(max(map(len, complaint.splitlines())), 80)
        for line in ("", "bom"):
            self.assertIn("a command is missing", self.wrong(*line.split()))
            self.assertIn(self.done(*line.split(), "--help"), self.wrong(*line.split()))

    def test_an_empty_value_is_a_value(self):
        self.done("init")
        self.done("ec", "create", "EC-1", "--name=", "--initiator", "bob")
        self.assertEqual(self.json("ec", "open", "EC-1", "--select", "desc,initiator@person_identifier"),
                         {"desc": "", "initiator@person_identifier": "bob"})

    def test_help_fits_the_width_and_explains_every_word(self):
        for command in ([], *commands_in(self.done("help", "--all"))):
            help_text = self.done(*command, "--help")
            self.assertEqual(self.done("help", *command), help_text)
            for line in help_text.splitlines():
                self.assertEqual(line, line.rstrip())
                self.assertTrue(len(line) <= 80 or line.startswith("Example: "), line)
            signs = re.findall(r"^  (\S.*)\n((?: {4}.*)?)", help_text, re.MULTILINE)
            self.assertTrue(all("  " in sign or below for sign, below in signs), (command, signs))

    def test_help_is_a_result(self):
        run = self.run_command("ec", "open", "--help")
        self.assertEqual((run.returncode, run.stderr), (DONE, ""))
        self.assertIn("--select", run.stdout)


if __name__ == "__main__":
    unittest.main()
