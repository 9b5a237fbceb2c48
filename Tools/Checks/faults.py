#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT
"""Plants faults in a copy of the program, one at a time, and sees whether a test fails.

    faults.py table [NAME...]                 the faults of faults.toml
    faults.py negate --seed N --count 30      conditions drawn by that seed, each negated

Works in build/faults: a copy of the tree, which is not touched itself, and a build folder that is
kept, so that a later run compiles only what has changed. Ends with 1 where a planted fault escapes,
or where the text that it replaces is no longer there.
"""

import argparse
import bisect
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time
import tomllib

ROOT = pathlib.Path(__file__).resolve().parents[2]
COPY = ROOT / "build/faults/tree"
BUILD = ROOT / "build/faults/build"

# What the drawing is from, by pattern.
DRAWN_FROM = ["Quorvel/Shell/*.cpp", "Quorvel/Panel/*.cpp", "Quorvel/Settings/*.cpp",
              "Platform/Controls/*.cpp", "Platform/StatusWindows/Strip*.cpp",
              "Platform/StatusWindows/StatusItemView.cpp"]
# Composition in main, which takes a process: see the tests of the single instance.
NOT_DRAWN_FROM = ["Quorvel/Shell/main.cpp"]

# What judges a drawn condition.
TARGETS = ["QuorvelTests", "StripTests", "DesktopTests"]


def run(command, limit=1800):
    """The status and the output of a command; a status of None where it took too long."""
    try:
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              errors="replace", timeout=limit)
    except subprocess.TimeoutExpired as expired:
        return None, str(expired.output or "")
    return done.returncode, done.stdout


class Bench:
    """The copy and its build."""

    def __init__(self, jobs):
        self.jobs = str(jobs)

    def prepare(self, targets):
        self.copy_tree()
        if not (BUILD / "build.ninja").exists():
            self.demand(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja",
                         "-DCMAKE_BUILD_TYPE=Debug", *self.compiler()])
        self.demand(["cmake", "--build", BUILD, "-j", self.jobs, "--target", *targets])

    @staticmethod
    def compiler():
        """The choices of the debug preset."""
        listing = (ROOT / "CMakePresets.json").read_text()
        variables = re.findall(r'"(CMAKE_(?:C|CXX)_COMPILER(?:_LAUNCHER)?)":\s*"([^"]+)"', listing)
        return [f"-D{name}={value}" for name, value in dict(variables).items()]

    @staticmethod
    def copy_tree():
        """The files of the tree as they are now; those that are equal keep their time."""
        listing = subprocess.run(["git", "-C", ROOT, "ls-files", "-co", "--exclude-standard", "-z"],
                                 check=True, capture_output=True).stdout.decode()
        names = [name for name in listing.split("\0") if name and (ROOT / name).is_file()]
        COPY.mkdir(parents=True, exist_ok=True)
        for name in names:
            target = COPY / name
            if target.exists() and target.read_bytes() == (ROOT / name).read_bytes():
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, target)
        wanted = {COPY / name for name in names}
        for path in [p for p in COPY.rglob("*") if p.is_file() and p not in wanted]:
            path.unlink()

    @staticmethod
    def demand(command):
        status, output = run(command)
        if status != 0:
            sys.exit(f"faults: cannot build what is without a fault\n{output[-4000:]}")

    def demand_success(self, tests, limit):
        """A case that fails anyway would seem to catch everything."""
        verdict, who = self.judge_built(tests, limit)
        if verdict != "escaped":
            sys.exit(f"faults: without a fault, too: {verdict} {who}")

    def judge(self, path, text, targets, tests, limit):
        """What becomes of the tree with this text in place of that of `path`, and which case told.

        @param tests a pattern of ctest's; all of the targets where None"""
        original = path.read_text()
        path.write_text(text)
        try:
            status, output = run(["cmake", "--build", BUILD, "-j", self.jobs, "--target", *targets])
            if status != 0:
                return "does not compile", output
            return self.judge_built(tests, limit)
        finally:
            path.write_text(original)

    def judge_built(self, tests, limit):
        status, output = run(["ctest", "--test-dir", BUILD, "-j", self.jobs, "--stop-on-failure",
                              "--no-tests=error", "--timeout", "30", "-R", tests], limit)
        if status == 0:
            return "escaped", ""
        if status is None:
            return "caught", "took too long"
        failed = re.findall(r"^\s*\d+ - (\S+) \(", output, re.MULTILINE)
        if not failed:
            return "no such test", output[-300:]
        return "caught", failed[0]


