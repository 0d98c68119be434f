# SPDX-License-Identifier: Apache-2.0
"""Making a store, copying it, and where passwords come from."""
import resource
import subprocess
import unittest

from command import COMMAND, CommandTest, DONE, PASSWORD, REFUSED, WRONG_USAGE


class Store(CommandTest):

    def test_init_makes_a_store_once(self):
        self.assertIn("velrzm init", self.refused("ec", "open", "EC-1"))
        self.assertIn("store.db", self.done("init"))
        before = (self.directory / "store.db").read_bytes()
        complaint = self.refused("init")
        for told in ("store.db", "use it", "remove it", "--store"):
            self.assertIn(told, complaint)
        self.assertEqual((self.directory / "store.db").read_bytes(), before)
        self.done("ec", "create", "EC-1")

    def test_store_option_takes_a_path_and_makes_its_folders(self):
        for store, path in (("a/b/c.db", "a/b/c.db"), ("sqlite:d.db", "d.db")):
            self.done("init", "--store", store)
            self.assertTrue((self.directory / path).is_file())
        for place in ("d.db/store.db", "d.db/below/store.db", "/proc/store.db", "/proc/below/store.db"):
            complaint = self.refused("init", "--store", place)
            self.assertIn(place, complaint)
            self.assertIn("--store", complaint)

    def test_password_file_is_preferred(self):
        self.file("secret", "from the file\nsecond line\n")
        self.file("empty", "\n")
        self.done("init", "--password-file", "secret")
        self.assertIn("wrong password", self.refused("ec", "create", "EC-1"))  # the server's own words
        self.done("ec", "create", "EC-1", "--password-file", "secret")
        for unusable in ("empty", "missing"):
            self.assertIn(unusable, self.wrong("ec", "create", "EC-2", "--password-file", unusable))

    def test_password_is_typed_twice_without_echo(self):
        del self.environment["VELRZM_PASSWORD"]
        run = self.run_command("init", start_new_session=True)  # without a terminal
        self.assertEqual(run.returncode, WRONG_USAGE)
        self.assertIn("--password-file", run.stderr)
        self.assertEqual(self.on_terminal([PASSWORD, "another one"], "init")[0], WRONG_USAGE)
        self.assertFalse((self.directory / "store.db").exists())
        for answers, command in (([PASSWORD, PASSWORD], "init"), ([PASSWORD], "ec create EC-1")):
            status, shown = self.on_terminal(answers, *command.split())
            self.assertEqual(status, DONE, shown)
            self.assertNotIn(PASSWORD, shown)
        self.assertNotIn("assword", self.on_terminal([], "init")[1])  # there is a store already


class Backup(CommandTest):

    def setUp(self):
        super().setUp()
        self.done("init")

    def changes_in(self, store):
        """How many changes a store holds."""
        objects = {row["place"]: row["state"] for row in self.csv("doctor", "--store", store) if row["subject"] == "objects"}
        return int(objects["EngineeringChange"])

    def test_open_multi_save_is_not_in_the_copy(self):
        writer = subprocess.Popen([COMMAND, "batch", "-", "--multi-save"], cwd=self.directory, env=self.environment,
                                  text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        writer.stdin.write("ec create EC-1 --format csv\n")
        writer.stdin.flush()
        self.assertIn("id", writer.stdout.readline())  # it is saved and not committed
        self.assertIn("copy.db", self.done("backup", "copy.db"))
        writer.communicate()
        self.assertEqual(writer.returncode, DONE)
        self.assertEqual((self.changes_in("copy.db"), self.changes_in("store.db")), (0, 1))
        self.refused("backup", "copy.db")
        self.done("backup", "copy.db", "--force")
        self.done("ec", "open", "EC-1", "--store", "copy.db")

    def test_what_fails_leaves_no_file_and_progress_is_for_terminals(self):
        rows = "".join(f"1,P-{i},{'x' * 1000}\n" for i in range(2000))  # so many that they are copied in pieces
        self.file("parts.csv", "level,item_number,remark\n" + rows)
        self.done("ec", "create", "EC-1")
        self.done("import", "parts.csv", "--ec", "EC-1", "--attributes", "--top", "TOP")
        files = lambda: {path.name for path in self.directory.iterdir() if not path.name.startswith("store.db-")}
        before = files()
        small = resource.getrlimit(resource.RLIMIT_FSIZE)[1]
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (200_000, small))  # as on a full disk
        run = self.run_command("backup", "copy.db", preexec_fn=limit)
        self.assertEqual((run.returncode, run.stdout), (REFUSED, ""))
        self.assertIn("copy.db: the database failed (File too large)", run.stderr)
        for place in ("missing/copy.db", "/proc/copy.db", "store.db"):
            self.assertIn(place, self.refused("backup", place, "--force"))
        self.assertIn("velrzm init", self.refused("backup", "copy.db", "--store", "missing.db"))
        self.assertEqual(files(), before)
        status, shown = self.on_terminal([], "backup", "copy.db")
        self.assertEqual(status, DONE)
        self.assertRegex(shown, r"\[#+ +\] \d+ of \d+ KB")
        self.assertEqual(self.run_command("backup", "other.db").stderr, "")


if __name__ == "__main__":
    unittest.main()
