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
                ("ec open EC-1 --trace much", '"much" is not a whole number'), ("help import extra", '"extra" is one word too many'),
                ("component create A B abc", '"abc" is not a whole number of at least 0'),
                ("bom tree A --level -1", '"-1" is not a whole number of at least 0'),
                ("item open A'1", "has an apostrophe"), ("bom tree A'1", "has an apostrophe"),
                ("item query --name O'X", "has an apostrophe"), ("export A --format json", "--format does not apply"),
                ("--format json completion bash", "--format does not apply")):
            complaint = self.wrong(*line.split())
            self.assertIn(told, " ".join(complaint.split()))
            self.assertRegex(complaint, r'See "velrzm( \w+){0,2} --help"\.\n$')
            self.assertLessEqual(max(map(len, complaint.splitlines())), 80)
        for line in ("bom compare A-1", "bom explode A-1 --level x", "item create A-1 --set mass", "item create A-1 --set =1"):
            self.assertIn(line.split()[-1], self.wrong(*line.split()))
        for line in ("", "bom"):
            self.assertIn("a command is missing", self.wrong(*line.split()))
            self.assertIn(self.done(*line.split(), "--help"), self.wrong(*line.split()))

    def test_a_terminal_is_shown_what_it_would_obey(self):
        self.done("init")
        self.done("ec", "create", "EC-1")
        obeyed = {"\033[31m": "\\u001b[31m", "\u009b": "\\u009b", "\u202e": "\\u202e", "\a": "\\u0007"}
        number, name = "A-1", "".join(obeyed)
        self.done("item", "create", number, "--ec", "EC-1", "--set", "note=" + name)
        select = ("item", "open", number, "--ec", "EC-1", "--select", "note")
        self.environment["NO_COLOR"] = "1"
        for arguments in (*((*select, "--format", form) for form in ("table", "csv", "json", "printlist")),
                          ("item", name), ("item", "open", name), ("ec", "open", name, "--trace", "9")):
            shown = self.on_terminal([], *arguments)[1]
            for sign, written in obeyed.items():
                self.assertNotIn(sign, shown, arguments)
                self.assertIn(written.lower(), shown.lower(), arguments)
        self.assertEqual(self.json(*select)["note"], name)  # which is no terminal's business

    def test_tables_cut_names_and_never_numbers(self):
        self.done("init")
        self.done("ec", "create", "EC-1")
        numbers = [f"7502-000006-A0{i}-{'X' * 12}" for i in range(3)]
        for i, number in enumerate(numbers):
            self.done("item", "create", number, "--ec", "EC-1", "--name", f"A LONG NAME 漢字 OF THE PART {i}")
        for above, below in zip(numbers, numbers[1:]):
            self.done("component", "create", above, below, "10", "--ec", "EC-1")
        for arguments in (("item", "query", "--in-development"), ("bom", "tree", numbers[0])):
            shown = self.on_terminal([], "--no-pager", *arguments, size=(24, 50))[1]
            self.assertEqual([number for number in numbers if number not in shown], [], arguments)
            self.assertIn("A LONG NAME…", shown)
        self.assertNotIn("…", self.done("item", "query", "--in-development"))

    def test_long_results_go_through_the_pager(self):
        self.environment["PAGER"] = "sed 's/^/paged '$LESS'/'"
        for arguments, size, paged in (("help",), (5, 80), True), (("help",), (200, 80), False), (("help", "--no-pager"), (5, 80), False):
            shown = self.on_terminal([], *arguments, size=size)[1]
            self.assertEqual("paged FRX" in shown, paged, arguments)
            self.assertIn("Usage: velrzm", shown)
        self.assertNotIn("paged", self.done("help"))
        self.environment["PAGER"] = "no-such-pager"
        self.assertIn("Usage: velrzm", self.on_terminal([], "help", size=(5, 80))[1])

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
