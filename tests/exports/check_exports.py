#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares what the built library shows and asks for with what it should.

Shown: exactly the names of the linker map. Asked for: of the server, only functions of its interface.
"""
import argparse
import re
import subprocess
import sys
from pathlib import Path

SERVER_FUNCTIONS = 38


def names_of_map(path):
    """The names between "global:" and "local:", C++ ones as they are demangled."""
    text = re.sub(r"/\*.*?\*/", "", Path(path).read_text(), flags=re.S)
    body = re.search(r"global:(.*)local:", text, flags=re.S).group(1)
    quoted = set(re.findall(r'"([^"]+)"', body))
    plain = set(re.findall(r"\w+", re.sub(r'"[^"]*"', "", body)))
    return (quoted - {"C++"}) | (plain - {"extern"})


def dynamic_symbols(nm, library, which):
    """The dynamic symbols as demangled names; the version node itself is none."""
    output = subprocess.run([nm, "--dynamic", "--demangle", which, "--format=posix", library],
                            check=True, capture_output=True, text=True).stdout
    symbols = set()
    for line in output.splitlines():
        name, kind = re.match(r"(.*?)(?:@+\w[\w.]*)? ([A-Za-z])(?: |$)", line).groups()
        if kind != "A":
            symbols.add(name)
    return symbols


def server_functions(header):
    code = re.sub(r"/\*.*?\*/|//[^\n]*", "", Path(header).read_text(), flags=re.S)
    return set(re.findall(r"\b(QV_\w+)\s*\(", code))


def differences(title, names):
    return [f"{title}: {name}" for name in sorted(names)]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    parser.add_argument("--map", required=True)
    parser.add_argument("--server-interface", required=True)
    parser.add_argument("--nm", default="nm")
    arguments = parser.parse_args()

    wanted = names_of_map(arguments.map)
    shown = dynamic_symbols(arguments.nm, arguments.library, "--defined-only")
    interface = server_functions(arguments.server_interface)
    asked = dynamic_symbols(arguments.nm, arguments.library, "--undefined-only")
    asked_of_server = {name for name in asked if name.startswith("QV_")}

    problems = differences("in the map but not shown by the library", wanted - shown)
    problems += differences("shown by the library but not in the map", shown - wanted)
    problems += differences("asked for but no function of the server interface", asked_of_server - interface)
    if len(interface) != SERVER_FUNCTIONS:
        problems.append(f"{len(interface)} functions in the server interface instead of {SERVER_FUNCTIONS}")
    if not asked_of_server:
        problems.append("the library asks for no server function: they must stay undefined in it")
    for problem in problems:
        print(problem)
    print(f"{len(shown)} names shown, {len(asked_of_server)} server functions asked for")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
