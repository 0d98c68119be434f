#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares what the built library shows and asks for with what it should: check_exports.py NM LIBRARY MAP SERVER-INTERFACE

Shown: exactly the names of the linker map. Asked for: of the server, only functions of its interface.
"""
import re
import subprocess
import sys
from pathlib import Path

SERVER_FUNCTIONS = 38


def names_of_map(text):
    """The names between "global:" and "local:", C++ ones as they are demangled."""
    body = re.search(r"global:(.*)local:", re.sub(r"/\*.*?\*/", "", text, flags=re.S), flags=re.S)[1]
    return {quoted or plain for quoted, plain in re.findall(r'"([^"]+)"|(\w+)', body)} - {"C++", "extern"}


def dynamic_symbols(nm, library, which):
    """The dynamic symbols as demangled names; the version node itself, an absolute one, is none."""
    output = subprocess.run([nm, "--dynamic", "--demangle", which, "--format=posix", library],
                            check=True, capture_output=True, text=True).stdout
    return {name for name, kind in re.findall(r"^(.*?)(?:@+\w[\w.]*)? ([A-Za-z])(?: |$)", output, re.M) if kind != "A"}


def main(nm, library, linker_map, header):
    wanted = names_of_map(Path(linker_map).read_text())
    shown = dynamic_symbols(nm, library, "--defined-only")
    asked = {name for name in dynamic_symbols(nm, library, "--undefined-only") if name.startswith("QV_")}
    code = re.sub(r"/\*.*?\*/|//[^\n]*", "", Path(header).read_text(), flags=re.S)
    interface = set(re.findall(r"\b(QV_\w+)\s*\(", code))
    problems = [f"{title}: {name}" for title, names in (
        ("in the map but not shown by the library", wanted - shown),
        ("shown by the library but not in the map", shown - wanted),
        ("asked for but no function of the server interface", asked - interface)) for name in sorted(names)]
    if len(interface) != SERVER_FUNCTIONS:
        problems.append(f"{len(interface)} functions in the server interface instead of {SERVER_FUNCTIONS}")
    if not asked:
        problems.append("the library asks for no server function: they must stay undefined in it")
    print("\n".join([*problems, f"{len(shown)} names shown, {len(asked)} server functions asked for"]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
