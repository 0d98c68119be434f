# SPDX-License-Identifier: Apache-2.0
"""Processes that are killed in the middle of their work, or forked."""
import os
import random

from server import ServerTest

SAVES, BRACKETS, WRITERS = 5, 3, 200
ANSWERS = SAVES + 2  # of a bracket, with those of the start and of the commit


class Crash(ServerTest):

    def test_of_a_killed_writer_whole_brackets_are_stored_and_nothing_else(self):
        self.tell("shared")
        chance = random.Random(20261124)
        reader = self.session("jdoe2")
        reader.send("watch", "EngineeringChange", str(SAVES))
        killed_after = set()  # so many answers of a bracket
        before = 0
        for number in range(WRITERS):
            writer = self.new_session("jdoe")
            commands = [command for bracket in range(BRACKETS) for command in (
                ("start",), *(("save", "EngineeringChange", f"id=W{number}-{bracket}-{save}") for save in range(SAVES)),
                ("commit",))]
            answers = chance.randrange(len(commands))
            for command in commands[:answers]:
                self.assertEqual(writer.ask(*command)[0], 0)
            writer.send(*commands[answers])  # the one that the kill meets
            for _ in range(chance.randrange(20)):
                os.sched_yield()
            answers += writer.kill()
            stored = self.session().ask("query", "EngineeringChange")[0]
            committed = answers // ANSWERS
            self.assertIn(stored - before, {SAVES * committed, SAVES * min(committed + 1, BRACKETS)}, (number, answers))
            killed_after.add(answers % ANSWERS)
            before = stored
        reader.send("stop")
        self.assertEqual(reader.answer(), (0, ["0"]))  # sizes that it read in the middle of a bracket
        self.assertEqual(len(killed_after), ANSWERS)
        self.assertGreater(before, 0)
        self.assertEqual(self.sql("PRAGMA integrity_check"), [("ok",)])
        self.tell("save EngineeringChange id=AFTER")

    def test_a_forked_process_is_refused_and_leaves_the_store_alone(self):
        self.tell("shared\nstart")
        for number in range(700):  # more than the database keeps in memory
            self.values("save", "EngineeringChange", f"id=EC{number}", "desc=" + "x" * 4000)
        self.tell("fork -> -124\nsave EngineeringChange id=LAST\ncommit\njdoe2: query EngineeringChange -> 701")
        self.assertEqual(self.sql("PRAGMA integrity_check"), [("ok",)])
