#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The rooms of the source tree and what each may include: the table that scripts/check-sources holds the sources to.

usage: scripts/rooms.py

Draws the table into docs/rooms.svg, with Graphviz; the drawing keeps its source in a comment.
"""
import subprocess
from pathlib import Path

PICTURE = "docs/rooms.svg"

# What each room may include beside itself; no room may, directly or through others, include one that includes it.
MAY_INCLUDE = {
    "include": (),
    "diagnostics": ("include",),
    "frame": ("include", "diagnostics"),
    "config": ("include", "diagnostics", "frame"),
    "operations": ("include", "diagnostics", "frame", "config"),
    "csv": (),
    "server/base": ("include",),
    "server/store": ("include", "server/base"),
    "server/sqlite": ("include", "server/base", "server/store"),
    "server/structure": ("include", "server/base", "server/store"),
    "server/objects": ("include", "server/base", "server/store", "server/structure"),
    "server/administration": ("include", "csv", "server/base", "server/store", "server/sqlite"),
    "server/api": ("include", "server/base", "server/store", "server/structure", "server/objects",
                   "server/administration"),
    "tools/process": ("include",),
    "tools/output": ("include", "csv", "tools/process"),
    "tools/command_line": ("include", "tools/process", "tools/output"),
    "tools/structure": ("include", "tools/process", "tools/output"),
    "tools/site_files": ("include", "config", "tools/process"),
    "tools/parts_list": ("include", "csv", "tools/process", "tools/output", "tools/structure"),
    "tools/page": ("tools/output", "tools/structure"),
    "tools/commands": ("include", "config", "csv", "tools/process", "tools/output", "tools/command_line",
                       "tools/structure", "tools/page", "tools/site_files", "tools/parts_list"),
    "tools/demo": ("include", "tools/process", "tools/output", "tools/command_line", "tools/structure"),
}
GROUPS = {"libvelrzm": ("diagnostics", "frame", "config", "operations"), "libqvlocal": "server/", "velrzm": "tools/"}


def room_of(path):
    """The room that a file of the project lies in; none for tests, benchmarks and the like."""
    return max((room for room in MAY_INCLUDE if path.startswith(room + "/")), key=len, default=None)


def reach(room):
    """All rooms that a room may include, directly or through others."""
    direct = set(MAY_INCLUDE[room])
    return direct.union(*(reach(other) for other in direct))


def drawing():
    """The table as a graph; an arrow that others imply is left out."""
    lines = ["digraph rooms {", '  rankdir=TB; ranksep=0.35; nodesep=0.25; fontname="sans-serif"; fontsize=13;',
             '  node [shape=box, style="rounded,filled", fillcolor=white, fontname="sans-serif", fontsize=12];']
    for number, (group, members) in enumerate(GROUPS.items()):
        rooms = [room for room in MAY_INCLUDE if room.startswith(members)]
        names = "; ".join(f'"{room}" [label="{room.split("/")[-1]}"]' for room in rooms)
        lines.append(f'  subgraph cluster_{number} {{ label="{group}"; style="rounded,filled"; '
                     f'color=gray60; fillcolor=gray95; {names}; }}')
    lines.append('  "include" [label="include/velrzm\\nthe public headers", fillcolor=lightyellow];')
    for room, direct in MAY_INCLUDE.items():
        for other in direct:
            if not any(other in reach(third) for third in direct):
                lines.append(f'  "{room}" -> "{other}";')
    return "\n".join([*lines, "}"])


def main():
    picture = Path(__file__).resolve().parent.parent / PICTURE
    drawn = subprocess.run(["dot", "-Tsvg"], input=drawing(), check=True, capture_output=True, text=True).stdout
    source = f"<!-- SPDX-License-Identifier: Apache-2.0\nDrawn by scripts/rooms.py from:\n{drawing()}\n-->\n"
    picture.write_text(source + drawn[drawn.index("<svg"):], encoding="utf-8")


if __name__ == "__main__":
    main()
