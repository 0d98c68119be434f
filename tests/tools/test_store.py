# SPDX-License-Identifier: Apache-2.0
"""Making a store, and where passwords come from."""
import os
import pty
import unittest

from command import COMMAND, CommandTest, DONE, PASSWORD, WRONG_USAGE


class Store(CommandTest):

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

    def test_init_makes_a_store_once(self):
        self.assertIn("store.db", self.done("init"))
        before = (self.directory / "store.db").read_bytes()
        self.assertIn("store.db", self.refused("init"))
        self.assertEqual((self.directory / "store.db").read_bytes(), before)
        self.done("ec", "create", "EC-1")

    def test_store_option_takes_a_path_and_makes_its_folders(self):
        for store in ("a/b/c.db", "sqlite:d.db"):
            self.done("init", "--store", store)
        self.assertTrue((self.directory / "a/b/c.db").is_file())
        self.assertTrue((self.directory / "d.db").is_file())

    def test_place_that_cannot_be_written(self):
        (self.directory / "file").write_text("")
        self.assertIn("file", self.refused("init", "--store", "file/store.db"))
        self.assertIn("/proc", self.refused("init", "--store", "/proc/store.db"))

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
        status, shown = self.on_terminal([PASSWORD], "ec", "create", "EC-1")
        self.assertEqual(status, DONE, shown)
        self.assertNotIn(PASSWORD, shown)

    def test_without_terminal_and_password(self):
        del self.environment["VELRZM_PASSWORD"]
        run = self.run_command("init", start_new_session=True)
        self.assertEqual(run.returncode, WRONG_USAGE)
        self.assertIn("--password-file", run.stderr)


if __name__ == "__main__":
    unittest.main()
