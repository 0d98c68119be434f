# SPDX-License-Identifier: Apache-2.0
"""Runs the tests of a subject: the dialogues of SUBJECT.dialogue and what is in test_SUBJECT.py.

usage: run.py FOLDER MODULE.CLASS SUBJECT [-k PATTERN]     the class, of a module in the folder, has the dialogues
"""
import importlib
import pathlib
import sys
import unittest

from dialogue import tests_of

folder, fixture, subject = sys.argv[1:4]
sys.path.insert(0, folder)
module, _, name = fixture.partition(".")
suite = type(sys)(subject)
suite.Dialogues = tests_of(getattr(importlib.import_module(module), name), pathlib.Path(folder) / f"{subject}.dialogue")
if (pathlib.Path(folder) / f"test_{subject}.py").exists():
    further = importlib.import_module(f"test_{subject}")
    vars(suite).update({key: value for key, value in vars(further).items() if key not in vars(suite)})
unittest.main(module=suite, argv=sys.argv[:1] + sys.argv[4:])
