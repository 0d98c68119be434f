# SPDX-License-Identifier: Apache-2.0
"""Sessions with the local server, each in a process of its own, and the dialogues with them.

A line is a command for the session "jdoe", or for the one that it begins with: `bob: check-out DocVersion $number=D with`.
A session is logged on as its user, the name without a digit behind it; only "guest" has to open the environment itself.

    CALL TARGET [PATH=VALUE...] [with PATH=VALUE...] [? PATH...]   sets the values, opens the object at "with", makes the
        call, reads the paths; CALL is one of OBJECT_CALLS, TARGET a name, or a new object: CLASS or NAME:CLASS
    query TARGET [PATH...] [where CLAUSE...] [order PATH...]       the rows of a list, or its size when no path is selected
    explode [PARAMETER=VALUE...] [? PATH...]                       the rows of an explosion, which is the list "explosion"
    shared                                                         the sessions have a store in a file, with the user jdoe
    at LOCATION COMMAND...                                         the command with that store
"""
import ctypes
import multiprocessing
import os
import resource
import sys
from collections import defaultdict

from dialogue import PASSWORD, STORE, DialogueTest

LIBRARY = ctypes.CDLL(os.environ["QVLOCAL_LIBRARY"])
LIBRARY.QV_Error_MsgCode.restype = LIBRARY.QV_Error_MsgTxt.restype = ctypes.c_char_p
FORKED = multiprocessing.get_context("fork")
OBJECT_CALLS = {
    "set": "", "open": "Open_Object", "save": "Save_Object", "delete": "Delete_Object", "check-out": "CheckOut_Doc",
    "cancel": "Cancel_CheckOut_Doc", "check-in": "CheckIn_Doc", "create-and-check-in": "Create_and_CheckIn_Doc",
    "check-in-defaults": "Set_Doc_CheckIn_Defaults", "check-out-defaults": "Set_Doc_CheckOut_Defaults",
    "revise": "Make_New_Revision",
}
PLAIN_CALLS = {"start": "Start_Multisave", "commit": "Commit_Multisave", "discard": "Discard_Multisave",
               "log-off": "Logoff", "open-environment": "Open_Env", "close-environment": "Close_Env"}
NAMES = {"item": "logical_key@item_number", "child": "logical_key@comp_item_number", "place": "logical_key@comp_seq_nm",
         "change": "il_ec_number", "number": "doc_revision@doc_number", "rev": "doc_revision@doc_rev_num",
         "title": "doc_revision@doc_title", "ident": "doc_primary_fmt@user_data3",
         "config": "doc_revision@primary_config@db_object_id"}


class Refused(Exception):
    """A call that failed: its code and its message."""


def call(name, *arguments):
    """Calls a function of the interface; returns its code, unless that is a failure."""
    code = getattr(LIBRARY, "QV_" + name)(
        *(text.encode(errors="surrogateescape") if isinstance(text, str) else text for text in arguments))
    if code < 0:
        raise Refused(code, LIBRARY.QV_Error_MsgTxt(0).decode(errors="surrogateescape"))
    return code


def log_on(user=None, password=None):
    reserved = ctypes.create_string_buffer(1)
    return call("Logon", user, password, reserved, reserved)


