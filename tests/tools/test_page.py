# SPDX-License-Identifier: Apache-2.0
"""A structure as a page, used in a browser without a window."""
import html
import json
import re
import subprocess

from command import CommandTest

# Root has no sandbox, containers have little shared memory, and nothing here wants a network.
BROWSER = ("chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=1200,600",
           "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-quic")

USE = """<script>
const key = name => list.dispatchEvent(new KeyboardEvent("keydown", {key: name}));
const click = id => element(id).click();
const shown = () => [...document.querySelectorAll(".row")].map(row => row.className.replace("row", "").trim() + " " +
  [...row.children].map(cell => cell.textContent).join("|"));
const type = text => { element("search").value = text; element("search").dispatchEvent(new Event("input")); };
const details = () => element("details").innerText.split(/\\s*\\n\\s*/).join("|");
document.body.textContent = JSON.stringify((() => { %s })());
</script></body>"""


class Page(CommandTest):

    def setUp(self):
        super().setUp()
        self.tell("init\nec create EC-1\nec create EC-2\n"
                  "for A B C D E : item create $each --ec EC-1 --name \"part </script> $each\" --set mass_g=$each\n"
                  "for 10 20 : component create A B $each --ec EC-1\nfor 10 20 : component create B D $each --ec EC-2\n"
                  "component create A C 30 --ec EC-1\ncomponent create C B 10 --ec EC-1")

    def use(self, page, script):
        """What a script answers that uses the page."""
        file = self.directory / "page.html"
        file.write_text(page.replace("</body>", USE % script), encoding="utf-8")
        run = subprocess.run([*BROWSER, f"--user-data-dir={self.directory}/browser", "--dump-dom", file.as_uri()],
                             capture_output=True, text=True, timeout=300, check=True,
                             env={**self.environment, "HOME": str(self.directory)})
        return json.loads(html.unescape(re.search("<body>(.*)</body>", run.stdout, re.DOTALL)[1]))

    def test_tree(self):
        page = self.done("bom", "tree", "A", "--select", "name,mass_g", "--format", "html")
        self.assertIsNone(re.search("src=|href=|url\\(|@import|fetch", page), "the page reads something else")
        answers = self.use(page, """
            const answers = [document.title + "|" + element("summary").textContent.replace(/; .*/, ""), shown()];
            key("ArrowDown"); key("ArrowRight"); answers.push(shown().slice(1, 3), details());
            key("ArrowRight"); key("ArrowLeft"); key("ArrowLeft"); answers.push(shown().length, selected);
            click("unfold"); answers.push(rows.map(row => row.level + items[row.item].number).join(" "));
            click("fold"); type(" d"); answers.push(element("matches").textContent); goToMatch(1); answers.push(shown()[2]);
            type("part"); answers.push(element("matches").textContent, document.querySelectorAll(".match").length);
            click("totals"); answers.push(shown().map(row => row.split("|").slice(-1)[0]).join(" "));
            document.querySelectorAll("#head button")[3].click(); answers.push(items[rows[0].item].number);
            location.hash = "#D"; goToHash(); answers.push(details());
            return answers;""")
        name = "PART </SCRIPT> "
        self.assertEqual(answers, [
            "A|4 items, 6 lines", [f"selected ▾A||{name}A|A|1", f" ▸B|2|{name}B|B|3", f" ▸C|1|{name}C|C|1"],
            [f"selected ▾B|2|{name}B|B|3", f" D|2|{name}D|D|6"],
            f"B|name|{name}B|mass_g|B|total|3|quantity here|2|changes|EC-1|Used in|A 2 × {name}A|C 1 × {name}C",
            3, 1, "0A 1B 2D 1C 2B 3D", "1 found", f"selected match D|2|{name}D|D|6", "4 found", 4,
            "1 3 1 6", "A", f"D|name|{name}D|mass_g|D|total|6|quantity here|2|changes|EC-2|Used in|B 2 × {name}B"])
        page = self.done("bom", "tree", "A", "--level", "2", "--format", "html")
        self.assertEqual(self.use(page, "click('unfold'); return rows.map(row => row.level + items[row.item].number).join(' ');"),
                         "0A 1B 2D 1C 2B")

    def test_comparison(self):
        self.tell("item create Z --ec EC-1\ncomponent create Z B 10 --ec EC-1\ncomponent create Z E 20 --ec EC-1\n"
                  "component create E D 10 --ec EC-1")
        self.assertEqual(self.use(self.done("bom", "compare", "A", "Z", "--format", "html"), """
            const answers = [element("title").textContent, element("summary").textContent.replace(/; written.*/, ""), shown()];
            click("differences"); click("unfold"); answers.push(shown().slice(1));
            return answers;"""), [
                "A → Z ", "2 added; 2 removed; 1 changed",
                ["selected ▾Z|||", "changed B|2 → 1|PART </SCRIPT> B|changed", "added ▾E|1|PART </SCRIPT> E|added",
                 "added D|1|PART </SCRIPT> D|added", "removed ▾C|1|PART </SCRIPT> C|removed",
                 "removed B|1|PART </SCRIPT> B|removed"],
                ["changed ▾B|2 → 1|PART </SCRIPT> B|changed", " D|2|PART </SCRIPT> D|", "added ▾E|1|PART </SCRIPT> E|added",
                 "added D|1|PART </SCRIPT> D|added", "removed ▾C|1|PART </SCRIPT> C|removed",
                 "removed ▾B|1|PART </SCRIPT> B|removed", " D|2|PART </SCRIPT> D|"]])
        self.assertIn("no difference", self.done("bom", "compare", "A", "A", "--ec", "EC-1", "--after-ec", "EC-1", "--format", "html"))

    def test_many_rows_are_in_the_document_only_where_they_are_seen(self):
        parts = 100_000
        page = self.done("bom", "tree", "A", "--format", "html")
        data = json.loads(re.search('id="data">(.*?)</script>', page)[1])
        data["items"] = [{"number": "TOP", "values": [""], "parts": [[1, 2, []]], "total": "1"},
                         {"number": "ALL", "values": [""], "parts": [[2 + part, 1, []] for part in range(parts)], "total": "2"},
                         *({"number": f"P{part}", "values": [""], "parts": [], "total": "2"} for part in range(parts))]
        page = re.sub('(id="data">).*?(</script>)', lambda found: found[1] + json.dumps(data) + found[2], page)
        answers = self.use(page, """
            click("unfold");
            const answers = [rows.length];
            key("End"); answers.push(document.querySelectorAll(".row").length < 200, shown().pop());
            type("P54321"); goToMatch(1); answers.push(document.querySelector(".selected .number").textContent);
            window.dispatchEvent(new Event("beforeprint")); answers.push(document.querySelectorAll(".row").length, element("note").textContent);
            return answers;""")
        self.assertEqual(answers, [parts + 2, True, f"selected P{parts - 1}|1||2", "P54321", 20000, "The first 20000 rows of 100002."])
