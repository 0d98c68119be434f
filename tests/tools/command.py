# SPDX-License-Identifier: Apache-2.0
"""Tests of the velrzm command as its users type it."""
import fcntl
import json
import os
import pty
import struct
import termios

from dialogue import COMMAND, DialogueTest

DONE, NOTHING_FOUND, WRONG_USAGE, REFUSED = 0, 1, 2, 3


class CommandTest(DialogueTest):
    """A line of a dialogue is what follows `velrzm`."""

    def setUp(self):
        super().setUp()
        self.temporary = self.directory / "tmp"
        self.temporary.mkdir()
        self.environment["TMPDIR"] = str(self.temporary)

    def answer(self, *words):
        return self.do_velrzm(*words)

    def do_new_store(self):
        """Another store, with the change EC-1."""
        self.environment["QV_STORE"] = f"sqlite:store-{len(list(self.directory.glob('store-*.db')))}.db"
        self.tell("init\nec create EC-1")

    def do_import_text(self, *words):
        """Imports a parts list of these lines; what follows them are options. What is told counts as the answer, too."""
        pieces = [word for word in words if "\n" in word]
        self.do_file("parts.csv", *pieces)
        run = self.run_command("import", "parts.csv", "--ec", "EC-1", *words[len(pieces):])
        return -run.returncode, " | ".join((run.stdout + run.stderr).splitlines())

    def do_batch_line(self, line):
        self.do_file("lines", line + "\n")
        return self.do_velrzm("batch", "lines")

    def on_terminal(self, answers, *arguments, program=COMMAND, typed="", size=(24, 80)):
        """Runs a program with a terminal of its own and types the answers, each when it is asked for."""
        child, controller = pty.fork()
        if child == 0:
            fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("4H", *size, 0, 0))
            os.chdir(self.directory)
            os.execvpe(program, [program, *arguments], self.environment)
        shown = b""
        answers = list(answers)
        os.write(controller, typed.encode())
        try:
            while piece := os.read(controller, 65536):
                shown += piece
                if answers and shown.endswith(b": "):
                    os.write(controller, answers.pop(0).encode() + b"\n")
        except OSError:  # the program has ended
            pass
        os.close(controller)
        return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), shown.decode()

    def done(self, *arguments):
        """The results of a command that must succeed."""
        run = self.run_command(*arguments)
        self.assertEqual(run.returncode, DONE, f"{arguments}: {run.stderr}")
        return run.stdout

    def not_done(self, status, *arguments):
        run = self.run_command(*arguments)
        self.assertEqual((run.returncode, run.stdout), (status, ""), arguments)
        self.assertTrue(run.stderr, arguments)
        return run.stderr

    def refused(self, *arguments):
        """The complaint of a command that must be refused, without any result."""
        return self.not_done(REFUSED, *arguments)

    def wrong(self, *arguments):
        return self.not_done(WRONG_USAGE, *arguments)

    def json(self, *arguments):
        return json.loads(self.done(*arguments, "--format", "json"))
