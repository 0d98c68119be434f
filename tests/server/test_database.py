# SPDX-License-Identifier: Apache-2.0
"""What the server makes of the database: which indexes its statements use, how much work they are, how often it commits."""
import ctypes
import os
import threading
import unittest
from ctypes import CFUNCTYPE, POINTER, c_char_p, c_int, c_int64, c_uint, c_void_p

from server import LIBRARY, NAMES, Calls, log_on

ITEM = NAMES["item"]
SQLITE = ctypes.CDLL("libsqlite3.so.0")
SQLITE.sqlite3_sql.restype = c_char_p
SQLITE.sqlite3_hard_heap_limit64.argtypes = [c_int64]
SQLITE.sqlite3_memory_used.restype = c_int64
TRACE_STATEMENT, TRACE_PROFILE, STATUS_STEPS = 1, 2, 4


class Database(unittest.TestCase):
    """A session of this process, whose connection to the database is watched."""

    def setUp(self):
        self.executed, self.steps = [], 0
        on_statement = CFUNCTYPE(c_int, c_uint, c_void_p, c_void_p, c_void_p)(self.note)
        on_opening = CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)(self.watch)
        self.callbacks = on_statement, on_opening  # for as long as the database calls them
        SQLITE.sqlite3_auto_extension(on_opening)
        os.environ["QV_STORE"] = "sqlite::memory:"
        self.calls = Calls(None)
        LIBRARY.QV_Open_Env()
        log_on("jdoe", "")

    def tearDown(self):
        LIBRARY.QV_Close_Env()
        SQLITE.sqlite3_cancel_auto_extension(self.callbacks[1])

    def watch(self, database, _error, _routines):
        self.database = c_void_p(database)
        return SQLITE.sqlite3_trace_v2(self.database, TRACE_STATEMENT | TRACE_PROFILE, self.callbacks[0], None)

    def note(self, event, _context, statement, _text):
        if event == TRACE_PROFILE:
            self.steps += SQLITE.sqlite3_stmt_status(c_void_p(statement), STATUS_STEPS, 1)
        elif text := SQLITE.sqlite3_sql(c_void_p(statement)):
            self.executed.append(text.decode())
        return 0

    def sql(self, statement):
        """The last column of what the server's own connection, with its functions, answers."""
        rows = []
        take = CFUNCTYPE(c_int, c_void_p, c_int, POINTER(c_char_p), c_void_p)(
            lambda _context, columns, values, _names: rows.append(values[columns - 1].decode()) or 0)
        self.assertEqual(SQLITE.sqlite3_exec(self.database, statement.encode(), take, None, None), 0, statement)
        return rows

    def executed_by(self, *commands):
        self.executed.clear()
        for command in commands:
            self.calls.carry_out(*command)
        return list(self.executed)

    def store_items(self, end):
        """Stores items up to that number, straight into the table."""
        self.sql(f'INSERT OR IGNORE INTO ItemEngineeringData ("{ITEM}") WITH RECURSIVE number(n) AS (SELECT 0 UNION ALL '
                 f"SELECT n + 1 FROM number WHERE n < {end - 1}) SELECT printf('P%06d', n) FROM number")

    def steps_of(self, *command):
        """How much work the database has with a command."""
        self.calls.carry_out(*command)  # which prepares the statements
        self.steps = 0
        self.assertEqual(self.calls.carry_out(*command)[0], 0)
        return self.steps

    def test_keys_prefixes_and_relations_use_indexes(self):
        plans = [plan for statement in self.executed_by(
            ("open", "ItemEngineeringData", f"{ITEM}=A", "il_ec_number=EC1"),
            ("query", "ItemEngineeringData", "where", f"&LIKE({ITEM}, 'A1%')"),
            ("query", "EngineeringChange", "where", "&LIKE(id, 'EC%')"),
            ("query", "AffectedItem", "where", "&=(ec@db_object_id,'5')"),
            ("query", "ItemEngineeringData", "where", "&=(ai_obj@ec@id,'EC1')"))
            if statement.startswith("SELECT") for plan in self.sql("EXPLAIN QUERY PLAN " + statement)]
        for part in ("SEARCH t0 USING", f"({ITEM}>? AND {ITEM}<?)", "(id>? AND id<?)"):
            self.assertIn(part, " ".join(plans))
        self.assertNotIn("SCAN", " ".join(plans))

    def test_an_item_costs_the_same_in_a_large_store(self):
        opening = "open", "ItemEngineeringData", f"{ITEM}=P000007", "?", ITEM
        prefix = "query", "ItemEngineeringData", ITEM, "where", f"&LIKE({ITEM},'P00000%')"
        self.store_items(10)
        to_open, to_list = self.steps_of(*opening), self.steps_of(*prefix)
        self.assertGreater(to_list, to_open)
        self.assertGreater(to_open, 0)
        self.store_items(100000)
        self.assertEqual(self.steps_of(*opening), to_open)
        self.assertAlmostEqual(self.steps_of(*prefix), to_list, delta=10)  # it looks at the record behind the prefix, too
        self.assertEqual(len(self.calls.carry_out(*prefix)[1]), 10)
        self.calls.clause("l:ItemEngineeringData", "Select", ITEM)
        self.calls.open_list("l")
        self.executed.clear()
        self.assertEqual(self.calls.rows("l", ITEM)[-1], "P099999")
        self.assertEqual(self.executed, [])  # the database is not asked again

    def test_every_save_and_every_multi_save_is_one_commit(self):
        for commands, begins, commits in (
                ([("save", "EngineeringChange", "id=EC1", "a=1", "b=2"),
                  ("save", "ItemEngineeringData", f"{ITEM}=A", "create_bomheader=TRUE")], 2, 2),
                ([("start",), ("save", "EngineeringChange", "id=EC2"), ("save", "EngineeringChange", "id=EC3")], 1, 0),
                ([("commit",)], 0, 1)):
            executed = self.executed_by(*commands)
            self.assertEqual((executed.count("BEGIN IMMEDIATE"), executed.count("COMMIT")), (begins, commits))

    def test_a_failed_allocation_leaves_no_transaction_behind(self):
        code, failures, more = None, 0, 1
        while code != 0:
            SQLITE.sqlite3_hard_heap_limit64(SQLITE.sqlite3_memory_used() + more)
            code, texts = self.calls.carry_out("save", "EngineeringChange", f"id=EC{more}", "desc=" + "x" * 4000)
            SQLITE.sqlite3_hard_heap_limit64(0)
            self.assertIn(code, (0, -100), texts)
            self.assertEqual(self.calls.carry_out("save", "EngineeringChange", f"id=AFTER{more}"), (0, ["0"]))
            failures += code != 0
            more += 64
        self.assertGreater(failures, 10)

    def test_a_damaged_store_is_told(self):
        index = "'EngineeringChange key'"
        self.calls.carry_out("save", "EngineeringChange", "id=EC1")
        self.sql(f"PRAGMA writable_schema = ON; CREATE TABLE kept AS SELECT * FROM sqlite_schema WHERE name = {index};"
                 f"DELETE FROM sqlite_schema WHERE name = {index}; PRAGMA writable_schema = RESET;"
                 "DELETE FROM EngineeringChange;"  # but not from the index
                 "PRAGMA writable_schema = ON; INSERT INTO sqlite_schema SELECT * FROM kept; PRAGMA writable_schema = RESET;"
                 "DELETE FROM sequence")
        for command, name in (("open", "EC1"), ("delete", "EC1"), ("save", "EC2")):
            code, texts = self.calls.carry_out(command, "EngineeringChange", f"id={name}")
            self.assertEqual(code, -301, texts)
            self.assertIn("damaged", texts[0])

    def test_a_second_thread_is_refused(self):
        self.store_items(100000)
        self.calls.clause("l:ItemEngineeringData", "Select", ITEM)
        opened, messages = [], set()

        def open_list():
            while not opened or opened[-1] == -125:
                opened.append(LIBRARY.QV_Open_List(self.calls.lists["l"]))

        thread = threading.Thread(target=open_list)
        thread.start()
        while thread.is_alive():
            if LIBRARY.QV_Open_Env() == -125:
                messages.add(LIBRARY.QV_Error_MsgTxt(0))
        self.assertEqual(opened[-1], 0)
        self.assertIn(b"thread", messages.pop())