def suites_of(targets):
    """A pattern for the cases of those executables, which begin with a capital; the scripts' do not."""
    suites = set()
    for target in targets:
        binary = next(path for path in BUILD.rglob(target) if path.is_file())
        _, output = run(["env", "QT_QPA_PLATFORM=offscreen", str(binary), "--gtest_list_tests"])
        suites |= {line.split("#")[0].strip() for line in output.splitlines()
                   if re.match(r"^\w[\w/]*\.(\s|$)", line)}
    return "^(" + "|".join(re.escape(suite) for suite in sorted(suites)) + ")[A-Z]"


def without_comments_and_texts(text):
    """The text with the inside of comments and of texts blanked, each character in its place."""
    pattern = r'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|^\s*#[^\n]*'
    return re.sub(pattern, lambda match: re.sub(r"[^\n]", "_", match[0]), text,
                  flags=re.MULTILINE | re.DOTALL)


def closing(text, start):
    """The place of the bracket that closes the one at `start`."""
    depth = 0
    for place in range(start, len(text)):
        depth += {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}.get(text[place], 0)
        if depth == 0:
            return place
    return None


def operands(text, start, end):
    """The spans between the && and || of the outermost level, with blanks left out."""
    spans, depth, begin = [], 0, start
    place = start
    while place < end:
        depth += {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}.get(text[place], 0)
        if depth == 0 and text[place:place + 2] in ("&&", "||") and text[place - 1] == " ":
            spans.append((begin, place))
            begin = place + 2
        place += 1
    spans.append((begin, end))
    return [trimmed(text, *span) for span in spans]


def conditions(text):
    """The spans of the conditions in a source: of if and while, of ?:, returned ones, and the
    operands of && and || in them."""
    bare = without_comments_and_texts(text)
    whole = []
    for match in re.finditer(r"\b(?:if|while)\s*\(", bare):
        start = match.end()
        end = closing(bare, start - 1)
        if end is None:
            continue
        # What is declared before the condition, or is the condition.
        declared = bare.rfind(";", start, end)
        start = declared + 1 if declared >= 0 else start
        if not re.match(r"\s*(?:const\s+)?(?:auto|[A-Z]\w*)[\s*&]+(?:const\s+)?[\w\[]\S*\s*=[^=]",
                        bare[start:end]):
            whole.append((start, end))
    for match in re.finditer(r"(?:\breturn\b|[=(,:]\s|\?\s)([^;?{}=(,:]*(?:\([^;?{}]*\))?"
                             r"[^;?{}=(,:]*?)\s*\?\s", bare):
        if balanced(bare[match.start(1):match.end(1)]):
            whole.append(match.span(1))
    for match in re.finditer(r"(?:\breturn\b|\bbool \w+ =)([^;{}]*(?:&&|\|\||[=!<>]=|[^-<]>\s|<\s)"
                             r"[^;{}]*);", bare):
        if "?" not in match[1] and balanced(match[1]):
            whole.append(match.span(1))
    spans = set()
    for start, end in whole:
        spans |= {trimmed(bare, start, end), *operands(bare, start, end)}
    return sorted(spans)


def balanced(text):
    return all(text.count(a) == text.count(b) for a, b in ("()", "[]")) and "<<" not in text


def trimmed(text, start, end):
    part = text[start:end]
    return start + len(part) - len(part.lstrip()), start + len(part.rstrip())


def draw(seed, count, patterns):
    """As many conditions as asked for, as (file, span), the same for the same seed and tree."""
    files = sorted({path for pattern in patterns for path in ROOT.glob(pattern)})
    files = [path for path in files if str(path.relative_to(ROOT)) not in NOT_DRAWN_FROM]
    pool = [(path, span) for path in files for span in conditions(path.read_text())]
    return random.Random(seed).sample(pool, min(count, len(pool)))


