#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Prints the figures of the store, each beside its bare counterpart, and the aims: the explosion beside the recursive
query on the same store, the last record of a long list beside the first.

A figure is the least processor time of the repetitions: what else runs on the machine can only add to it."""
import json
import sys

STRUCTURES = {"explosion": "items numbered in order", "explosion of scattered numbers": "items numbered as after years",
              "explosion with standard parts": "50 uses of each standard part"}
ROWS = (1000, 100000, 1000000)
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
MOST_TIMES_THE_QUERY = 1.3  # at 100,000 rows
MOST_GROWTH = 1.25  # of the time of a row, from 1,000 to 1,000,000 rows
MOST_BYTES = 200  # of a row, beyond its values
MOST_TIMES_THE_FIRST_RECORD = 1.15  # what is less cannot be told from chance


def verdict(value, limit):
    return f"at most {limit}: {'met' if value <= limit else 'MISSED'}"


def main(path):
    with open(path, encoding="utf-8") as file:
        runs = [run for run in json.load(file)["benchmarks"]
                if run["run_type"] == "iteration" and not run.get("error_occurred")]
    least = {run["name"]: run for run in sorted(runs, key=lambda run: -run["cpu_time"])}
    names = [f"{structure}/{way}/{rows}" for structure in STRUCTURES for way in ("BomExplode", "query") for rows in ROWS]
    names += ["record of a list/first", "record of a list/last"]
    missing = [name for name in names if name not in least]
    if missing:
        sys.exit(f"no figures of: {', '.join(missing)}; run all benchmarks without an error")
    for structure, title in STRUCTURES.items():
        def row_time(way, rows):
            run = least[f"{structure}/{way}/{rows}"]
            return run["cpu_time"] * NANOSECONDS[run["time_unit"]] / rows
        print(f"{'Explosion, ' + title:46} {'velrzm':>10} {'query':>10} {'ratio':>6}")
        for rows in ROWS:
            ours, query = row_time("BomExplode", rows), row_time("query", rows)
            aim = verdict(ours / query, MOST_TIMES_THE_QUERY) if rows == 100000 else ""
            print(f"  {rows:9,} rows, time of a row {'':16} {ours:7.0f} ns {query:7.0f} ns {ours / query:6.2f}  {aim}")
        growth = row_time("BomExplode", ROWS[-1]) / row_time("BomExplode", ROWS[0])
        print(f"  {'growth of the time of a row':44} {growth:10.2f}  {verdict(growth, MOST_GROWTH)}")
        most = max(least[f"{structure}/BomExplode/{rows}"]["bytes per row"] for rows in ROWS)
        print(f"  {'bytes of a row beyond its values':44} {most:10.0f}  {verdict(most, MOST_BYTES)}")
    first, last = (least[f"record of a list/{place}"]["cpu_time"] for place in ("first", "last"))
    print(f"{'Value of a record, of 100,000':46} {'last':>10} {'first':>10} {'ratio':>6}")
    print(f"{'':46} {last:7.0f} ns {first:7.0f} ns {last / first:6.2f}  {verdict(last / first, MOST_TIMES_THE_FIRST_RECORD)}")


if __name__ == "__main__":
    main(sys.argv[1])
