# SPDX-License-Identifier: Apache-2.0
"""Users, tables, defaults files, logs, and the look at all of it."""
import json
import unittest

from command import CommandTest, REFUSED


class Administration(CommandTest):

    def setUp(self):
        super().setUp()
        self.done("init")

    def problems(self, *arguments):
        """The rows of a command that finds something wrong, in the form in which it is told."""
        run = self.run_command(*arguments, "--format", "json")
        self.assertEqual(run.returncode, REFUSED)
        return json.loads(run.stdout)

    def test_users(self):
        self.file("secret", "another\n")
        self.done("user", "add", "bob", "--password-file", "secret")
        self.assertEqual([row["user"] for row in self.csv("user", "list")], ["ada", "bob"])
        self.done("ec", "create", "EC-1", "--user", "bob", "--password-file", "secret")
        self.refused("user", "add", "bob")
        self.done("user", "passwd", "bob")
        self.refused("ec", "create", "EC-2", "--user", "bob", "--password-file", "secret")
        self.done("user", "remove", "bob")
        self.refused("ec", "create", "EC-2", "--user", "bob")
        self.refused("user", "remove", "bob")

    def test_tables(self):
        self.done("load", "options", self.file("options.csv", "product,feature,variant\nBIKE,COLOUR,RED\n"))
        self.done("load", "packages", self.file("packages.csv", "product,package_id\nBIKE,TOURING\n"))
        self.done("load", "xlat", self.file("units.csv", "table,from,to\nUNITS,mm,MMT\n"))
        self.assertEqual(self.json("option", "list", "BIKE"), [{"product": "BIKE", "feature": "COLOUR", "variant": "RED"}])
        self.assertEqual(self.json("package", "list"), [{"product": "BIKE", "package_id": "TOURING"}])
        self.assertEqual(self.json("xlat", "show", "UNITS", "--table"), [{"from": "mm", "to": "MMT"}])
        self.file("My_QVL_RZM_DEFAULT", "XlatRead units UNITS\n")
        self.assertEqual(self.json("xlat", "show", "units"), [{"from": "mm", "to": "MMT"}])
        self.assertIn("options.csv", self.refused("load", "options", self.file("options.csv", "product\nBIKE\n")))

    def test_defaults_shown_are_those_that_are_used(self):
        self.file("QVL_RZM_DEFAULT", "# head\nEngineeringChangeCreate a 1\nEngineeringChangeCreate b 2 # why\n"
                                     "ItemCreate a 9\n")
        self.file("My_QVL_RZM_DEFAULT", "\nEngineeringChangeCreate b 3\nEngineeringChangeCreate c 4\n")
        shown = self.csv("defaults", "show", "EngineeringChangeCreate")
        self.assertEqual([tuple(row.values()) for row in shown],
                         [("a", "1", "./QVL_RZM_DEFAULT", "2"), ("b", "3", "./My_QVL_RZM_DEFAULT", "2"),
                          ("c", "4", "./My_QVL_RZM_DEFAULT", "3")])
        self.done("ec", "create", "EC-1")
        self.assertEqual(self.json("ec", "open", "EC-1", "--select", "a,b,c"),
                         {row["attribute"]: row["value"] for row in shown})
        self.refused("defaults", "show", "Nonsense")

    def test_defaults_check_finds_each_problem(self):
        limit = "".join(f"DocumentCheckIn a{i} 1\n" for i in range(20))
        self.file("checked", "# fine\nItemCreate item_type P\nItemcreate item_type P\nItemCreate colour\n"
                             "ItemCreate item_type Q\nItemCreate name X\nItemCreate note " + "x" * 60 + "\n" + limit)
        self.assertEqual(sorted({int(row["line"]) for row in self.problems("defaults", "check", "checked")}),
                         [3, 4, 5, 6, 7, 27])
        self.done("defaults", "check", self.file("good", "ItemCreate item_type P\n"))
        self.refused("defaults", "check")

    def test_defaults_check_counts_over_both_files(self):
        (self.directory / "site").mkdir()
        self.environment["RZM_DEFAULT_DIRECTORY"] = "site"
        self.file("site/QVL_RZM_DEFAULT", "".join(f"DocumentCheckIn a{i} 1\n" for i in range(18)))
        self.file("My_QVL_RZM_DEFAULT", "DocumentCheckIn a0 2\nDocumentCheckIn b 2\nDocumentCheckIn a1 2\n")
        self.done("defaults", "check")  # 19: what overrides is no further pair
        self.file("My_QVL_RZM_DEFAULT", "DocumentCheckIn a0 2\nDocumentCheckIn b 2\nDocumentCheckIn c 2\n")
        self.assertEqual([(row["file"], row["line"]) for row in self.problems("defaults", "check")],
                         [("./My_QVL_RZM_DEFAULT", "3")])
        self.done("defaults", "check", "My_QVL_RZM_DEFAULT")  # alone there are 3

    def test_defaults_without_effect_are_told(self):
        self.file("checked", "ItemCreate name X\nItemCreate design_loc_id X\nItemCreate item_type X\n"
                             "DocumentMakeECControlled doc_type X\nAffectedItemCreate item_number X\nXlatRead units X\n"
                             "ItemPUEffectivityCreate prod_id X\n")
        problems = {row["line"]: row["problem"] for row in self.problems("defaults", "check", "checked")}
        self.assertEqual(list(problems), ["1", "2", "4", "7"])
        self.assertIn("ItemCreate, ItemSave", problems["1"])
        self.assertNotIn("ItemSave", problems["2"])

    def test_log_tells_what_failed_and_with_what(self):
        self.environment["QVL_LOG_FILE"] = "access.log"
        self.file("commands", "ec create EC-1 --name x\nec open EC-1\nec open EC-7\n")
        self.run_command("batch", "commands")
        summary = {row["operation"]: row for row in self.csv("log", "summary", "access.log")}
        self.assertEqual([(name, row["failures"]) for name, row in summary.items()][:3],
                         [("QvConnect", "0"), ("EngineeringChangeCreate", "0"), ("EngineeringChangeOpen", "1")])
        failure, = self.csv("log", "failures", "access.log")
        self.assertEqual((failure["operation"], failure["call"], failure["code"], failure["inputs"]),
                         ("EngineeringChangeOpen", "QV_Open_Object", "-210", "db_object_id, id=EC-7"))
        self.assertIn("EC-7", failure["message"])
        log = (self.directory / "access.log").read_text().splitlines()
        self.assertIn("= -210", log[int(failure["line"]) - 1])
        self.refused("log", "summary", self.file("other", "no log\n"))
        self.refused("log", "summary", "missing")

    def everything(self):
        """All that there is to see of the directory, but for the files that an open store has beside it."""
        return {str(path): path.read_text() if path.is_file() and path.suffix != ".db" else ""
                for path in self.directory.rglob("*") if not path.name.startswith("store.db-")}

    def test_doctor_counts_and_leaves_nothing_behind(self):
        self.done("ec", "create", "EC-1", "--trace", "-1")
        for path in (self.directory / ".local/state/velrzm").iterdir():
            path.unlink()
        for path in (".local/state/velrzm", ".local/state", ".local"):
            (self.directory / path).rmdir()
        self.environment["QVL_LOG_FILE"] = self.file("access.log", "written before\n")
        self.file("QVL_RZM_DEFAULT", "")
        before = self.everything()
        rows = self.csv("doctor")
        self.assertEqual(self.everything(), before)
        states = {row["subject"]: row["state"] for row in rows}
        self.assertRegex(states["store"], r"format 1, [1-9]\d* KB, users: 1")
        self.assertEqual(int(states["objects"]), 0)
        self.assertIn(("objects", "EngineeringChange", "1"), [tuple(row.values()) for row in rows])
        for log, name in (("access log", "access.log"), ("error log", "QVL_LOG_ERROR"), ("last-error file", "QVL_LAST_ERROR")):
            row, = (row for row in rows if row["subject"] == log)
            self.assertEqual((row["state"], row["place"].rpartition("/")[2]), ("can be written", name))
        self.assertIn("is read", states["shared defaults"])
        self.assertEqual(states["local defaults"], "is not there")

    def test_doctor_tells_what_is_wrong(self):
        for name in ("My_QVL_RZM_DEFAULT", "folder"):
            (self.directory / name).mkdir()
        self.environment.update(QVL_LOG_FILE="/proc/nowhere/access.log", QVL_LOG_ERROR="folder",
                                QVL_LAST_ERROR="missing/last", QV_STORE="sqlite:missing.db",
                                RZM_DEFAULT_DIRECTORY="missing")
        before = self.everything()
        wrong = [row["subject"] for row in self.problems("doctor") if row["state"].startswith("PROBLEM")]
        self.assertEqual(wrong, ["store", "access log", "error log", "last-error file", "shared defaults", "local defaults"])
        self.assertEqual(self.everything(), before)


if __name__ == "__main__":
    unittest.main()
