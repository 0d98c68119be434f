#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Prints the figures of a benchmark run, each of the library's beside its bare counterpart and the aim.

A figure is the least processor time of the repetitions: what else runs on the machine can only add to it."""
import json
import sys

# what is measured, the library's figure, its bare counterpart, and the aim: most nanoseconds more, or highest ratio
PAIRS = [
    ("checked call, trace and logs off", "checked call/frame", "checked call/by hand", ("more", 30)),
    ("access log, line of five texts", "input line/QVL_Log", "input line/write", ("ratio", 1.15)),
    ("access log, line of a call", "call line/Process_QV_RC", "call line/write", ("ratio", 1.15)),
    ("defaults, 1,000 lines", "defaults/DefaultRead", "defaults/getline", ("ratio", 1.5)),
]


def main(path):
    with open(path, encoding="utf-8") as file:
        runs = [run for run in json.load(file)["benchmarks"]
                if run["run_type"] == "iteration" and not run.get("error_occurred")]
    least = {run["name"]: run for run in sorted(runs, key=lambda run: -run["cpu_time"])}
    missing = sorted({name for _, *names, _ in PAIRS for name in names} - least.keys())
    if missing:
        sys.exit(f"no figures of: {', '.join(missing)}; run all benchmarks without an error")
    print(f"{'':34} {'velrzm':>9} {'bare':>9} {'more':>9} {'ratio':>6}  aim")
    for title, ours, bare, (kind, limit) in PAIRS:
        mine, base = least[ours]["cpu_time"], least[bare]["cpu_time"]
        met = (mine - base if kind == "more" else mine / base) <= limit
        aim = f"at most {limit} ns more" if kind == "more" else f"ratio at most {limit}"
        print(f"{title:34} {mine:6.1f} ns {base:6.1f} ns {mine - base:6.1f} ns {mine / base:6.2f}  "
              f"{aim}: {'met' if met else 'MISSED'}")
    print(f"{'allocations of a checked call':34} {least['checked call/frame']['allocations']:9.0f}"
          f"{'':29}  none")


if __name__ == "__main__":
    main(sys.argv[1])
