# SPDX-License-Identifier: Apache-2.0
"""A structure as a graph and as a picture."""
import re
import xml.etree.ElementTree

from command import CommandTest


class Drawing(CommandTest):

    def setUp(self):
        super().setUp()
        self.tell("init\nec create EC-1\nfor A B C D : item create $each --ec EC-1 --name \"part $each\"\n"
                  "for 10 20 : component create A B $each --ec EC-1\nfor 10 20 : component create B D $each --ec EC-1\n"
                  "component create A C 30 --ec EC-1\ncomponent create C B 10 --ec EC-1")

    def graph(self, *arguments):
        """The labels of the nodes, and the edges between them with theirs."""
        text = self.done("bom", "tree", *arguments, "--format", "dot")
        nodes = dict(re.findall(r'^  (n\d+) \[label="((?:[^"\\]|\\.)*)"', text, re.MULTILINE))
        edges = re.findall(r'^  (n\d+) -> (n\d+) \[label="(\d+)"\]$', text, re.MULTILINE)
        return sorted(nodes.values()), sorted(nodes[above][0] + nodes[below][0] + number for above, below, number in edges)

    def test_graph(self):
        self.assertEqual(self.graph("A"), ([f"{item}\\nPART {item}" for item in "ABCD"], ["AB2", "AC1", "BD2", "CB1"]))
        self.assertEqual(self.graph("A", "--level", "1")[1], ["AB2", "AC1"])
        self.tell("bom tree D --format dot -> -1\nbom explode A --format dot -> -2")

    def test_picture_shows_any_text_as_it_is(self):
        names = ["SAY \"HI\" \\N \\", "<B> &#60; {X}|Y", "GRÜN\nZWEI"]
        for number, name in zip("ABC", names):
            self.done("item", "save", number, "--ec", "EC-1", "--name", name)
        picture = xml.etree.ElementTree.fromstring(self.done("bom", "tree", "A", "--format", "svg"))
        shown = [text.text for text in picture.iter("{http://www.w3.org/2000/svg}text")]
        self.assertLessEqual({"A", "B", "C", "1", "2", names[0], names[1], "GRÜN", "ZWEI"}, set(shown))
        self.tell("""
environment PATH $home
bom tree A --format svg -> -3 apt install graphviz
file dot "#!/bin/sh\\necho half\\nexit 3\\n"
environment PATH $home:/bin:/usr/bin
shell "chmod +x dot"
bom tree A --format svg -> -3 status 3
file dot "#!/bin/sh\\n! env | grep '^VELRZM_PASSWORD' && echo drawn\\n"
bom tree A --format svg -> drawn
shell "(echo item; seq 501) >wide"
import wide --ec EC-1 --top W
bom tree W --format svg -> -3 502 items takes a long time to draw
bom tree W --format svg --force -> drawn
""")
