#!/usr/bin/env python3
"""Prints what tests run of the program: the lines of each folder in per cent, and the functions that never run.

usage: coverage.py FILE    of gcovr --json
"""
import collections
import json
import os
import sys


def main():
    with open(sys.argv[1], encoding="utf-8") as report:
        files = json.load(report)["files"]
    lines = collections.defaultdict(list)
    idle = collections.defaultdict(set)
    ran = set()
    for file in files:
        name = file["file"]
        lines[os.path.dirname(name)] += [line["count"] > 0 for line in file["lines"] if not line["gcovr/noncode"]]
        for function in file["functions"]:
            # One line may hold several: a template's, or a lambda beside the function around it.
            place = (name, function["lineno"], function["name"])
            (ran if function["execution_count"] else idle[name]).add(place)
    print(f"{'folder':20} {'lines':>6} {'run':>7}")
    for folder, runs in sorted(lines.items()):
        print(f"{folder:20} {len(runs):6} {100 * sum(runs) / max(len(runs), 1):6.1f}%")
    print("\nNever run:")
    for name in sorted(idle):
        for _, line, function in sorted(idle[name] - ran):
            print(f"{name}:{line} {function}")


main()
