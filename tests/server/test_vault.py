# SPDX-License-Identifier: Apache-2.0
"""Numbers of documents and revisions, and random calls beside a plain model of the vault."""
import copy
import random
from collections import Counter

from server import NAMES, ServerTest

NUMBER, REVISION = NAMES["number"], NAMES["rev"]
SORT_VALUE = "doc_revision@doc_rev_num_v"
VAULT_STATE = -260


class Revisions(ServerTest):

    def create(self, revision, path=SORT_VALUE):
        return self.values("create-and-check-in", "h:DocVersion", f"{REVISION}={revision}", "?", path)[0]

    def test_the_last_run_of_a_number_counts_on(self):
        for number, following in (("1", "2"), ("9", "10"), ("99", "100"), ("01", "02"), ("099", "100"), ("A", "B"),
                                  ("Z", "AA"), ("AZ", "BA"), ("ZZ", "AAA"), ("z", "aa"), ("aZ", "bA"), ("A9", "A10"),
                                  ("1Z", "1AA"), ("A.9", "A.10"), ("9.Z", "9.AA"), ("A-", "A-1"), ("", "1"), ("A  ", "B"),
                                  ("\u00C4", "\u00C41")):
            self.create(number)
            self.assertEqual(self.values("revise", "h", "?", REVISION), [following], number)

    def test_sort_values_compare_as_the_numbers_do(self):
        ascending = " - -1 1 1.9 1.10 1A 1Z 1AA 2 9 10 99 100 A A1 A9 A10 B Z a AA AZ BA ZZ AAA".split(" ")
        values = list(map(self.create, ascending))
        self.assertEqual(values, sorted(set(values)))
        self.assertEqual(self.create("A  "), self.create("A"))
        self.assertNotEqual(self.create("01"), self.create("1"))
        self.create("A" * 1900)
        self.assertEqual(self.session().ask("create-and-check-in", "DocVersion", f"{REVISION}={'A' * 4000}")[0], -114)

    def test_the_next_number_always_sorts_behind(self):
        chance = random.Random(4711)
        for _ in range(1000):
            number = "".join(chance.choices("019AZaz-. ", k=chance.randrange(8)))
            self.assertLess(self.create(number), self.values("revise", "h", "?", SORT_VALUE)[0], number)

    def test_numbers_of_the_server_are_never_taken_twice(self):
        taken = int(self.create("1", NUMBER).removeprefix("DOC-"))
        for number in range(taken + 1, taken + 41):  # whatever comes next is taken by another document
            self.values("create-and-check-in", "DocVersion", f"{NUMBER}=DOC-{number:06}", f"{REVISION}=B")
        self.create("1")
        numbers = self.values("query", "DocVersion", NUMBER)
        self.assertEqual((len(numbers), len(set(numbers))), (42, 42))


class Model:
    """What the vault should do, in the plainest form."""

    def __init__(self):
        self.revisions = []  # how many there are of each document
        self.versions = []  # document, revision, number, holder

    def apply(self, call, index, user):
        if call == "create-and-check-in":
            self.versions.append([len(self.revisions), 1, 1, ""])
            self.revisions.append(1)
            return 0
        version = document, revision, _, holder = self.versions[index]
        if holder != (user if call in ("check-in", "cancel") else ""):
            return VAULT_STATE
        version[3] = user if call == "check-out" else ""
        if call == "revise":
            self.revisions[document] += 1
            self.versions.append([document, self.revisions[document], 1, ""])
        elif call == "check-in":
            newest = max(number for of, at, number, _ in self.versions if (of, at) == (document, revision))
            self.versions.append([document, revision, newest + 1, ""])
        return 0


class TwoUsers(ServerTest):

    def setUp(self):
        super().setUp()
        self.tell("shared\nvelrzm user add bob")

    def test_documents_made_at_the_same_time_have_numbers_of_their_own(self):
        for _ in range(25):
            for user in ("jdoe", "bob"):
                self.session(user).send("create-and-check-in", "DocVersion", f"{REVISION}=1")
        answers = [self.session(user).answer()[0] for user in ("jdoe", "bob") for _ in range(25)]
        self.assertEqual(answers, [0] * 50)
        self.assertEqual(len(set(self.values("query", "DocVersion", NUMBER))), 50)

    def test_random_calls_are_answered_as_by_the_model(self):
        chance = random.Random(20090)
        model = Model()
        answers = Counter()
        versions = []
        for step in range(500):
            user = chance.choice(("jdoe", "bob"))
            session = self.session(user + "2")
            if step < 4 or step % 50 == 0:
                call, index, words = "create-and-check-in", 0, [f"{REVISION}=1"]
            else:
                call = chance.choice(("check-out", "check-out", "check-in", "check-in", "cancel", "revise", "revise"))
                index = len(versions) - 1 - chance.randrange(min(len(versions), 12))  # mostly one of the newest
                words = [f"db_object_id={versions[index][0]}", "with"]
            is_dropped = chance.randrange(16) == 0  # in a multi-save that is discarded
            outcome = copy.deepcopy(model)
            expected = outcome.apply(call, index, user)
            if is_dropped:
                session.ask("start")
            self.assertEqual(session.ask(call, "DocVersion", *words)[0], expected, (step, call))
            if is_dropped:
                self.assertEqual(session.ask("query", "DocVersion")[0], len(outcome.versions), (step, call))
                session.ask("discard")
            else:
                model = outcome
            answers[expected] += 1
            versions = [row.split(",") for row in self.values("query", "DocVersion", "db_object_id", NUMBER, REVISION,
                                                              "doc_ver_num", "ckout_user", "order", "db_object_id")]
            documents = list(dict.fromkeys(row[1] for row in versions))  # in the order of creation
            self.assertEqual([[documents.index(row[1]), int(row[2]), int(row[3]), row[4]] for row in versions],
                             model.versions, (step, call, is_dropped))
        self.assertGreater(min(answers[0], answers[VAULT_STATE]), 100)
