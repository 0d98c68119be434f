# SPDX-License-Identifier: Apache-2.0
"""Parts lists: import, export, and batches of commands."""
import csv
import io
import json
import pathlib
import re
import subprocess
import unittest

from command import COMMAND, CommandTest, DONE, REFUSED


class PartsList(CommandTest):

    def setUp(self):
        super().setUp()
        self.new_store("store.db")

    def new_store(self, path):
        self.environment["QV_STORE"] = "sqlite:" + path
        self.done("init")
        self.done("ec", "create", "EC-1")

    def import_file(self, text, *arguments):
        return self.done("import", self.file("parts.csv", text), "--ec", "EC-1", *arguments)

    def refused_import(self, text, *arguments):
        """The complaints about a file of which nothing may be stored."""
        complaint = self.refused("import", self.file("parts.csv", text), "--ec", "EC-1", *arguments)
        self.assertEqual(self.run_command("item", "query", "", "--in-development", "--format", "csv").stdout.count("\n"), 1)
        return complaint

    def item(self, number, names):
        return self.json("item", "open", number, "--ec", "EC-1", "--select", names)

    def tree(self, item):
        return [(row["level"], row["item_number"], row["quantity"]) for row in self.csv("bom", "tree", item)]

    def test_levels_in_both_forms_give_the_same_structure(self):
        expected = [("0", "A", "1"), ("1", "B", "2"), ("2", "D", "3"), ("1", "C", "1"), ("2", "D", "1")]
        for form, levels in (("plain", "01212"), ("dotted", ["1", "1.1", "1.1.1", "1.2", "1.2.1"])):
            self.new_store(form + ".db")
            rows = zip(levels, "ABDCD", "12311")
            self.import_file("level,item_number,quantity\n" + "".join(",".join(row) + "\n" for row in rows))
            self.assertEqual(self.tree("A"), expected)
            self.assertEqual([row["comp_seq_nm"] for row in self.csv("bom", "explode", "A", "--level", "1")],
                             ["10", "20", "30"])

    def test_real_file(self):
        self.import_file("\ufeffPart No,Part Name,Qty,Assy,Colour\r\n"
                         "p-1,\"Bügel, \"\"groß\"\"\",2,,red\r\n"
                         "\r\n"
                         "p-2,\"two\nlines\",1,p-1,\r\n",
                         "--map", "item_number=Part No,name=Part Name,quantity=Qty,parent=Assy", "--top", "top",
                         "--attributes")
        self.assertEqual(self.tree("TOP"), [("0", "TOP", "1"), ("1", "P-1", "2"), ("2", "P-2", "1")])
        part = self.item("P-1", "name,colour")
        self.assertEqual((part["colour"], part["name"].startswith("B"), "GRO" in part["name"]), ("red", True, True))
        self.assertEqual(self.item("P-2", "name"), {"name": "TWO\nLINES"})

    def run_import(self, content, *arguments):
        (self.directory / "list.csv").write_bytes(content if isinstance(content, bytes) else content.encode())
        return self.run_command("import", "list.csv", "--ec", "EC-1", *arguments)

    def test_what_a_file_may_look_like(self):
        bolts = [("0", "A", "1"), ("1", "B", "7"), ("1", "C", "1")]
        plain = "level,item_number,quantity\n0,A,1\n1,B,7\n1,C,1\n"
        for number, (content, arguments, told) in enumerate((
                ("Level,Item_Number,QTY,Remark\n0,a,1,x\n1,b,7,\n1,c,,\n", (), 'not used: "Remark"'),
                ("LVL;Part No;Count\n0;A;1.0\n1;B;7,00\n1;C;1\n;;\n;;\n", (), '"Part No" is item_number'),
                ("Machine 7\n\nlevel\tpart number\tqty\n0\tA\t1\n1\tB\t7\n1\tC\t1\n", (), "title"),
                ("a,b,c\n1,2,3\n" + plain, ("--skip", "2"), "level"),
                ("parent,item,qty\nA,B,7\nA,C,\n,A,\n", (), "parent"),
                (plain.replace("0,A,1", "0,A,1\n1,D,2.5 m"), ("--not-countable", "skip"), "1 row without"),
                (plain.replace("1,B,7", "1,B,1\n1,b,6"), (), '"B" in line 3 and "b" in line 4 are one item'))):
            with self.subTest(content):
                self.new_store(f"look{number}.db")
                run = self.run_import(content, *arguments)
                self.assertEqual(run.returncode, DONE, run.stderr)
                self.assertIn(told, run.stderr)
                self.assertEqual(self.tree("A"), bolts)
        self.new_store("latin.db")
        run = self.run_import("item_number,name\nA,Träger\n".encode("latin1"), "--top", "T", "--encoding", "latin1")
        self.assertEqual((run.returncode, self.item("A", "name")["name"][:2]), (DONE, "TR"))
        piped = subprocess.run([COMMAND, "import", "-", "--ec", "EC-1"], cwd=self.directory, env=self.environment, check=False,
                               input=plain.replace("A", "P"), text=True, capture_output=True)
        self.assertEqual((piped.returncode, self.tree("P")[0]), (DONE, ("0", "P", "1")), piped.stderr)

    def test_what_is_refused(self):
        head = "level,item_number,quantity\n0,A,1\n"
        for content, told in (
                (head + "1,B,1000000\n", 'list.csv:3: column "quantity": the quantity "1000000" is more than a row may stand for, 999999'),
                (head + "1,B,A/R\n", "not-countable"), (head + "1,B,1.000\n", "may mean"), (head + "1,B,0\n", "is 0"),
                (head + "1,B,x\n2,C,1\n", "list.csv:4: the row above it, line 3, is refused"),
                (head + "1," + 45 * "B" + ",1\n", "45 characters"), (head + "1,B'C,1\n", "apostrophe"),
                (head + '1,"B,1\n1,C"x,1\n1,"D"y,1\n', "list.csv:5: the quotes"),
                ("level,item_number,Item Number\n0,A,B\n", "have one name"),
                ("parent,item,qty\n,TOP,1\nTOP,ASM,1\nASN,BOLT,4\n", "did you mean ASM?"),
                (b"level,item_number,name\n0,A,x\n1,B,\xe4\n", "list.csv:3: byte 5 is not utf-8"),
                (b"level,item_number\n0,A\x00\n", "list.csv:2: byte 4 is NUL")):
            with self.subTest(content):
                run = self.run_import(content, "--rejects", "rejects.csv")
                self.assertNotEqual(run.returncode, DONE)
                self.assertIn(told, run.stderr)
                stored = self.run_command("item", "query", "", "--in-development", "--format", "csv").stdout
                self.assertLessEqual(stored.count("\n"), 1)
        self.run_import(head + "1,B,2.5\n1,C,1\n", "--rejects", "rejects.csv")
        rejects = (self.directory / "rejects.csv").read_text().splitlines()
        self.assertEqual((rejects[0], rejects[1][:8], len(rejects)), ('level,item_number,quantity,"reason"', '1,B,2.5,', 2))
        self.assertIn("Is a directory", self.refused("import", ".", "--ec", "EC-1"))
        complaint = self.refused("import", self.file("many.csv", "item\n" + "".join(f"N{i}\n" for i in range(99))),
                                 "--ec", "EC-9", "--top", "T")
        self.assertEqual(complaint.count("EC-9"), 2)  # the number and the command that makes it

    def test_a_list_that_is_imported_again(self):
        first = "item,qty,name\nA,1,one\nB,1,two\nC,2,\n"
        again = "item,qty,name\nNEW,1,\nA,1,uno\nC,1,\n"
        self.import_file(first, "--top", "TOP")
        self.assertIn("TOP has 4 component lines", self.refused("import", self.file("again.csv", again), "--ec", "EC-1", "--top", "TOP"))
        top = ("again.csv", "--ec", "EC-1", "--top", "TOP")
        shown = self.run_command("import", *top, "--update", "--dry-run")
        self.assertEqual([line.split() for line in shown.stdout.splitlines()[1:4]],
                         [["added", "TOP", "NEW", "1"], ["removed", "TOP", "B", "1"], ["removed", "TOP", "C", "1"]])
        self.assertIn('the name "ONE", here "UNO"', shown.stderr)
        self.assertEqual(len(self.tree("TOP")), 4)
        self.done("import", *top, "--update")
        expected = [("0", "TOP", "1"), ("1", "A", "1"), ("1", "C", "1"), ("1", "NEW", "1")]
        self.assertEqual(self.tree("TOP"), expected)
        self.assertEqual(self.item("A", "name"), {"name": "UNO"})
        self.assertIn("0 items and 0 component lines", self.done("import", *top, "--update"))
        self.done("import", *top, "--add")
        self.assertEqual([quantity for _, _, quantity in self.tree("TOP")], ["1", "2", "2", "2"])
        self.assertEqual(len(self.csv("item", "query", "", "--ec", "EC-1")), 5, "the change acts on all of them")

    def test_the_readme_from_nothing_to_a_bill_of_material(self):
        readme = (pathlib.Path(__file__).parents[2] / "README.md").read_text(encoding="utf-8")
        commands = re.search(r"material:\n\n((?:    velrzm .*\n)+)", readme).group(1).splitlines()
        self.environment["QV_STORE"] = "sqlite:readme.db"
        self.file("parts.csv", "Level,Part,Part Name,Qty\n0,A-100,Lamp,1\n1,A-110,Base,1\n2,A-111,Screw,4\n")
        for command in commands:
            run = subprocess.run(["bash", "-c", f'velrzm() {{ "{COMMAND}" "$@"; }}; {command}'], cwd=self.directory,
                                 env=self.environment, text=True, capture_output=True, check=False)
            self.assertEqual(run.returncode, DONE, f"{command}\n{run.stderr}")
            if "item query" in command:
                self.assertEqual([row["name"] for row in json.loads(run.stdout)], ["LAMP", "BASE", "SCREW"])

    def test_export_gives_the_same_tree_in_another_store(self):
        lines = "".join(f"{i % 3 + 1},{'X' if i % 3 else 'Y'}-{i},name {i},{i % 4 + 1}\n" for i in range(120))
        self.import_file("level,item_number,name,quantity\n" + lines, "--top", "M")
        exported = self.done("export", "M")
        tree = self.tree("M")
        self.assertEqual(len(tree), 121)
        self.new_store("second.db")
        self.import_file(exported)
        self.assertEqual(self.tree("M"), tree)
        self.assertEqual(self.done("export", "M"), exported)

    def test_export_takes_item_attributes_along(self):
        self.import_file("level,item_number,name,item_type,quantity,mass_g,Remark\n"
                         "0,TOP,the top,ASSEMBLY,1,,\"says \"\"hi\"\", x=y\"\n"
                         "1,A,,,2,120,\"two\nlines\"\n"
                         "2,B,\"Bügel, groß\",PART,3,7,\n"
                         "1,B,\"Bügel, groß\",PART,1,7,\n", "--attributes")
        export = ("export", "TOP", "--attributes", "mass_g,remark,master_item@control")
        exported = self.done(*export)
        rows = {row["item_number"]: row for row in csv.DictReader(io.StringIO(exported))}
        self.assertEqual(rows["TOP"]["remark"], "says \"hi\", x=y")
        self.assertEqual([rows["B"][name] for name in ("item_type", "mass_g", "remark", "master_item@control")],
                         ["PART", "7", "", "1"])
        self.new_store("second.db")
        self.import_file(exported, "--attributes")
        self.assertEqual(self.done(*export), exported)
        for item in ("TOP", "A", "B"):
            self.assertEqual(self.item(item, "name,item_type,mass_g,remark").items() - rows[item].items(), set())
        for attributes in ("name", "mass_g,mass_g", "Mass"):  # columns that import would take for something else
            self.wrong("export", "TOP", "--attributes", attributes)

    def test_repeated_assembly_is_stored_once(self):
        self.assertIn("parts.csv:7:", self.refused_import("level,item_number\n0,F\n1,G\n2,H\n1,I\n2,G\n3,J\n"))
        self.import_file("level,item_number\n0,A\n1,B\n2,C\n2,D\n1,E\n2,B\n3,C\n3,D\n")
        self.assertEqual({row["item_number"]: row["quantity"] for row in self.csv("bom", "flat", "A")},
                         {"B": "2", "C": "2", "D": "2", "E": "1"})

    def test_refused_rows_are_told_and_nothing_is_stored(self):
        complaint = self.refused_import("level,item_number,name,quantity\n0,A,top,1\n1,B,one,2.5\n3,C,two,1\n"
                                        "1,,three,1\nx,D,four,1\n1,B,other,1\n1,E\n")
        for line in (3, 4, 5, 6, 8):
            self.assertIn(f"parts.csv:{line}: ", complaint)
        self.assertIn("parts.csv:3: ", self.refused_import("level,item_number\n0,A\n1,\"B\n1,C\n"))
        self.assertIn("parts.csv:5: ", self.refused_import("parent,item_number\n,A\nA,B\nB,C\nC,A\n"))  # of the server
        self.environment["QV_MULTI_SAVE"] = "OFF"
        self.refused_import("parent,item_number\n,A\nA,A\n")
        good = "level,item_number,quantity\n0,A,1\n1,B,3\n"
        self.assertIn("2 items and 3 component lines", self.import_file(good, "--dry-run"))
        self.refused("item", "open", "A", "--ec", "EC-1")
        self.assertIn("EC-9", self.refused("import", "parts.csv", "--ec", "EC-9"))

    def test_keep_going_stores_the_good_rows(self):
        self.refused("import", self.file("parts.csv", "level,item_number,quantity\n0,A,1\n1,B,none\n1,C,1\n"), "--ec",
                     "EC-1", "--keep-going")
        self.assertEqual(self.tree("A"), [("0", "A", "1"), ("1", "C", "1")])

    def test_mapping_that_does_not_fit(self):
        name = self.file("parts.csv", "Part,Qty\nA,1\n")
        for mapping in ("item_number=Missing", "nonsense=Part", "item_number"):
            self.wrong("import", name, "--ec", "EC-1", "--map", mapping)
        self.assertIn("\"Part\"", self.wrong("import", name, "--ec", "EC-1"))

    def test_batch(self):
        self.file("good", "# a comment\nitem create A --ec EC-1 --name 'the \"first\"'\n\n"
                          "item open A --ec EC-1 --select name\n")
        self.assertIn("THE \"FIRST\"", self.done("batch", "good"))
        self.file("bad", "item create B --ec EC-1\nitem create A --ec EC-1\nitem create C --ec EC-1\n")
        run = self.run_command("batch", "bad", "--multi-save")
        self.assertEqual(run.returncode, REFUSED)
        self.assertIn("bad:2: ", run.stderr)
        self.refused("item", "open", "B", "--ec", "EC-1")
        self.run_command("batch", "bad")
        self.done("item", "open", "B", "--ec", "EC-1")
        self.refused("item", "open", "C", "--ec", "EC-1")
        for line in ("item create 'A", "nonsense", "ec open EC-1 --user other", "batch good"):
            self.assertIn("wrong:1: ", self.wrong("batch", self.file("wrong", line + "\n")))


if __name__ == "__main__":
    unittest.main()
