# SPDX-License-Identifier: Apache-2.0
"""Lists: what random clauses find, in which order, against a plain evaluation of the same conditions."""
import functools
import operator
import random
import re

from server import NAMES, ServerTest

TEXT_PATHS = ("name", "description", "site@note", "ai_obj@item_status", "ai_obj@ec@desc")
NUMBER_PATHS = ("insert_by", "extract_by", "ai_obj@design_seq_num")
COMPARISONS = {"=": operator.eq, "<": operator.lt, "<=": operator.le, ">": operator.gt, ">=": operator.ge}


def number_of(text):
    """The number that a text is; none for another text."""
    return int(text) if re.fullmatch(r" *[0-9]+ *", text) else None


def compared(sign, left, right, as_numbers):
    if as_numbers:
        left, right = number_of(left), number_of(right)
        return None not in (left, right) and COMPARISONS[sign](left, right)
    return COMPARISONS[sign](*(text.rstrip(" ").encode(errors="surrogateescape") for text in (left, right)))


class RandomFilters(ServerTest):

    def setUp(self):
        super().setUp()
        self.chance = random.Random(42)
        self.pick = self.chance.choice

    def word(self):
        return "".join(self.chance.choices(["a", "A", "b", "'", "%", "_", " ", "\udcc3", "10", "("], k=self.chance.randrange(4)))

    def comparison(self):
        """A condition: its text, a function of a record, and the paths in it."""
        sign = self.pick(list(COMPARISONS))
        paths = self.pick((NUMBER_PATHS, TEXT_PATHS, TEXT_PATHS))
        path, other = self.pick(paths), self.pick(paths)
        as_numbers = paths == NUMBER_PATHS
        number = str(self.chance.randrange(120))
        value = number if as_numbers else self.word()
        pattern = self.word() + self.pick(("", "%", " %", "_"))
        expression = re.compile("".join({"%": ".*", "_": "."}.get(sign, re.escape(sign)) for sign in pattern) + " *")
        return self.pick((
            (f"&{sign}({path},{other})", lambda record: compared(sign, record[path], record[other], as_numbers), {path, other}),
            (f"&{sign}( {path}, {number} )", lambda record: compared(sign, record[path], number, True), {path}),
            (f"&LIKE({path}, '{pattern}')",
             lambda record: expression.fullmatch(record[path].rstrip(" ") + " " * len(pattern)) is not None, {path}),
            (f"&{sign}({path},'{value}')", lambda record: compared(sign, record[path], value, as_numbers), {path})))

    def condition(self, depth):
        if depth == 0 or self.chance.randrange(3) == 0:
            return self.comparison()
        (left, holds_left, paths), (right, holds_right, more) = self.condition(depth - 1), self.condition(depth - 1)
        name, joined = self.pick((("OR", any), ("AND", all)))
        return f"&{name}({left}, {right})", lambda record: joined((holds_left(record), holds_right(record))), paths | more

    def create(self, class_name, record):
        return self.values("save", class_name, *map("=".join, record.items()), "?", "db_object_id")[0]

    def fill(self):
        """Stores changes, items and affected items; gives the items as records, and once for each affected item."""
        changes = [self.word() for _ in range(3)]
        for number, text in enumerate(changes):
            self.create("EngineeringChange", {"id": f"EC{number}", "desc": text})
        items, affected = [], []
        for number in range(40):
            item = {NAMES["item"]: f"I{number}", "name": self.word(), "site@note": self.word(),
                    "description": self.pick(("", " ", "7", "07", "110", self.word())),
                    "extract_by": self.pick(("2147483647", "50", "9", "?"))}
            items.append({**item, "insert_by": self.create("ItemEngineeringData", item)})
            for change in range(self.chance.randrange(3)):
                status = self.pick(("A", "B ", "b", self.word()))
                place = self.create("AffectedItem", {"ec@id": f"EC{change}", "item_number": f"I{number}", "item_status": status})
                affected.append({**items[-1], "ai_obj@design_seq_num": place, "ai_obj@ec@desc": changes[change],
                                 "ai_obj@item_status": status if status.strip(" ") else "WORKING"})  # of the server
        return items, affected

    def test_filters_find_what_a_plain_evaluation_finds(self):
        items, affected = self.fill()
        found = 0
        for _ in range(2000):
            conditions = [self.condition(2) for _ in range(self.chance.randrange(3))]
            order = self.pick(("name", "description", "extract_by", "site@note", "ai_obj@item_status"))
            paths = functools.reduce(set.union, (paths for _, _, paths in conditions), {order})
            records = affected if any(path.startswith("ai_obj") for path in paths) else items

            def key(record):
                number = number_of(record[order]) if order in NUMBER_PATHS else None
                return -1 if number is None else number, record[order].rstrip(" ").encode(errors="surrogateescape")

            expected = sorted((record for record in records if all(holds(record) for _, holds, _ in conditions)), key=key)
            clauses = [text for text, _, _ in conditions]
            rows = self.session().ask("query", "ItemEngineeringData", "insert_by", order, "where", *clauses, "order", order)
            self.assertEqual(rows, (0, [f"{record['insert_by']},{record[order]}" for record in expected]), clauses)
            found += len(expected)
        self.assertGreater(found, 2000)  # filters that find nothing prove nothing
