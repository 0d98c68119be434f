# SPDX-License-Identifier: Apache-2.0
"""What the command does on a terminal only: passwords are typed, progress is shown."""
import os
import pty
import signal
import subprocess

from command import COMMAND, DONE, WRONG_USAGE, CommandTest
from dialogue import PASSWORD


class Terminal(CommandTest):

    def test_a_password_is_typed_twice_without_echo(self):
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

    def test_an_interrupted_import_stores_nothing_and_says_so_in_one_line(self):
        self.tell("""
init
ec create EC-1
shell "(echo level,item_number,name; for i in $(seq 20000); do echo 1,P-$i,$PWD; done) >parts.csv"
""")
        controller, terminal = pty.openpty()
        process = subprocess.Popen([COMMAND, "import", "parts.csv", "--ec", "EC-1", "--top", "T"], cwd=self.directory,
                                   env=self.environment, stderr=terminal)
        os.close(terminal)
        shown = b""
        while b"[#" not in shown:
            shown += os.read(controller, 4096)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(), 128 + signal.SIGINT)
        shown += os.read(controller, 65536)
        os.close(controller)
        self.assertEqual(shown.rpartition(b"\033[K")[2], b"velrzm: interrupted; nothing was stored\r\n")
        self.tell("item open P-1 --ec EC-1 -> -1")

    def test_progress_is_for_terminals_and_what_fails_leaves_no_file(self):
        self.tell("""
init
ec create EC-1
shell "(echo level,item_number,remark; for i in $(seq 2000); do printf '1,P-%d,%01000d\\n' $i 0; done) >parts.csv"
import parts.csv --ec EC-1 --attributes --top TOP
files * -> $before
shell "ulimit -f 400; velrzm backup copy.db" -> -3 copy.db: the database failed (File too large)  # as on a full disk
for missing/copy.db /proc/copy.db store.db : backup $each --force -> -3 $each
backup copy.db --store missing.db -> -3 velrzm init
files * -> $before
shell "velrzm backup other.db 2>progress >told; cat progress told" -> $told other.db...
""")
        self.assertNotIn("KB", self.names["told"])
        status, shown = self.on_terminal([], "backup", "copy.db")
        self.assertEqual(status, DONE)
        self.assertRegex(shown, r"\[#+ +\] \d+ of \d+ KB")