def line_of(text, place):
    breaks = [match.start() for match in re.finditer("\n", text)]
    return bisect.bisect_left(breaks, place) + 1


def negate(arguments):
    drawn = draw(arguments.seed, arguments.count, arguments.only or DRAWN_FROM)
    if arguments.list:
        for path, (start, end) in drawn:
            text = path.read_text()
            print(f"{path.relative_to(ROOT)}:{line_of(text, start)}: {text[start:end]}")
        return 0
    bench = Bench(arguments.jobs)
    targets = arguments.target or TARGETS
    bench.prepare(targets)
    tests = suites_of(targets)
    bench.demand_success(tests, arguments.limit)
    began = time.monotonic()
    counts = {}
    for number, (path, (start, end)) in enumerate(drawn, 1):
        if arguments.pick and number not in arguments.pick:
            continue
        text = path.read_text()
        condition = text[start:end]
        changed = text[:start] + f"!({condition})" + text[end:]
        copied = COPY / path.relative_to(ROOT)
        verdict, who = bench.judge(copied, changed, targets, tests, arguments.limit)
        counts[verdict] = counts.get(verdict, 0) + 1
        place = f"{path.relative_to(ROOT)}:{line_of(text, start)}"
        told = f"  [{who}]" if verdict == "caught" else ""
        print(f"{number:3} {verdict:16} {place}: !({' '.join(condition.split())}){told}", flush=True)
    bench.copy_tree()
    verdicts = ", ".join(f"{count} {verdict}" for verdict, count in sorted(counts.items()))
    print(f"seed {arguments.seed}: {verdicts}; {time.monotonic() - began:.0f} s")
    return 0


def table(arguments):
    with open(ROOT / "Tools/Checks/faults.toml", "rb") as file:
        faults = tomllib.load(file)["fault"]
    unknown = set(arguments.names) - {fault["name"] for fault in faults}
    if unknown:
        sys.exit(f"faults: no fault is called {', '.join(sorted(unknown))}")
    faults = [fault for fault in faults if not arguments.names or fault["name"] in arguments.names]
    bench = Bench(arguments.jobs)
    bench.prepare(sorted({target for fault in faults for target in fault["targets"]}))
    for tests in sorted({fault["tests"] for fault in faults}):
        bench.demand_success(tests, arguments.limit)
    good = 0
    for fault in faults:
        path = COPY / fault["file"]
        text = path.read_text() if path.exists() else ""
        if text.count(fault["before"]) != 1:
            verdict, who = "does not apply", fault["file"]
        else:
            verdict, who = bench.judge(path, text.replace(fault["before"], fault["after"]),
                                       fault["targets"], fault["tests"], arguments.limit)
        good += verdict == "caught"
        told = f"  [{who}]" if verdict in ("caught", "does not apply") else ""
        print(f"{verdict:16} {fault['name']}{told}", flush=True)
    bench.copy_tree()
    print(f"{good} of {len(faults)} caught")
    return 0 if good == len(faults) else 1


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(dest="command", required=True)
    of_table = commands.add_parser("table")
    of_table.add_argument("names", nargs="*", metavar="NAME")
    of_draw = commands.add_parser("negate")
    of_draw.add_argument("--seed", type=int, required=True)
    of_draw.add_argument("--count", type=int, default=30)
    of_draw.add_argument("--only", action="append", metavar="PATTERN",
                         help="draw from these files, e.g. 'Quorvel/Panel/*.cpp'")
    of_draw.add_argument("--target", action="append", metavar="NAME",
                         help="judge by these test programs instead of the usual ones")
    of_draw.add_argument("--pick", type=int, action="append", metavar="NUMBER",
                         help="of those drawn judge only this one; may be given again")
    of_draw.add_argument("--list", action="store_true", help="only show what is drawn")
    for command in (of_table, of_draw):
        command.add_argument("--jobs", type=int, default=2)
        command.add_argument("--limit", type=int, default=600, help="seconds for the tests of one")
    arguments = parser.parse_args()
    return table(arguments) if arguments.command == "table" else negate(arguments)


if __name__ == "__main__":
    sys.exit(main())
