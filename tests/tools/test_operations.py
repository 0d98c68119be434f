# SPDX-License-Identifier: Apache-2.0
"""The operations as commands, in every form of output."""
import os
import re
import subprocess
import unittest
import xml.etree.ElementTree

from command import CommandTest, DONE, REFUSED


class Operations(CommandTest):

    def setUp(self):
        super().setUp()
        self.done("init")
        self.done("ec", "create", "ec-1", "--name", "A \"quoted\", name")

    def item(self, number, *arguments):
        self.done("item", "create", number, "--ec", "EC-1", "--name", "part " + number, *arguments)

    def structure(self, *lines):
        for number in sorted({item for line in lines for item in line.split()[:2]}):
            self.item(number)
        for line in lines:
            self.done("component", "create", *line.split(), "--ec", "EC-1")

    def rows(self, *arguments):
        return [tuple(row.values()) for row in self.csv(*arguments)]

    def test_change_is_stored_and_read_back(self):
        change = self.json("ec", "open", "EC-1")
        self.assertEqual((change["id"], change["desc"], change["initiator@person_identifier"]),
                         ("EC-1", "A \"quoted\", name", "ada"))
        self.assertEqual(self.json("ec", "open", "--id", change["db_object_id"], "--select", "id,desc"),
                         {"id": "EC-1", "desc": "A \"quoted\", name"})
        self.assertIn("EC-9", self.refused("ec", "open", "EC-9"))
        for line in ("ec create EC-1", "affected list EC-9", "item save X-1 --ec EC-1 --set a=b"):
            self.refused(*line.split())
        self.assertIn("nobody", self.refused("ec", "open", "EC-1", "--user", "nobody"))
        run = self.run_command("item", "query", "NONE", "--format", "json")
        self.assertEqual((run.returncode, run.stdout), (REFUSED, "[]\n"))
        self.assertIn("nothing was found", run.stderr)

    def test_item_life(self):
        text = "long, \"value\"\nof two lines, x=y " * 100
        self.item("a-1", "--type", "PART", "--set", "mass=120", "--set", "note=" + text)
        self.done("item", "save", "A-1", "--ec", "EC-1", "--set", "mass=115")
        expected = {"name": "PART A-1", "mass": "115", "note": text}
        arguments = ("item", "open", "A-1", "--ec", "EC-1", "--select", "name,mass,note")
        self.assertEqual(self.json(*arguments), expected)
        self.assertEqual(self.csv(*arguments), [expected])
        self.done("affected", "create", "EC-1", "A-1", "--action", "rel")
        self.assertEqual(self.rows("affected", "list", "EC-1", "--select", "item_number,change_action@curr_key"),
                         [("A-1", "REL")])
        self.assertEqual(self.rows("item", "query", "A", "--ec", "EC-1", "--select", "name"), [("PART A-1",)])
        self.done("item", "link", "A-1", "4711", "--ec", "EC-1")
        self.assertEqual(self.json("item", "link", "A-1", "--ec", "EC-1")["alias_xref"], "4711")

    def test_print_list_is_read_by_the_library(self):
        self.item("A-1")
        self.item("A-2", "--set", "note=two\nlines")
        names = ("logical_key@item_number", "note")
        query = ("item", "query", "A", "--in-development", "--select", ",".join(names))
        self.file("list", self.done(*query, "--format", "printlist"))
        dump = subprocess.run([os.environ["PRINT_LIST_DUMP"], "list", *names], cwd=self.directory, text=True,
                              env=self.environment, stdout=subprocess.PIPE, check=True)
        self.assertEqual(dump.stdout.splitlines(), ["A-1|", "A-2|two"])

    def test_trace_results_and_logs_are_apart(self):
        run = self.run_command("ec", "open", "EC-1", "--trace", "9")
        self.assertIn("EngineeringChangeOpen-----Start", run.stderr)
        self.assertIn("QvConnect --- ", run.stderr)
        quiet = self.run_command("ec", "open", "EC-1")
        self.assertEqual((quiet.returncode, quiet.stdout, quiet.stderr), (DONE, run.stdout, ""))
        self.refused("ec", "open", "EC-9")
        self.assertFalse((self.directory / "QVL_LOG_ERROR").exists())
        self.environment.update(QVL_LOG_ERROR="error.log", QVL_LOG_FILE="access.log")
        self.refused("ec", "open", "EC-9")
        self.assertIn("EC-9", (self.directory / "error.log").read_text())
        self.assertIn("EngineeringChangeOpen- rc(QV_Open_Object) = -210\n", (self.directory / "access.log").read_text())

    def test_structures(self):
        self.structure("A B 10", "A B 20", "A C 30", "B D 10", "B D 20", "C D 10", "X B 10", "X C 20", "X D 30")
        self.assertEqual(self.rows("bom", "explode", "A", "--level", "1", "--select",
                                   "level,item_number,comp_item_number,comp_seq_nm"),
                         [("1", "A", "B", "10"), ("1", "A", "B", "20"), ("1", "A", "C", "30")])
        self.assertEqual([line.split() for line in self.done("bom", "tree", "A").splitlines()[1:]],
                         [["A", "1"], ["├─B", "2", "PART", "B"], ["│", "└─D", "2", "PART", "D"],
                          ["└─C", "1", "PART", "C"], ["└─D", "1", "PART", "D"]])
        self.assertEqual(self.rows("bom", "flat", "A"), [("B", "PART B", "2"), ("C", "PART C", "1"), ("D", "PART D", "5")])
        self.assertEqual([row[:3] for row in self.rows("bom", "where-used", "B")],
                         [("0", "B", "1"), ("1", "A", "2"), ("1", "X", "1")])
        self.assertEqual([row[:3] for row in self.rows("bom", "where-used", "D")],
                         [("0", "D", "1"), ("1", "B", "2"), ("2", "A", "2"), ("2", "X", "1"), ("1", "C", "1"),
                          ("2", "A", "1"), ("2", "X", "1"), ("1", "X", "1")])
        self.assertEqual(self.rows("bom", "compare", "A", "X"),
                         [("changed", "", "B", "2", "1"), ("added", "", "D", "0", "1")])
        self.assertEqual(self.json("bom", "compare", "A", "A"), [])
        self.refused("component", "create", "D", "A", "10", "--ec", "EC-1")  # it would contain itself

    def graph(self, *arguments):
        """The labels of the nodes, and the edges between them with theirs."""
        text = self.done("bom", "tree", *arguments, "--format", "dot")
        nodes = dict(re.findall(r'^  (n\d+) \[label="((?:[^"\\]|\\.)*)"', text, re.MULTILINE))
        edges = re.findall(r'^  (n\d+) -> (n\d+) \[label="(\d+)"\]$', text, re.MULTILINE)
        return sorted(nodes.values()), sorted(nodes[above][0] + nodes[below][0] + number for above, below, number in edges)

    def test_graph(self):
        self.structure("A B 10", "A B 20", "A C 30", "B D 10", "B D 20", "C B 10")
        self.assertEqual(self.graph("A"), ([f"{item}\\nPART {item}" for item in "ABCD"], ["AB2", "AC1", "BD2", "CB1"]))
        self.assertEqual(self.graph("A", "--level", "1")[1], ["AB2", "AC1"])
        self.refused("bom", "tree", "D", "--format", "dot")
        self.wrong("bom", "explode", "A", "--format", "dot")

    def test_picture_shows_any_text_as_it_is(self):
        self.structure("A B 10", "B C 10", "B C 20")
        names = ["SAY \"HI\" \\N \\", "<B> &#60; {X}|Y", "GRÜN\nZWEI"]
        for number, name in zip("ABC", names):
            self.done("item", "save", number, "--ec", "EC-1", "--name", name)
        picture = xml.etree.ElementTree.fromstring(self.done("bom", "tree", "A", "--format", "svg"))
        shown = [text.text for text in picture.iter("{http://www.w3.org/2000/svg}text")]
        self.assertLessEqual({"A", "B", "C", "1", "2", names[0], names[1], "GRÜN", "ZWEI"}, set(shown))
        self.environment["PATH"] = str(self.directory)
        self.assertIn("apt install graphviz", self.refused("bom", "tree", "A", "--format", "svg"))
        self.file("dot", "#!/bin/sh\necho half\nexit 3\n")
        (self.directory / "dot").chmod(0o755)
        self.assertIn("status 3", self.refused("bom", "tree", "A", "--format", "svg"))

    def test_document_life(self):
        document = self.json("doc", "create", "Drawing", "--ec", "EC-1")
        number, revision = document["doc_revision@doc_number"], document["doc_revision@doc_rev_num"]
        self.done("doc", "checkout", number, revision)
        self.assertIn("ada", self.refused("doc", "checkout", number, revision))
        self.done("doc", "checkin", number, revision)
        revised = self.json("doc", "revise", number, revision, "--title", "Drawing 2", "--ec", "EC-1")
        newest = revised["doc_revision@doc_rev_num"]
        self.assertNotEqual(newest, revision)
        self.assertEqual(self.json("doc", "last", number)["doc_revision@doc_rev_num"], newest)
        self.assertEqual(self.json("doc", "open", number, newest, "--select", "doc_revision@doc_title"),
                         {"doc_revision@doc_title": "Drawing 2"})


if __name__ == "__main__":
    unittest.main()
