# SPDX-License-Identifier: Apache-2.0
"""Runs the velrzm command, and dialogues: what is said, a line, and what must be answered.

A file of dialogues, or a text in a test, has one command on each line, split into words as a shell does it; `\\n` and the
like are escapes. Without more it must succeed. ` -> ` is followed by the answer: the whole of it, its lines and rows joined
by ` | `, where `...` stands for anything and `$name` for the value that was, or is from now on, called so; of a refusal
`-CODE` and a part of the message. A line that begins with blanks continues the one before; `  # ` begins a comment.
`for WORD... : COMMAND` gives the command once for each word, which is `$each` in it.
`== title` begins a dialogue, which has a directory of its own.
"""
import csv
import io
import json
import os
import pathlib
import re
import shlex
import sqlite3
import subprocess
import tempfile
import unittest
import zlib

COMMAND = os.environ["VELRZM_COMMAND"]
STORE = "sqlite:store.db"  # of a test with a store that several processes use
PASSWORD = "secret"
QUICK_HASH = "$5$rounds=1000$storetest$lhnQKHdiLIPzXJRNGe2XdGCoowDntI3296XBD4/bIv9"  # of the password


def unescaped(word):
    return re.sub(r"\\(u[0-9a-f]{4}|[nrt])", lambda found: found.group().encode().decode("unicode_escape"), word)


def lines_of(text):
    """The commands of a dialogue, without comments and with continuations joined."""
    text = re.sub(r"(^|  )# .*", "", text, flags=re.MULTILINE)
    return [line for line in re.sub(r"\n +(?=\S)", " ", text).splitlines() if line.strip()]


class DialogueTest(unittest.TestCase):
    """Tests with a working directory and an environment that nothing else touches."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="velrzm-test-")
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        self.environment = {
            "PATH": f"{pathlib.Path(COMMAND).parent}:{os.environ['PATH']}", "HOME": str(self.directory), "LC_ALL": "C.UTF-8",
            "USER": "jdoe", "VELRZM_PASSWORD": PASSWORD, "QV_STORE": STORE,
        }
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LD_LIBRARY_PATH"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        self.names = {"home": str(self.directory), "x4000": "x" * 4000}  # what `$name` stands for

    def file(self, name, text):
        (self.directory / name).write_text(text, encoding="utf-8", errors="surrogateescape")
        return name

    def run_program(self, *arguments, **options):
        environment = {name: value for name, value in self.environment.items() if value is not None}
        return subprocess.run(arguments, cwd=self.directory, env=environment, text=True, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False, timeout=60, **options)

    def run_command(self, *arguments, **options):
        return self.run_program(COMMAND, *arguments, **options)

    def filled(self, word):
        return re.sub(r"\$(\w+)", lambda found: self.names.get(found[1], found[0]), word)

    def do_file(self, name, *pieces):
        (self.directory / name).parent.mkdir(parents=True, exist_ok=True)
        self.file(name, "".join(pieces))

    def do_shell(self, script):
        run = self.run_program("sh", "-ec", script)
        return -abs(run.returncode), " | ".join((run.stderr if run.returncode else run.stdout).splitlines())

    def do_files(self, pattern):
        """Names, permissions and checksums of files, but for what lies beside a store in use."""
        return 0, " | ".join(f"{path.relative_to(self.directory)} {path.stat().st_mode & 0o777:o} "
                             f"{zlib.crc32(path.read_bytes()) if path.is_file() else 0}"
                             for path in sorted(self.directory.glob(pattern)) if not path.name.startswith("store.db-")) or "none"

    def do_environment(self, name, value=None):
        self.environment[name] = value

    def do_let(self, name, text):
        self.names[name] = text

    def do_load(self, kind, *pieces):
        """Loads a table from a file of these texts."""
        self.do_file("rows.csv", *pieces)
        return self.do_velrzm("load", kind, "rows.csv")

    def shown(self, form, command, rows_of):
        """What a command gives in a form: its rows, or why it was refused."""
        run = self.run_command(*command, "--format", form)
        rows = [",".join(row) for row in rows_of(run.stdout)] if run.stdout else [run.stderr]
        return -abs(run.returncode), " | ".join(rows) if rows else "none"

    def do_csv(self, *command):
        return self.shown("csv", command, lambda text: list(csv.reader(io.StringIO(text)))[1:])

    def do_json(self, *command):
        def rows_of(text):
            found = json.loads(text)
            return [[f"{name}={value}" for name, value in row.items()] for row in (found if isinstance(found, list) else [found])]

        return self.shown("json", command, rows_of)

    def do_init(self):
        """Makes a store, with a password that is checked quickly."""
        self.say("velrzm init")
        self.sql(f"UPDATE user SET password = '{QUICK_HASH}'")

    def sql(self, statement):
        """What the database answers to a statement about the store."""
        database = sqlite3.connect(self.directory / self.environment["QV_STORE"].partition(":")[2])
        rows = database.execute(statement).fetchall()
        database.commit()
        database.close()
        return rows

    def do_sql(self, statement):
        return 0, str(self.sql(statement))

    def do_velrzm(self, *words):
        run = self.run_command(*words)
        if run.returncode:
            self.assertEqual((run.stdout, bool(run.stderr)), ("", True), words)
        return -abs(run.returncode), " | ".join((run.stderr or run.stdout).splitlines())

    def answer(self, command, *words):
        """The code, 0 or more for success, and the text of the answer to a command that no method do_COMMAND carries out."""
        raise NotImplementedError

    def say(self, line):
        """Carries a line out and holds the answer against the expected one."""
        said, told, expected = line.partition(" -> ")
        expected = unescaped(expected)
        command, *words = (self.filled(unescaped(word)) for word in shlex.split(said))
        own = getattr(self, f"do_{command.replace('-', '_')}", None)
        code, answer = (own(*words) or (0, "")) if own else self.answer(command, *words)
        if not told:
            self.assertGreaterEqual(code, 0, f"{line}: {answer}")
            return
        if code < 0:
            answer, expected = f"{code} {answer}", expected.replace(" ", " ...", 1) + "..."
        names = set()
        pattern = ""
        for part in re.split(r"(\.\.\.|\$\w+)", expected):
            name = part[1:] if part.startswith("$") else None
            if name is None or name in self.names:
                pattern += ".*" if part == "..." else re.escape(self.filled(part))
            else:
                pattern += f"(?P={name})" if name in names else f"(?P<{name}>.*?)"
                names.add(name)
        found = re.fullmatch(pattern, answer, re.DOTALL)
        self.assertTrue(found, f"{line}\nanswered: {answer}")
        self.names.update(found.groupdict())

    def tell(self, text):
        """Goes through a dialogue."""
        for line in lines_of(text):
            repeated = re.fullmatch(r"for (.*?) : (.*)", line)
            for each in re.findall(r'"[^"]*"|\S+', repeated[1]) if repeated else [""]:
                self.say(repeated[2].replace("$each", each) if repeated else line)


def tests_of(base, path):
    """The dialogues of a file, if there is one, as tests of `base`."""
    text = path.read_text(encoding="utf-8") if path.exists() else ""
    methods = {}
    for title, lines in re.findall(r"^== (.*)\n((?:(?!== ).*\n?)*)", text, re.MULTILINE):
        methods["test_" + title] = lambda self, lines=lines: self.tell(lines)
    return type(path.stem, (base,), methods)
