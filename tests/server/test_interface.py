# SPDX-License-Identifier: Apache-2.0
"""Every function of the interface, as its header declares it: wrong handles, null pointers, no user; texts and messages."""
import ctypes
import os
import pathlib
import random
import re
import unittest
from ctypes import byref

from server import LIBRARY, call, log_on

BAD_ARGUMENT, BAD_HANDLE, BAD_PATH, BAD_CLAUSE, NOT_LOADED, NOT_LOGGED_ON = -110, -111, -112, -113, -115, -121
HEADER = pathlib.Path(__file__).parents[2] / "include/velrzm/qv_sdk.h"
PARAMETERS = {name: [text.rsplit(" ", 1) for text in texts.split(", ") if text]
              for name, texts in re.findall(r"^int QV_(\w+)\(([^)]*)\);", HEADER.read_text(), re.MULTILINE)}
TEXTS = {"className": "EngineeringChange", "reportName": "ExplosionRetrieval", "path": "id", "value": "x", "kind": "Select",
         "text": "id", "name": "item_number", "tableName": "t", "user": "jdoe", "password": ""}
WITHOUT_USER = ("Open_Env", "Close_Env", "Logon", "Error_Size")  # what needs none


def code_of(name, arguments):
    return getattr(LIBRARY, "QV_" + name)(*arguments)


def message():
    return LIBRARY.QV_Error_MsgTxt(0).decode(errors="replace")