class Calls:
    """What a session does for its commands: each answers texts or a number."""

    def __init__(self, is_asked):
        self.is_asked = is_asked  # whether there is another command
        self.objects = defaultdict(ctypes.c_void_p)
        self.lists = defaultdict(ctypes.c_void_p)

    def carry_out(self, command, *words):
        """The code and the texts of the answer."""
        try:
            if command in PLAIN_CALLS:
                return call(PLAIN_CALLS[command]), []
            if command in OBJECT_CALLS:
                answer = self.call_on_object(command, *words)
            else:
                answer = getattr(self, command.replace("-", "_"))(*words)
            return (0, answer) if isinstance(answer, list) else (answer, [str(answer)])
        except Refused as refused:
            return refused.args[0], [refused.args[1]]

    def handle(self, handles, kind, target):
        """The handle of a name; a new one for CLASS or NAME:CLASS."""
        name, _, class_name = target.partition(":") if ":" in target else (target, "", target)
        if class_name[0].isupper():
            handles[name] = ctypes.c_void_p()
            call("Create_" + kind, ctypes.byref(handles[name]), class_name)
        return handles[name]

    def call_on_object(self, command, target, *words):
        handle = self.handle(self.objects, "Object", target)
        end = words.index("?") if "?" in words else len(words)
        for word in words[:end]:
            if word == "with":
                call("Open_Object", handle)
            else:
                call("Set_Object_Attr", handle, *word.split("=", 1))
        for path in words[end + 1:]:
            call("Subscribe_Object_Attr", handle, path)
        if command == "revise":
            revised, handle = handle, ctypes.c_void_p()
            self.objects["revision"] = handle
            call(OBJECT_CALLS[command], revised, ctypes.byref(handle))
        elif command != "set":
            call(OBJECT_CALLS[command], handle, 0)  # the option of a check-in; other functions do not look at it
        return [self.values(handle, words[end + 1:])] if words[end + 1:] else 0

    @staticmethod
    def values(handle, paths):
        """The values of an object, with commas between them."""
        value = ctypes.c_char_p()
        texts = []
        for path in paths:
            call("Get_Object_Attr", handle, path, ctypes.byref(value))
            texts.append(value.value.decode(errors="surrogateescape"))
        return ",".join(texts)

    def get(self, target, *paths):
        return [self.values(self.objects[target], paths)]

    def list(self, target):
        return self.handle(self.lists, "List", target)

    def clause(self, target, kind, text):
        return call("Set_Clause", self.list(target), kind, text)

    def open_list(self, target):
        return call("Open_List", self.list(target))

    def query(self, target, *words):
        handle = self.list(target)
        clauses = {"Select": [], "where": [], "order": []}
        kind = "Select"
        for word in words:
            kind = word if word in clauses else kind
            clauses[kind] += [word] if word != kind else []
        for kind, name in (("Select", "Select"), ("where", "Where"), ("order", "OrderBy")):
            for text in clauses[kind]:
                call("Set_Clause", handle, name, text)
        call("Open_List", handle)
        return self.rows(target.partition(":")[0], *clauses["Select"])

    def rows(self, name, *paths):
        size = ctypes.c_int()
        call("SizeOf_List", self.lists[name], ctypes.byref(size))
        record = ctypes.c_void_p()
        rows = []
        for index in range(size.value if paths else 0):
            call("Read_List", self.lists[name], index, ctypes.byref(record))
            rows.append(self.values(record, paths))
            call("Destroy_Object", ctypes.byref(record))
        return rows if paths else size.value

    def explode(self, *words):
        end = words.index("?") if "?" in words else len(words)
        report = ctypes.c_void_p()
        self.lists["explosion"] = ctypes.c_void_p()
        call("Create_Report", ctypes.byref(report), "IndentedRetrievalStrmElm", "ExplosionRetrieval")
        for word in words[:end]:
            call("Set_Report_Attr", report, *word.split("=", 1))
        for path in words[end + 1:]:
            call("Subscribe_Report_Attr", report, path)
        try:
            call("Generate_Report", report, ctypes.byref(self.lists["explosion"]))
        finally:
            call("Destroy_Report", ctypes.byref(report))
        return self.rows("explosion", *words[end + 1:])

    def entry(self, table, index):
        texts = ctypes.c_char_p(), ctypes.c_char_p()
        call("Read_Xlat", table, int(index), *map(ctypes.byref, texts))
        return ["=".join(text.value.decode() for text in texts)]

    def table(self, name):
        size = ctypes.c_int()
        call("SizeOf_Xlat", name, ctypes.byref(size))
        return [self.entry(name, index)[0] for index in range(size.value)]

    def watch(self, class_name, multiple):
        """Reads the size of a class until it is asked again; how often it was no multiple."""
        others = 0
        while not self.is_asked():
            others += self.query(class_name) % int(multiple) != 0
        return others

    def stop(self):
        """Ends a watch."""
        return 0

    def log_on(self, *words):
        return log_on(*words)

    def fork(self):
        """What a forked process is answered, which then ends as a program does."""
        if (child := os.fork()) == 0:
            ctypes.CDLL(None).exit(-LIBRARY.QV_Logoff())
        code = -os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])
        raise Refused(code, "")

    def limit_files(self, size):
        """Has files not grow beyond that size, as if the disk failed."""
        resource.setrlimit(resource.RLIMIT_FSIZE, (int(size), resource.RLIM_INFINITY))
        return 0

    def become_nobody(self):
        """Drops the rights of the superuser, whom permissions do not bind."""
        if os.geteuid() == 0:
            os.seteuid(65534)
        return 0


def serve(connection, directory):
    """The process of a session."""
    os.chdir(directory)
    calls = Calls(connection.poll)
    while request := connection.recv():
        words, environment = request
        for name, value in environment.items():
            os.environ.pop(name, None)
            os.environ.update({name: value} if value is not None else {})
        connection.send(calls.carry_out(*words))
    sys.exit(0)


class Session:
    """A session, seen from the test."""

    def __init__(self, directory, environment):
        self.environment = environment
        self.connection, other_end = multiprocessing.Pipe()
        self.process = FORKED.Process(target=serve, args=(other_end, directory), daemon=True)
        self.process.start()
        other_end.close()

    def send(self, *words):
        self.connection.send((words, self.environment))

    def answer(self):
        return self.connection.recv()

    def ask(self, *words):
        self.send(*words)
        return self.answer()

    def kill(self):
        """Ends the process at once, as a crash would; how many answers it gave that were not taken."""
        self.process.kill()
        self.process.join()
        answers = 0
        try:
            while self.answer():
                answers += 1
        except (EOFError, OSError):
            return answers

    def end(self):
        """The process's exit code."""
        self.connection.send(None)
        self.process.join()
        return self.process.exitcode


class ServerTest(DialogueTest):

    def setUp(self):
        super().setUp()
        self.environment["QV_STORE"] = "sqlite::memory:"
        self.names.update(NAMES)
        self.sessions = {}

    def new_session(self, name):
        session = Session(self.directory, self.environment)
        if name != "guest":
            session.ask("open-environment")
            self.assertEqual(session.ask("log-on", name.rstrip("0123456789"), PASSWORD), (0, ["0"]))
        return session

    def session(self, name="jdoe"):
        if name not in self.sessions:
            session = self.sessions[name] = self.new_session(name)
            self.addCleanup(lambda: self.assertEqual(session.end(), 0))
        return self.sessions[name]

    def do_shared(self):
        """Has a store in a file from now on; the place for another engine."""
        self.environment["QV_STORE"] = STORE
        self.do_init()

    def values(self, *words):
        """The answer of a command that must succeed."""
        code, texts = self.session().ask(*words)
        self.assertGreaterEqual(code, 0, (words, texts))
        return texts

    def do_at(self, location, *words):
        self.environment["QV_STORE"] = location
        return self.answer(*words)

    def answer(self, command, *words):
        name, command, *words = (command[:-1], *words) if command.endswith(":") else ("jdoe", command, *words)
        code, texts = self.session(name).ask(command, *words)
        return code, " | ".join(texts) or ('""' if texts else "none")
