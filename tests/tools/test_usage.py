# SPDX-License-Identifier: Apache-2.0
"""The command line itself: help, versions, wrong usage."""
import pathlib
import re
import shlex

from command import CommandTest, DONE, WRONG_USAGE


class Usage(CommandTest):

    def test_every_command_is_explained_with_an_example_that_can_be_typed(self):
        self.done("init")
        commands = [name.split() for name in re.findall(r"^  (\S+(?: \S+)?)", self.done("help", "--all"), re.MULTILINE)]
        self.assertGreater(len(commands), 50)
        for command in ([], *commands):
            run = self.run_command(*command, "--help")
            self.assertEqual((run.returncode, run.stderr), (DONE, ""))
            self.assertEqual(self.done("help", *command), run.stdout)
            for line in run.stdout.splitlines():
                self.assertEqual(line, line.rstrip())
                self.assertTrue(len(line) <= 80 or line.startswith("Example: "), line)
            signs = re.findall(r"^  (\S.*)\n((?: {4}.*)?)", run.stdout, re.MULTILINE)
            self.assertTrue(all("  " in sign or below for sign, below in signs), (command, signs))
            if command:
                words = shlex.split(re.search(r"^Example: velrzm (.*)$", run.stdout, re.MULTILINE)[1])
                self.assertEqual(words[:len(command)], command)
                typed = self.run_command(*words[:words.index(">") if ">" in words else None])  # which is the shell's
                self.assertNotEqual(typed.returncode, WRONG_USAGE, f"{command}: {typed.stderr}")
        self.assertRegex(self.done("--version"), r"^velrzm \d+\.\d+\.\d+ \(library RZM 424\.1 / QV 340\)\n$")

    def test_wrong_usage_says_what_is_wrong_and_what_is_right(self):
        self.done("init")
        for line, told in (
                ("usr list", '"usr"; did you mean "user"?'), ("item crate A-1", '"crate"; did you mean "create"?'),
                ("item opne --help", '"opne"; did you mean "open"?'), ("tree A-1", '"tree"; did you mean "bom tree"?'),
                ("item creat --name X", '"creat"; did you mean "create"?'), ("help bom tre", '"tre"; did you mean "tree"?'),
                ("ec open EC-1 --fromat json", '"--fromat"; did you mean "--format"?'),
                ("item create A-1 --nmae=x", '"--nmae"; did you mean "--name"?'),
                ("item create A-1 -ec EC-1", '"-ec"; did you mean "--ec"?'),
                ("item nothing-like-it", "create, save, open, query, header, effectivity, link"),
                ("item create", "ITEM is missing"), ("doc control 1 1", "--ec CHANGE is missing"),
                ("item create A B", '"B" is one too many'), ("item query --status", "--status needs a value"),
                ("item query --name x --name y", "--name is given more than once"),
                ("ec open X --format yaml", '"yaml" is none of table, json, csv, printlist'),
                ("ec open EC-1 --trace much", '"much" is no number')):
            complaint = self.wrong(*line.split())
            self.assertIn(told, " ".join(complaint.split()))
            self.assertRegex(complaint, r'See "velrzm( \w+){0,2} --help"\.\n$')
            self.assertLessEqual(max(map(len, complaint.splitlines())), 80)
        for line in ("bom explode A-1 --level x", "item create A-1 --set mass", "item create A-1 --set =1"):
            self.assertIn(line.split()[-1], self.wrong(*line.split()))
        for line in ("", "bom"):
            self.assertIn("a command is missing", self.wrong(*line.split()))
            self.assertIn(self.done(*line.split(), "--help"), self.wrong(*line.split()))

    def test_an_empty_value_is_a_value(self):
        self.done("init")
        self.done("ec", "create", "EC-1", "--name=", "--initiator", "bob")
        self.assertEqual(self.json("ec", "open", "EC-1", "--select", "desc,initiator@person_identifier"),
                         {"desc": "", "initiator@person_identifier": "bob"})

    def test_the_readme_from_nothing_to_a_bill_of_material(self):
        readme = (pathlib.Path(__file__).parents[2] / "README.md").read_text(encoding="utf-8")
        self.file("parts.csv", "Level,Part,Part Name,Qty\n0,A-100,Lamp,1\n1,A-110,Base,1\n2,A-111,Screw,4\n")
        for command in re.search(r"material:\n\n((?:    velrzm .*\n)+)", readme)[1].splitlines():
            code, answer = self.do_shell(command)
            self.assertEqual(code, 0, answer)
            if "item query" in command:
                self.assertRegex(answer, "LAMP.*BASE.*SCREW")
