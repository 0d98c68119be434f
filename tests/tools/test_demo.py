# SPDX-License-Identifier: Apache-2.0
"""The demonstration: what it shows, and that it leaves nothing behind."""
import fcntl
import os
import pty
import re
import signal
import subprocess
import unittest

from command import COMMAND, CommandTest, DONE, REFUSED


def narrow_pipe():
    """A pipe that takes less than the demonstration writes, so that it waits for its reader."""
    reading, writing = os.pipe()
    fcntl.fcntl(writing, fcntl.F_SETPIPE_SZ, 4096)
    return reading, writing


class Demo(CommandTest):

    def start(self, *arguments, **options):
        return subprocess.Popen([COMMAND, "demo", *arguments], cwd=self.directory, env=self.environment,
                                stderr=subprocess.PIPE, **options)

    def left_behind(self):
        return list(self.temporary.iterdir())

    def on_terminal(self):
        """What the demonstration writes to a terminal."""
        controller, terminal = pty.openpty()
        process = self.start(stdin=terminal, stdout=terminal)
        os.close(terminal)
        written = b""
        try:
            while piece := os.read(controller, 65536):
                written += piece
        except OSError:  # the other end is closed
            pass
        os.close(controller)
        process.communicate()
        self.assertEqual(process.returncode, DONE)
        return written.decode()

    def test_tells_the_whole_story_and_leaves_nothing(self):
        run = self.run_command("demo")
        self.assertEqual((run.returncode, run.stderr), (DONE, ""))
        steps = re.findall(r"^ ?(\d+)  \S", run.stdout, re.MULTILINE)
        self.assertEqual([int(step) for step in steps], list(range(1, len(steps) + 1)))
        for told in ("QvConnect returned 0", "QvConnect returned 1", "reason_code                 NEW-PRODUCT",
                     "CB-3100                 FRONT WHEEL     ASSEMBLY", "ItemQuery returned 4",
                     "EngineeringChangeOpen returned 0", "****** ", "QvConnect- rc(QV_Logon) = 0",
                     "Function QvConnect generated the following error:", "last-error, 1 line"):
            self.assertIn(told, run.stdout)
        self.assertNotIn("\033", run.stdout)
        self.assertEqual(self.left_behind(), [])
        self.assertEqual([path.name for path in self.directory.iterdir()], ["tmp"])

    def test_draws_the_structure(self):
        lines = re.findall(r"^ +((?:[│ ] )*[├└]─)(\S+) +(\d+) +(\S.*)$", self.run_command("demo").stdout, re.MULTILINE)
        self.assertGreaterEqual(len(lines), 60)
        self.assertGreaterEqual(max(len(branches) // 2 for branches, *_ in lines), 4)
        self.assertIn(("CB-3120", "32", "SPOKE 292 MM"), [line[1:] for line in lines])

    def test_colour_is_for_terminals(self):
        self.environment["TERM"] = "xterm"
        self.assertIn("\033[1m", self.on_terminal())
        self.environment["NO_COLOR"] = "1"
        self.assertNotIn("\033[", self.on_terminal())

    def test_plain_signs_without_unicode(self):
        self.environment["LC_ALL"] = "C"
        self.assertTrue(self.run_command("demo").stdout.isascii())

    def test_kept_store_can_be_used(self):
        told = self.done("demo", "--keep")
        command = re.search(r"Go on with: velrzm (.*)", told)[1].split()
        self.environment["VELRZM_PASSWORD"] = re.search(r'The password is "(.*)"', told)[1]
        self.assertEqual(self.json(*command)["desc"], "City bicycle, first release")

    def test_interrupted_it_cleans_up(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            reading, writing = narrow_pipe()
            process = self.start(stdout=writing)
            os.close(writing)
            with os.fdopen(reading, "rb") as output:
                output.read(1)
                process.send_signal(number)
                output.read()
            process.communicate()
            self.assertEqual(process.returncode, 128 + number)
            self.assertEqual(self.left_behind(), [])

    def test_closed_pipe_ends_it_quietly(self):
        reading, writing = narrow_pipe()
        process = self.start(stdout=writing)
        os.close(writing)
        os.read(reading, 1)
        os.close(reading)
        self.assertEqual((process.communicate()[1], process.returncode), (b"", DONE))
        self.assertEqual(self.left_behind(), [])

    def test_full_disk_and_missing_directory_are_told(self):
        with open("/dev/full", "wb") as full:
            process = self.start(stdout=full)
        self.assertIn(b"standard output cannot be written", process.communicate()[1])
        self.assertEqual(process.returncode, REFUSED)
        self.assertEqual(self.left_behind(), [])
        self.environment["TMPDIR"] = str(self.directory / "nowhere")
        self.assertIn("TMPDIR", self.refused("demo"))


if __name__ == "__main__":
    unittest.main()