class Interface(unittest.TestCase):

    def setUp(self):
        os.environ["QV_STORE"] = "sqlite::memory:"
        call("Open_Env")
        self.addCleanup(LIBRARY.QV_Close_Env)
        log_on("jdoe", "")
        self.handles = {name: ctypes.c_void_p() for name in ("object", "document", "list", "report")}
        call("Create_Object", byref(self.handles["object"]), "EngineeringChange")
        call("Create_Object", byref(self.handles["document"]), "DocVersion")
        call("Create_and_CheckIn_Doc", self.handles["document"], 0)
        call("Create_List", byref(self.handles["list"]), "EngineeringChange")
        call("Open_List", self.handles["list"])
        call("Create_Report", byref(self.handles["report"]), "IndentedRetrievalStrmElm", "ExplosionRetrieval")

    def arguments(self, function):
        """Arguments for a function: the handles, good texts, variables for what it hands back, and 0."""
        return [self.handles[name] if kind.endswith("Handle") else TEXTS[name].encode() if name in TEXTS and kind == "const char*"
                else byref(ctypes.c_void_p()) if kind.endswith("*") else 0 for kind, name in PARAMETERS[function]]

    def check_places(self, wrong, expected, *kinds):
        """Each function with `wrong` in the place of each argument of these kinds."""
        checked = 0
        for function in PARAMETERS:
            for place, (kind, name) in enumerate(PARAMETERS[function]):
                if kind in kinds and not name.startswith("reserved"):
                    arguments = self.arguments(function)
                    arguments[place] = wrong
                    self.assertEqual(code_of(function, arguments), expected, (function, name, wrong))
                    self.assertNotEqual(message(), "", function)
                    checked += 1
        return checked

    def test_unknown_handles_are_refused_by_every_function(self):
        chance = random.Random(20240611)
        for kind in ("Object", "List", "Report"):
            handle = self.handles[kind.lower()]
            arguments = [byref(handle)] + self.arguments("Create_" + kind)[1:]
            old = ctypes.c_void_p(handle.value)
            for _ in range(2):  # the second time there is nothing to release
                call("Destroy_" + kind, byref(handle))
                self.assertIsNone(handle.value)
            if kind == "Report":
                arguments[1] = b"IndentedRetrievalStrmElm"
            call("Create_" + kind, *arguments)  # in the same place
            others = [other.value for name, other in self.handles.items() if kind.lower() != name != "document"]
            for wrong in (None, old.value, 1, ctypes.addressof(old), *others,
                          *(chance.getrandbits(64) | 1 << 31 for _ in range(300))):
                checked = self.check_places(ctypes.c_void_p(wrong), BAD_HANDLE, f"QV_{kind}Handle")
                self.assertGreaterEqual(checked, 3)
            self.assertEqual(code_of("Destroy_" + kind, [byref(old)]), BAD_HANDLE)
            self.assertIsNone(old.value)
        call("Set_Object_Attr", self.handles["object"], "id", "x")  # the live one is untouched

    def test_null_pointers_are_refused_by_every_function(self):
        pointers = {kind for parameters in PARAMETERS.values() for kind, _ in parameters if kind.endswith("*")}
        self.assertGreater(self.check_places(None, BAD_ARGUMENT, *pointers), 30)

    def test_nothing_works_without_a_user(self):
        self.assertEqual(code_of("Logon", self.arguments("Logon")), -123)  # somebody is logged on
        call("Logoff")
        for function in PARAMETERS.keys() - set(WITHOUT_USER):
            self.assertEqual(code_of(function, self.arguments(function)), NOT_LOGGED_ON, function)
        log_on("jdoe", "")
        for name, handle in self.handles.items():  # handles end with the logon
            self.check_places(handle, BAD_HANDLE, f"QV_{name.title().replace('Document', 'Object')}Handle")
        call("Close_Env")
        self.assertEqual(code_of("Close_Env", []), -120)
        self.assertEqual(code_of("Logon", self.arguments("Logon")), -120)
        call("Open_Env")

    def test_messages_belong_to_the_last_failed_call(self):
        self.assertEqual(LIBRARY.QV_Open_Object(None), BAD_HANDLE)
        self.assertEqual([LIBRARY.QV_Error_MsgCode(index) for index in (0, 1, -1)], [b"-111", b"", b""])
        self.assertEqual(LIBRARY.QV_Error_MsgTxt(-1), b"")
        first = message()
        call("Destroy_Object", byref(self.handles["object"]))
        self.assertEqual(message(), first)  # a call that succeeds leaves it
        self.assertLess(code_of("Create_Object", [byref(self.handles["object"]), b"NoSuchClass"]), 0)
        self.assertNotEqual(message(), first)
        self.assertEqual(LIBRARY.QV_Error_Size(), 1)

    def test_a_record_outlives_its_list_but_is_only_read(self):
        listed, record, value = self.handles["list"], ctypes.c_void_p(), ctypes.c_char_p()
        call("Set_Object_Attr", self.handles["object"], "id", "EC1")
        call("Save_Object", self.handles["object"])
        call("Set_Clause", listed, "Select", "id")
        call("Open_List", listed)
        for index in (-1, 1):
            self.assertEqual(code_of("Read_List", [listed, index, byref(record)]), BAD_ARGUMENT)
        call("Read_List", listed, 0, byref(record))
        call("Destroy_List", byref(listed))
        call("Get_Object_Attr", record, "id", byref(value))
        self.assertEqual(value.value, b"EC1")
        self.assertEqual(code_of("Get_Object_Attr", [record, b"desc", byref(value)]), NOT_LOADED)
        self.assertEqual(value.value, b"")  # callers may look at it whatever the code
        self.assertEqual(code_of("Set_Object_Attr", [record, b"id", b"x"]), BAD_HANDLE)
        self.assertEqual(code_of("CheckIn_Doc", [self.handles["document"], 1]), BAD_ARGUMENT)  # no such option
        self.assertEqual(code_of("Create_Report", self.arguments("Create_Report")), BAD_ARGUMENT)  # nor such a report

    def test_clauses_put_together_at_random_are_answered(self):
        pieces = "& = LIKE OR AND <= ( ) , ' @ 1 - 9.5 name % _ ec ') &OR(&=( &=( id ;-- \"x ai_obj".encode().split()
        every = pieces + [bytes([byte]) for byte in range(1, 256)]
        chance = random.Random(7)
        accepted = 0
        for place in range(10000):
            text = b"".join(chance.choices(every if place % 2 else pieces, k=chance.randrange(12)))
            listed = ctypes.c_void_p()
            call("Create_List", byref(listed), "ItemEngineeringData")
            for kind in (b"Select", b"Where", b"OrderBy"):
                code = code_of("Set_Clause", [listed, kind, text])
                self.assertIn(code, (0, BAD_CLAUSE), text)
                accepted += code == 0
            self.assertEqual(code_of("Open_List", [listed]), 0, (text, message()))
            call("Destroy_List", byref(listed))
            self.assertIn(code_of("Set_Object_Attr", [self.handles["object"], text, text]), (0, BAD_PATH), text)
        self.assertGreater(accepted, 100)  # some must be good for the others to be worth anything

    def test_clauses_that_are_too_much_are_refused(self):
        listed = self.handles["list"]
        nested = "&OR(&LIKE(desc,'y%'),&AND(&LIKE(id,'y'), " * 10 + "&=(desc,'x')" + "))" * 10
        call("Set_Clause", listed, "Where", nested)
        call("Open_List", listed)
        for kind, text in (("Where", "&OR(" * 100000 + nested), ("Select", "x" * 256)):
            self.assertEqual(code_of("Set_Clause", [listed, kind.encode(), text.encode()]), BAD_CLAUSE)

    def test_the_limits_of_a_query_are_told(self):
        def refused(function, handle, limit):
            self.assertEqual(code_of(function, [handle]), BAD_ARGUMENT)
            self.assertIn(limit, message())

        listed, change = self.handles["list"], self.handles["object"]
        call("Set_Object_Attr", change, "id", "A")
        for _ in range(450):
            call("Set_Clause", listed, "Where", "&LIKE(id, 'A%')")
            call("Set_Clause", listed, "OrderBy", "db_object_id")
        for column in range(2000):
            call("Set_Clause", listed, "Select", f"a{column}")
            call("Subscribe_Object_Attr", change, f"a{column}")
        call("Open_List", listed)
        call("Set_Clause", listed, "Where", "&=(id, 'A')")
        refused("Open_List", listed, "900")
        refused("Save_Object", change, "2000")
        nested = "&=(id,'A')"
        for _ in range(15):
            nested = f"&OR({nested},{nested})"
        call("Create_List", byref(listed), "EngineeringChange")
        call("Set_Clause", listed, "Where", nested)
        refused("Open_List", listed, "30000")

    def test_values_are_exact_bytes_up_to_the_limit(self):
        change, value = self.handles["object"], ctypes.c_char_p()
        for path in ("desc", "site@note"):  # a column of the class, and an added attribute
            for text in (bytes(range(1, 256)) + b"  ", b"x" * 4000):
                call("Set_Object_Attr", change, "id", path)
                call("Set_Object_Attr", change, path, text)
                call("Save_Object", change)
                opened = ctypes.c_void_p()
                call("Create_Object", byref(opened), "EngineeringChange")
                call("Set_Object_Attr", opened, "id", path)
                call("Subscribe_Object_Attr", opened, path)
                call("Open_Object", opened)
                call("Get_Object_Attr", opened, path, byref(value))
                self.assertEqual(value.value, text)
            self.assertEqual(code_of("Set_Object_Attr", [change, path.encode(), b"x" * 4001]), -114)
