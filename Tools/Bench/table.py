#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT
"""Puts the results of the benchmark programs into one table and one file.

    table.py OUTPUT.json RESULT.json...

Benchmarks come in pairs: `X/subject` is ours, `X/reference` is what it is held against, and whatever
follows (an argument, a thread count) must be the same on both sides. The figure is the median of the
repetitions: CPU time, or wall-clock time for a benchmark that is measured in `real_time`.
"""

import json
import re
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
OPTIONS = re.compile(r"/(repeats|iterations|min_time|min_warmup_time):[\d.]+")
SIDE = re.compile(r"/(subject|reference)(?=/|$)")


def medians(path):
    """Each benchmark's name and its median in nanoseconds."""
    with open(path, encoding="utf-8") as file:
        entries = json.load(file)["benchmarks"]
    for entry in entries:
        if entry.get("error_occurred"):
            raise SystemExit(f"{entry['name']} failed: {entry.get('error_message')}")
        if entry.get("aggregate_name") == "median":
            clock = "real_time" if "/real_time" in entry["run_name"] else "cpu_time"
            yield OPTIONS.sub("", entry["run_name"]), entry[clock] * NANOSECONDS[entry["time_unit"]]


def pairs(figures):
    """One row for each pair, and one without a ratio for each benchmark that has no partner."""
    rows = {}
    for name, nanoseconds in figures:
        side = SIDE.search(name)
        row = rows.setdefault(SIDE.sub("", name), {})
        row[side[1] if side else "subject"] = nanoseconds
    for name, row in rows.items():
        subject, reference = row.get("subject"), row.get("reference")
        yield {"name": name, "subject_ns": subject, "reference_ns": reference,
               "ratio": subject / reference if subject is not None and reference else None}


def readable(nanoseconds):
    if nanoseconds is None:
        return "-"
    for unit, size in reversed(NANOSECONDS.items()):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def main():
    output, *inputs = sys.argv[1:]
    rows = list(pairs(figure for path in inputs for figure in medians(path)))
    if not rows:
        raise SystemExit("no benchmark gave a figure")
    with open(output, "w", encoding="utf-8") as file:
        json.dump({"benchmarks": rows}, file, indent=2)
        file.write("\n")
    width = max(len(row["name"]) for row in rows)
    print(f"{'benchmark':<{width}}  {'subject':>10}  {'reference':>10}  {'ratio':>6}")
    for row in rows:
        ratio = "-" if row["ratio"] is None else f"{row['ratio']:.2f}"
        print(f"{row['name']:<{width}}  {readable(row['subject_ns']):>10}  "
              f"{readable(row['reference_ns']):>10}  {ratio:>6}")


if __name__ == "__main__":
    main()
