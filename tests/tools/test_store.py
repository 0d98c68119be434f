# SPDX-License-Identifier: Apache-2.0
"""Making a store, copying it, and where passwords come from."""
import os
import pty
import resource
import subprocess
import threading
import unittest

from command import COMMAND, CommandTest, DONE, PASSWORD, REFUSED, WRONG_USAGE


class OnTerminal(CommandTest):

    def on_terminal(self, answers, *arguments):
        """Runs the command with a terminal of its own and types the answers, each when it is asked for."""
        child, controller = pty.fork()
        if child == 0:
            os.chdir(self.directory)
            os.execve(COMMAND, [COMMAND, *arguments], self.environment)
        shown = b""
        answers = list(answers)
        try:
            while piece := os.read(controller, 1024):
                shown += piece
                if answers and shown.endswith(b": "):
                    os.write(controller, answers.pop(0).encode() + b"\n")
        except OSError:  # the program has ended
            pass
        os.close(controller)
        return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), shown.decode()


class Store(OnTerminal):

    def test_init_makes_a_store_once(self):
        self.assertIn("store.db", self.done("init"))
        before = (self.directory / "store.db").read_bytes()
        complaint = self.refused("init")
        for told in ("store.db", "use it", "remove it", "--store"):
            self.assertIn(told, complaint)
        self.assertEqual((self.directory / "store.db").read_bytes(), before)
        self.done("ec", "create", "EC-1")

    def test_store_option_takes_a_path_and_makes_its_folders(self):
        for store in ("a/b/c.db", "sqlite:d.db"):
            self.done("init", "--store", store)
        self.assertTrue((self.directory / "a/b/c.db").is_file())
        self.assertTrue((self.directory / "d.db").is_file())

    def test_place_that_cannot_be_written(self):
        (self.directory / "file").write_text("")
        for place in ("file/store.db", "file/below/store.db", "/proc/store.db", "/proc/below/store.db"):
            complaint = self.refused("init", "--store", place)
            self.assertIn(place, complaint)
            self.assertIn("--store", complaint)

    def test_missing_store_tells_what_to_do(self):
        self.assertIn("velrzm init", self.refused("ec", "open", "EC-1"))

    def test_password_file_is_preferred(self):
        (self.directory / "secret").write_text("from the file\nsecond line\n")
        self.done("init", "--password-file", "secret")
        self.refused("ec", "create", "EC-1")
        self.done("ec", "create", "EC-1", "--password-file", "secret")
        (self.directory / "empty").write_text("\n")
        for unusable in ("empty", "missing"):
            self.assertIn(unusable, self.wrong("ec", "create", "EC-2", "--password-file", unusable))

    def test_password_is_typed_twice_without_echo(self):
        del self.environment["VELRZM_PASSWORD"]
        status, shown = self.on_terminal([PASSWORD, "another one"], "init")
        self.assertEqual(status, WRONG_USAGE)
        self.assertFalse((self.directory / "store.db").exists())
        status, shown = self.on_terminal([PASSWORD, PASSWORD], "init")
        self.assertEqual(status, DONE, shown)
        self.assertNotIn(PASSWORD, shown)
        self.assertNotIn("assword", self.on_terminal([], "init")[1])  # there is a store already
        status, shown = self.on_terminal([PASSWORD], "ec", "create", "EC-1")
        self.assertEqual(status, DONE, shown)
        self.assertNotIn(PASSWORD, shown)

    def test_without_terminal_and_password(self):
        del self.environment["VELRZM_PASSWORD"]
        run = self.run_command("init", start_new_session=True)
        self.assertEqual(run.returncode, WRONG_USAGE)
        self.assertIn("--password-file", run.stderr)


class Backup(OnTerminal):

    def setUp(self):
        super().setUp()
        self.done("init")

    def changes_in(self, store):
        """How many changes a store holds."""
        objects = {row["place"]: row["state"] for row in self.csv("doctor", "--store", store) if row["subject"] == "objects"}
        return int(objects["EngineeringChange"])

    def files(self):
        return {path.name for path in self.directory.iterdir() if not path.name.startswith("store.db-")}

    def fill(self):
        """Makes the store so large that it is copied in pieces."""
        rows = "".join(f"1,P-{i},{'x' * 1000}\n" for i in range(2000))
        (self.directory / "parts.csv").write_text("level,item_number,remark\n" + rows)
        self.done("ec", "create", "EC-1")
        self.done("import", "parts.csv", "--ec", "EC-1", "--attributes", "--top", "TOP")

    def test_copies_hold_whole_brackets_while_others_write(self):
        self.fill()
        (self.directory / "bracket").write_text("".join(f"ec create EC-@{i}\n" for i in range(9)))
        bracket = (self.directory / "bracket").read_text()
        runs = []

        def write():
            for number in range(6):
                name = f"bracket-{number}"
                (self.directory / name).write_text(bracket.replace("@", f"{number}-"))
                runs.append(self.run_command("batch", name, "--multi-save"))

        writer = threading.Thread(target=write)
        writer.start()
        copies = []
        while writer.is_alive() or not copies:
            copies.append(f"copy-{len(copies)}.db")
            self.done("backup", copies[-1])
        writer.join()
        self.assertEqual([run.returncode for run in runs], [DONE] * 6)
        counts = [self.changes_in(copy) - 1 for copy in copies]
        self.assertEqual([count % 9 for count in counts], [0] * len(counts))
        self.assertEqual(counts, sorted(counts))
        self.assertEqual(self.changes_in("store.db"), 6 * 9 + 1)

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

    def test_what_fails_leaves_no_file(self):
        self.fill()
        before = self.files()
        small = resource.getrlimit(resource.RLIMIT_FSIZE)[1]
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (200_000, small))  # as on a full disk
        run = self.run_command("backup", "copy.db", preexec_fn=limit)
        self.assertEqual((run.returncode, run.stdout), (REFUSED, ""))
        self.assertIn("copy.db: File too large", run.stderr)
        for place in ("missing/copy.db", "/proc/copy.db", "store.db"):
            self.assertIn(place, self.refused("backup", place, "--force"))
        self.assertIn("velrzm init", self.refused("backup", "copy.db", "--store", "missing.db"))
        self.assertEqual(self.files(), before)

    def test_progress_is_for_terminals(self):
        self.fill()
        status, shown = self.on_terminal([], "backup", "copy.db")
        self.assertEqual(status, DONE)
        self.assertRegex(shown, r"\[#+ +\] \d+ of \d+ KB")
        self.assertEqual(self.run_command("backup", "other.db").stderr, "")


if __name__ == "__main__":
    unittest.main()
