# SPDX-License-Identifier: Apache-2.0
"""Runs the velrzm command in a directory of its own."""
import csv
import io
import json
import os
import pathlib
import pty
import subprocess
import tempfile
import unittest

COMMAND = os.environ["VELRZM_COMMAND"]
PASSWORD = "correct horse"
DONE, REFUSED, WRONG_USAGE = 0, 1, 2


class CommandTest(unittest.TestCase):
    """Tests with a working directory and an environment that nothing else touches."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="velrzm-test-")
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        self.temporary = self.directory / "tmp"
        self.temporary.mkdir()
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.directory), "TMPDIR": str(self.temporary),
            "LC_ALL": "C.UTF-8", "USER": "ada", "VELRZM_PASSWORD": PASSWORD, "QV_STORE": "sqlite:store.db",
        }
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LD_LIBRARY_PATH"):
            if name in os.environ:
                self.environment[name] = os.environ[name]

    def file(self, name, text):
        (self.directory / name).write_text(text, encoding="utf-8")
        return name

    def run_command(self, *arguments, **options):
        return subprocess.run([COMMAND, *arguments], cwd=self.directory, env=self.environment, text=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False,
                              timeout=60, **options)

    def on_terminal(self, answers, *arguments, program=COMMAND, typed=""):
        """Runs a program with a terminal of its own and types the answers, each when it is asked for."""
        child, controller = pty.fork()
        if child == 0:
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

    def csv(self, *arguments):
        return list(csv.DictReader(io.StringIO(self.done(*arguments, "--format", "csv"))))
