# SPDX-License-Identifier: Apache-2.0
"""Random and wide structures, exploded beside a plain walk."""
import random
import re

from server import NAMES, ServerTest

CYCLE, ALREADY_STORED, TOO_MANY_ROWS = -233, -220, -118
COLUMNS = ("level", "item_number", "comp_item_number", "comp_seq_nm")


class Structure(ServerTest):

    def setUp(self):
        super().setUp()
        self.lines = []  # parent, child, place, change: those that were stored, in this order

    def store_items(self, items):
        for item in items:
            self.values("save", "ItemEngineeringData", f"{NAMES['item']}={item}")

    def save(self, line):
        """The code of saving a line, and the message when it is refused."""
        words = map("=".join, zip((NAMES[name] for name in ("item", "child", "place", "change")), line))
        code, texts = self.session().ask("save", "Component", *words)
        if code == 0:
            self.lines.append(line)
        return code, texts

    def is_line(self, parent, child):
        return any(line[:2] == (parent, child) for line in self.lines)

    def reaches(self, top, item):
        return top == item or any(self.reaches(line[1], item) for line in self.lines if line[0] == top)

    def walk(self, item, change, max_level, level=1):
        """The rows that a plain walk gives."""
        below = [line for line in self.lines if line[0] == item and change in ("", line[3])]
        for parent, child, place, _ in sorted(below, key=lambda line: float(line[2])):
            yield f"{level},{parent},{child},{place}"
            if max_level in (0, *range(level + 1, 9)):
                yield from self.walk(child, change, max_level, level + 1)

    def compare_with_walk(self, top, change, max_level):
        """Compares the explosion with the walk; tells of how many rows they are."""
        expected = list(self.walk(top, change, max_level))
        rows = self.values("explode", f"item_number={top}", f"ec_number={change}", f"max_level={max_level}", "?", *COLUMNS)
        self.assertEqual(rows, expected)
        return len(expected)

    def test_random_lines_are_exploded_as_by_a_plain_walk_and_never_contain_themselves(self):
        chance = random.Random(1)
        items = [f"I{number}" for number in range(9)]
        refusals = rows = 0
        for turn in range(8):
            self.tell("log-off\nlog-on jdoe secret")  # which empties the store
            self.lines = []
            self.store_items(items)
            if turn % 2:
                self.tell("start")  # a multi-save sees its own saves
            for _ in range(60):
                line = (chance.choice(items), chance.choice(items),
                        chance.choice(("10", "9", "2", "010", "1.5", "-3", "100")), chance.choice(("", "EC1", "EC2")))
                is_known = line in self.lines
                closes_cycle = self.reaches(line[1], line[0])
                code, texts = self.save(line)
                self.assertEqual(code, CYCLE if closes_cycle else ALREADY_STORED if is_known else 0, texts)
                if closes_cycle:  # told along lines from the parent over the refused line back to the parent
                    path = re.search(f"{line[0]} > {line[1]}( > \\w+)*", texts[0])[0].split(" > ")
                    self.assertTrue(all(self.is_line(*step) for step in zip(path[1:], path[2:])), texts)
                    self.assertEqual(path[-1], line[0])
                    refusals += 1
            for top in items:
                for change in ("", "EC1"):
                    rows += sum(self.compare_with_walk(top, change, max_level) for max_level in range(4))
        self.assertGreater(refusals, 50)
        self.assertGreater(rows, 1000)

    def test_more_rows_than_a_report_may_have_are_refused(self):
        items = [f"I{level}" for level in range(30)]
        self.store_items(items)
        for parent, child in zip(items, items[1:]):
            self.save((parent, child, "1", ""))
            self.save((parent, child, "2", ""))
        code, texts = self.session().ask("explode", "item_number=I0")
        self.assertEqual(code, TOO_MANY_ROWS)
        self.assertRegex(texts[0], "'I0' has more than 10000000 rows.*max_level")
        self.compare_with_walk("I0", "", 8)

    def test_a_wide_structure_is_exploded_as_by_a_plain_walk(self):
        """So many items of a level are looked for in another order, and those without lines not at all."""
        assemblies = [f"ASSEMBLY-{place * 617 % 1100}" for place in range(1100)]
        self.store_items(["TOP", "PART", "BOLT", "ELSEWHERE", *assemblies])
        self.save(("PART", "BOLT", "5", ""))
        self.save(("ELSEWHERE", "BOLT", "1", ""))
        for place, assembly in enumerate(assemblies):
            self.save(("TOP", assembly, str(place), "" if place % 5 else "EC1"))
            if place % 3 == 0:
                self.save((assembly, "PART", "20", "" if place % 2 else "EC1"))
                self.save((assembly, "BOLT", "10", "EC1"))
        self.assertEqual(self.compare_with_walk("TOP", "", 0), 2201)
        self.compare_with_walk("TOP", "", 2)
        self.compare_with_walk("TOP", "EC1", 0)

    def test_an_item_is_listed_at_each_occurrence(self):
        levels = 12
        self.store_items(f"L{level}" for level in range(levels + 1))
        for level in range(levels):
            for place in "12":
                self.save((f"L{level}", f"L{level + 1}", place, ""))
        self.assertEqual(self.compare_with_walk("L0", "", 0), 2 ** (levels + 1) - 2)
