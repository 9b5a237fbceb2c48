#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over the source files named on standard input, as a build folder compiles them.

Most of the linter's time goes into headers, so files of one target are joined and read together:
ten at a time take three times as long as one. Where two call different things by one name, the
second one waits for a later group.

usage: tidy.py BUILD_FOLDER JOBS
"""

import collections
import concurrent.futures
import json
import os
import shlex
import subprocess
import sys

LARGEST_GROUP = 10
OWN_FILES = "/(Platform|QuorvelKit|Quorvel|Tools|Tests|Benchmarks)/[A-Za-z/]*\\.(h|cpp)$"


class Source:
    """A file and the command that compiles it."""

    def __init__(self, entry):
        self.path = os.path.realpath(os.path.join(entry["directory"], entry["file"]))
        self.directory = entry["directory"]
        self.arguments = shlex.split(entry["command"])

    def flags(self):
        """The command without what names the file and its object."""
        flags = [argument for argument in self.arguments if argument not in ("-c", self.path)]
        if "-o" in flags:
            place = flags.index("-o")
            del flags[place:place + 2]
        return tuple(flags)


def sources(build, wanted):
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        compiled = {source.path: source for source in map(Source, json.load(file))}
    return [compiled[path] for path in wanted if path in compiled]


def groups(files):
    """Groups of files with equal flags and one folder, none larger than LARGEST_GROUP."""
    alike = collections.defaultdict(list)
    for file in files:
        alike[(file.flags(), os.path.dirname(file.path))].append(file)
    for members in alike.values():
        for start in range(0, len(members), LARGEST_GROUP):
            yield members[start:start + LARGEST_GROUP]


def run(path, flags):
    command = ["clang-tidy-19", "--quiet", "--header-filter=" + OWN_FILES, path, "--", *flags[1:]]
    return subprocess.run(command, capture_output=True, text=True, check=False)


def join(path, members):
    with open(path, "w", encoding="utf-8") as file:
        file.writelines(f'#include "{member.path}"\n' for member in members)


def parted(path, members):
    """The members that compile together, and those that do not go with them."""
    together, apart = list(members), []
    while len(together) > 1:
        join(path, together)
        command = [*members[0].flags(), "-fsyntax-only", "-ferror-limit=0",
                   "-fno-caret-diagnostics", path]
        errors = subprocess.run(command, capture_output=True, text=True, check=False).stderr
        faulty = {line.split(":")[0] for line in errors.splitlines() if ": error:" in line}
        if not faulty:
            break
        clashing = [member for member in together if member.path in faulty]
        if len(clashing) in (0, len(together)):
            clashing = together[1:]
        apart += clashing
        together = [member for member in together if member not in clashing]
    return together, apart


def lint(folder, number, members):
    """What the linter finds in a group: exit status, text and how many runs it took."""
    status, text, runs = 0, "", 0
    while members:
        path = os.path.join(folder, f"joined{number}.cpp")
        together, members = parted(path, members)
        if len(together) < 2:
            path = together[0].path
        result = run(path, together[0].flags())
        status, text, runs = max(status, result.returncode), text + result.stdout, runs + 1
    return status, text, runs


def main():
    build, jobs = sys.argv[1], int(sys.argv[2])
    folder = os.path.join(build, "tidy")
    os.makedirs(folder, exist_ok=True)
    wanted = [os.path.realpath(line.strip()) for line in sys.stdin if line.strip()]
    if not wanted:
        print("no files to look at")
        return
    files = sources(build, wanted)
    if not files:
        sys.exit("tidy: none of the files is compiled here")
    status = runs = 0
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        results = [pool.submit(lint, folder, number, members)
                   for number, members in enumerate(groups(files))]
        for finished in concurrent.futures.as_completed(results):
            code, text, count = finished.result()
            status = max(status, code)
            runs += count
            print(text, end="", flush=True)
    print(f"{len(files)} files in {runs} runs")
    sys.exit(status)


if __name__ == "__main__":
    main()
