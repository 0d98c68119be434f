# SPDX-License-Identifier: Apache-2.0
"""The manual: a page for the program and each of its commands, which the formatter takes without a warning."""
import re
import shutil
import subprocess
import unittest

from command import CommandTest


class Manual(CommandTest):

    def setUp(self):
        super().setUp()
        self.pages = self.directory / "man1"
        self.pages.mkdir()
        self.done("manual", str(self.pages))

    def test_every_command_has_its_place(self):
        commands = [line.split("  ")[1] for line in self.done("help", "--all").splitlines() if re.match(r"  \S", line)]
        self.assertGreater(len(commands), 50)
        names = {command.split()[0] for command in commands}
        self.assertEqual({page.name for page in self.pages.iterdir()}, {"velrzm.1", *(f"velrzm-{name}.1" for name in names)})
        for command in commands:
            page = (self.pages / f"velrzm-{command.split()[0]}.1").read_text().replace("\\-", "-")
            self.assertIn(f'.SY "velrzm {command}"', page)
            for option in re.findall(r"^  (--[\w-]+)", self.done(*command.split(), "--help"), re.MULTILINE):
                self.assertIn(f"\n\\fB{option}", page, command)
        self.assertIn("velrzm.1", self.refused("manual", "nowhere"))

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_pages_are_well_formed(self):
        shown = {}
        for page in self.pages.iterdir():
            run = subprocess.run(["groff", "-ww", "-man", "-Tascii", "-P-cbou", page], env=self.environment, text=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=True, timeout=60)
            shown[page.name] = " ".join(run.stdout.split())
            self.assertEqual(run.stderr, "", page)
            self.assertRegex(shown[page.name], r"SYNOPSIS velrzm .*DESCRIPTION .*OPTIONS .*EXIT STATUS .*"
                                               r"ENVIRONMENT .*EXAMPLES .*SEE ALSO ")
        for text in ("velrzm-item - Create, change, show and search items",
                     "velrzm item open [--ec CHANGE] [--all] [--select NAME,...]... ITEM",
                     "--name Bracket --type PART --set mass_g=120"):
            self.assertIn(text, shown["velrzm-item.1"])
