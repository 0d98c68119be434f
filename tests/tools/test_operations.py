# SPDX-License-Identifier: Apache-2.0
"""The operations as commands, in every form of output."""
import json
import os
import re
import subprocess
import unittest
import xml.etree.ElementTree

from command import CommandTest, REFUSED


class Operations(CommandTest):

    def setUp(self):
        super().setUp()
        self.done("init")
        self.done("ec", "create", "ec-1", "--name", "A \"quoted\", name")

    def item(self, number, *arguments):
        self.done("item", "create", number, "--ec", "EC-1", "--name", "part " + number, *arguments)

    def structure(self, *lines):
        for line in lines:
            self.done("component", "create", *line.split(), "--ec", "EC-1")

    def test_change_is_stored_and_read_back(self):
        change = self.json("ec", "open", "EC-1")
        self.assertEqual((change["id"], change["desc"], change["initiator@person_identifier"]),
                         ("EC-1", "A \"quoted\", name", "ada"))
        self.assertEqual(self.json("ec", "open", "--id", change["db_object_id"], "--select", "id,desc"),
                         {"id": "EC-1", "desc": "A \"quoted\", name"})
        self.assertEqual(self.csv("ec", "open", "EC-1", "--select", "desc,id"),
                         [{"desc": "A \"quoted\", name", "id": "EC-1"}])

    def test_refusals_are_told_and_give_no_result(self):
        self.assertIn("EC-9", self.refused("ec", "open", "EC-9"))
        self.refused("ec", "create", "EC-1")
        self.refused("affected", "list", "EC-9")
        self.refused("item", "save", "X-1", "--ec", "EC-1", "--set", "a=b")
        self.assertIn("nobody", self.refused("ec", "open", "EC-1", "--user", "nobody"))

    def test_search_without_match(self):
        run = self.run_command("item", "query", "NONE", "--format", "json")
        self.assertEqual((run.returncode, json.loads(run.stdout)), (REFUSED, []))
        self.assertIn("nothing was found", run.stderr)

    def test_item_life(self):
        self.item("a-1", "--type", "PART", "--set", "mass=120", "--set", "note=x=y, z")
        self.assertEqual(self.json("item", "open", "A-1", "--ec", "EC-1", "--select", "name,mass,note"),
                         {"name": "PART A-1", "mass": "120", "note": "x=y, z"})
        self.done("item", "save", "A-1", "--ec", "EC-1", "--set", "mass=115")
        self.assertEqual(self.json("item", "open", "A-1", "--ec", "EC-1", "--select", "name,mass"),
                         {"name": "PART A-1", "mass": "115"})
        self.done("affected", "create", "EC-1", "A-1", "--action", "rel")
        self.assertEqual(self.json("affected", "list", "EC-1", "--select", "item_number,change_action@curr_key"),
                         [{"item_number": "A-1", "change_action@curr_key": "REL"}])
        self.assertEqual([row["name"] for row in self.csv("item", "query", "A", "--ec", "EC-1")], ["PART A-1"])
        self.done("item", "link", "A-1", "4711", "--ec", "EC-1")
        self.assertEqual(self.json("item", "link", "A-1", "--ec", "EC-1")["alias_xref"], "4711")

    def test_long_values_are_whole_in_json_and_csv(self):
        value = "long, \"value\"\nof two lines " * 100
        self.item("A-1", "--set", "note=" + value)
        arguments = ("item", "open", "A-1", "--ec", "EC-1", "--select", "note")
        self.assertEqual(self.json(*arguments), {"note": value})
        self.assertEqual(self.csv(*arguments), [{"note": value}])

    def test_print_list_is_read_by_the_library(self):
        for number in ("A-1", "A-2"):
            self.item(number, "--set", "empty=")
            self.done("affected", "create", "EC-1", number)
        path = self.directory / "print.txt"
        path.write_text(self.done("affected", "list", "EC-1", "--select", "item_number,item_status,missing",
                                  "--format", "printlist"))
        dump = subprocess.run([os.environ["PRINT_LIST_DUMP"], path, "item_number", "item_status", "missing"],
                              env=self.environment, text=True, stdout=subprocess.PIPE, check=True)
        self.assertEqual(dump.stdout.splitlines(), ["A-1|WORKING|", "A-2|WORKING|"])

    def test_trace_and_results_are_apart(self):
        run = self.run_command("ec", "open", "EC-1", "--trace", "9", "--format", "json")
        self.assertEqual(json.loads(run.stdout)["id"], "EC-1")
        self.assertIn("EngineeringChangeOpen-----Start", run.stderr)
        self.assertIn("QvConnect --- ", run.stderr)
        quiet = self.run_command("ec", "open", "EC-1", "--format", "json")
        self.assertEqual((quiet.stdout, quiet.stderr), (run.stdout, ""))

    def test_logs_stay_out_of_the_working_directory_unless_named(self):
        self.refused("ec", "open", "EC-9")
        self.assertFalse((self.directory / "QVL_LOG_ERROR").exists())
        self.environment["QVL_LOG_ERROR"] = "error.log"
        self.environment["QVL_LOG_FILE"] = "access.log"
        self.refused("ec", "open", "EC-9")
        self.assertIn("EC-9", (self.directory / "error.log").read_text())
        self.assertIn("EngineeringChangeOpen- rc(QV_Open_Object) = -210",
                      (self.directory / "access.log").read_text().splitlines())

    def test_structures(self):
        for number in "ABCD":
            self.item(number)
        self.structure("A B 10", "A B 20", "A C 30", "B D 10", "B D 20", "C D 10")
        self.assertEqual([(row["level"], row["item_number"], row["comp_item_number"], row["comp_seq_nm"])
                          for row in self.csv("bom", "explode", "A", "--level", "1")],
                         [("1", "A", "B", "10"), ("1", "A", "B", "20"), ("1", "A", "C", "30")])
        self.assertEqual([line.split() for line in self.done("bom", "tree", "A").splitlines()[1:]],
                         [["A", "1"], ["├─B", "2", "PART", "B"], ["│", "└─D", "2", "PART", "D"],
                          ["└─C", "1", "PART", "C"], ["└─D", "1", "PART", "D"]])
        self.assertEqual({row["item_number"]: row["quantity"] for row in self.json("bom", "flat", "A")},
                         {"B": "2", "C": "1", "D": "5"})
        self.assertEqual([(row["level"], row["item_number"], row["quantity"])
                          for row in self.json("bom", "where-used", "D")],
                         [("0", "D", "1"), ("1", "B", "2"), ("2", "A", "2"), ("1", "C", "1"), ("2", "A", "1")])
        self.refused("component", "create", "D", "A", "10", "--ec", "EC-1")  # it would contain itself

    def graph(self, *arguments):
        """The labels of the nodes, and the edges between them with theirs."""
        text = self.done("bom", "tree", *arguments, "--format", "dot")
        nodes = dict(re.findall(r'^  (n\d+) \[label="((?:[^"\\]|\\.)*)"', text, re.MULTILINE))
        edges = re.findall(r'^  (n\d+) -> (n\d+) \[label="(\d+)"\]$', text, re.MULTILINE)
        return list(nodes.values()), [(nodes[above][0], nodes[below][0], number) for above, below, number in edges]

    def test_graph(self):
        for number in "ABCD":
            self.item(number)
        self.structure("A B 10", "A B 20", "A C 30", "B D 10", "B D 20", "C B 10")
        nodes, edges = self.graph("A")
        self.assertEqual(sorted(nodes), [f"{item}\\nPART {item}" for item in "ABCD"])
        self.assertEqual(sorted(edges), [("A", "B", "2"), ("A", "C", "1"), ("B", "D", "2"), ("C", "B", "1")])
        self.assertEqual(sorted(self.graph("A", "--level", "1")[1]), [("A", "B", "2"), ("A", "C", "1")])
        self.refused("bom", "tree", "D", "--format", "dot")
        self.wrong("bom", "explode", "A", "--format", "dot")

    def test_picture_shows_any_text_as_it_is(self):
        names = ["SAY \"HI\" \\N \\", "<B> &#60; {X}|Y", "GRÜN\nZWEI"]
        for number, name in zip("ABC", names):
            self.done("item", "create", number, "--ec", "EC-1", "--name", name)
        self.structure("A B 10", "B C 10", "B C 20")
        picture = xml.etree.ElementTree.fromstring(self.done("bom", "tree", "A", "--format", "svg"))
        shown = [text.text for text in picture.iter("{http://www.w3.org/2000/svg}text")]
        for text in ("A", "B", "C", "1", "2", names[0], names[1], "GRÜN", "ZWEI"):
            self.assertIn(text, shown)
        self.environment["PATH"] = str(self.directory)
        complaint = self.refused("bom", "tree", "A", "--format", "svg")
        self.assertIn("apt install graphviz", complaint)
        (self.directory / "dot").write_text("#!/bin/sh\necho half\nexit 3\n")
        (self.directory / "dot").chmod(0o755)
        self.assertIn("status 3", self.refused("bom", "tree", "A", "--format", "svg"))

    def test_comparison(self):
        for number in "ABCDX":
            self.item(number)
        self.structure("A B 10", "A B 20", "A C 30", "C D 10", "X B 10", "X C 20", "X D 30")
        self.assertEqual([tuple(row.values()) for row in self.csv("bom", "compare", "A", "X")],
                         [("changed", "", "B", "2", "1"), ("added", "", "D", "0", "1")])
        self.assertEqual(self.json("bom", "compare", "A", "A"), [])

    def test_document_life(self):
        document = self.json("doc", "create", "Drawing", "--ec", "EC-1")
        number, revision = document["doc_revision@doc_number"], document["doc_revision@doc_rev_num"]
        self.done("doc", "checkout", number, revision)
        self.assertIn("ada", self.refused("doc", "checkout", number, revision))
        self.done("doc", "checkin", number, revision)
        revised = self.json("doc", "revise", number, revision, "--title", "Drawing 2", "--ec", "EC-1")
        self.assertNotEqual(revised["doc_revision@doc_rev_num"], revision)
        self.assertEqual(self.json("doc", "last", number)["doc_revision@doc_rev_num"],
                         revised["doc_revision@doc_rev_num"])
        self.assertEqual(self.json("doc", "open", number, revised["doc_revision@doc_rev_num"],
                                   "--select", "doc_revision@doc_title"), {"doc_revision@doc_title": "Drawing 2"})


if __name__ == "__main__":
    unittest.main()
