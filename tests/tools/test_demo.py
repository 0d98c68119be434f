# SPDX-License-Identifier: Apache-2.0
"""The demonstration: what it shows, and that it leaves nothing behind."""
import fcntl
import os
import re
import signal
import subprocess

from command import COMMAND, CommandTest, DONE, REFUSED


class Demo(CommandTest):

    def start(self, stdout):
        return subprocess.Popen([COMMAND, "demo"], cwd=self.directory, env=self.environment, stderr=subprocess.PIPE,
                                stdout=stdout)

    def start_and_wait(self):
        """The demonstration while it waits for a reader, and what that reads from: a pipe that takes little."""
        reading, writing = os.pipe()
        fcntl.fcntl(writing, fcntl.F_SETPIPE_SZ, 4096)
        process = self.start(writing)
        os.close(writing)
        os.read(reading, 1)
        return process, reading

    def nothing_is_left(self):
        self.assertEqual(list(self.temporary.iterdir()), [])

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
        lines = re.findall(r"^ +((?:[│ ] )*[├└]─)(\S+) +(\d+) +(\S.*)$", run.stdout, re.MULTILINE)
        self.assertGreaterEqual(len(lines), 60)
        self.assertGreaterEqual(max(len(branches) // 2 for branches, *_ in lines), 4)
        self.assertIn(("CB-3120", "32", "SPOKE 292 MM"), [line[1:] for line in lines])
        self.nothing_is_left()
        self.assertEqual([path.name for path in self.directory.iterdir()], ["tmp"])

    def test_colour_is_for_terminals_and_drawn_lines_for_unicode(self):
        self.environment["TERM"] = "xterm"
        status, shown = self.on_terminal([], "demo")
        self.assertEqual(status, DONE)
        self.assertIn("\033[1m", shown)
        self.environment["NO_COLOR"] = "1"
        self.assertNotIn("\033[", self.on_terminal([], "demo")[1])
        self.environment["LC_ALL"] = "C"
        self.assertTrue(self.run_command("demo").stdout.isascii())

    def test_kept_store_can_be_used(self):
        told = self.done("demo", "--keep")
        command = re.search(r"Go on with: velrzm (.*)", told)[1].split()
        self.environment["VELRZM_PASSWORD"] = re.search(r'The password is "(.*)"', told)[1]
        self.assertEqual(self.json(*command)["desc"], "City bicycle, first release")

    def test_interrupted_it_cleans_up(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            process, reading = self.start_and_wait()
            process.send_signal(number)
            with os.fdopen(reading, "rb") as output:
                output.read()
            process.communicate()
            self.assertEqual(process.returncode, 128 + number)
            self.nothing_is_left()

    def test_closed_pipe_ends_it_quietly_and_a_full_disk_is_told(self):
        process, reading = self.start_and_wait()
        os.close(reading)
        self.assertEqual((process.communicate()[1], process.returncode), (b"", DONE))
        self.nothing_is_left()
        with open("/dev/full", "wb") as full:
            process = self.start(full)
        self.assertIn(b"standard output cannot be written", process.communicate()[1])
        self.assertEqual(process.returncode, REFUSED)
        self.nothing_is_left()
        self.environment["TMPDIR"] = str(self.directory / "nowhere")
        self.assertIn("TMPDIR", self.refused("demo"))
