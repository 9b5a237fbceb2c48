#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT
"""Checks the plan of the house: which folder may include which, that there is no circle, that no
folder is too big to enter, that nothing waits in a way of its own, and that the tests are a part of
the code and not the other way round.

The linker sees only modules; this sees the folders too, and says which line is wrong. With
`--against REVISION` it also prints how many lines each module had then.
"""

import argparse
import posixpath
import re
import subprocess
import sys

# What each folder may include from this project besides itself.
ALLOWED = {
    "Platform/Foundation": [],
    "Platform/JSON": ["Platform/Foundation"],
    "Platform/Async": ["Platform/Foundation"],
    "Platform/Network": ["Platform/Foundation", "Platform/Async"],
    "Platform/DBus": ["Platform/Foundation", "Platform/Async"],
    "Platform/Services": ["Platform/Foundation", "Platform/Async", "Platform/DBus"],
    "Platform/Appearance": ["Platform/Foundation", "Platform/Async", "Platform/DBus"],
    "Platform/Desktop": ["Platform/Foundation", "Platform/Async", "Platform/DBus"],
    "Platform/Popover": ["Platform/Foundation", "Platform/Appearance", "Platform/Desktop"],
    "Platform/Controls": ["Platform/Foundation", "Platform/Appearance", "Platform/Desktop"],
    "Platform/StatusContent": ["Platform/Foundation", "Platform/Appearance", "Platform/Desktop"],
    "Platform/StatusNotifier": ["Platform/Foundation", "Platform/Async", "Platform/DBus",
                                "Platform/Appearance", "Platform/StatusContent"],
    "Platform/StatusWindows": ["Platform/Foundation", "Platform/Appearance", "Platform/Desktop",
                               "Platform/Controls", "Platform/StatusContent"],
    "Platform/StatusBar": ["Platform/Foundation", "Platform/Async", "Platform/Appearance",
                           "Platform/Desktop", "Platform/StatusContent",
                           "Platform/StatusNotifier", "Platform/StatusWindows"],
    "QuorvelKit/MarketModel": ["core"],
    "QuorvelKit/MarketData": ["core", "QuorvelKit/MarketModel"],
    "QuorvelKit/MarketData/Binance": ["core", "QuorvelKit/MarketModel", "QuorvelKit/MarketData"],
    "QuorvelKit/Feed": ["core", "QuorvelKit/MarketModel", "QuorvelKit/MarketData",
                        "QuorvelKit/Services"],
    "QuorvelKit/Stores": ["core", "QuorvelKit/MarketModel"],
    "QuorvelKit/StatusBar": ["core", "QuorvelKit/MarketModel", "QuorvelKit/Stores"],
    "QuorvelKit/Alerts": ["core", "QuorvelKit/MarketModel", "QuorvelKit/Stores"],
    "QuorvelKit/Services": ["core"],
    "Quorvel/Model": ["platform", "kit"],
    "Quorvel/Panel": ["platform", "kit", "Quorvel/Model"],
    "Quorvel/Choices": ["platform", "kit", "Quorvel/Model"],
    "Quorvel/Settings": ["platform", "kit", "Quorvel/Model", "Quorvel/Choices"],
    "Quorvel/Shell": ["platform", "kit", "exchanges", "Quorvel/Model", "Quorvel/Panel",
                      "Quorvel/Settings"],
}

# Several folders under one word. The kit sees what has no screen; only what composes the program
# sees an exchange.
GROUPS = {
    "core": ["Platform/Foundation", "Platform/JSON", "Platform/Async", "Platform/Network",
             "Platform/DBus", "Platform/Services"],
    "platform": [folder for folder in ALLOWED if folder.startswith("Platform/")],
    "kit": [folder for folder in ALLOWED if folder.startswith("QuorvelKit/")
            and not folder.startswith("QuorvelKit/MarketData/")],
    "exchanges": [folder for folder in ALLOWED if folder.startswith("QuorvelKit/MarketData/")],
}

# Words that no product code needs, what stands in for them, and the one place that makes it.
FORBIDDEN = [
    (re.compile(r"\bQDBus::Block\b|\bQDBusInterface\b|\bQDBusPendingCallWatcher\b"),
     "DBusCall", "Platform/DBus/DBusCall."),
    (re.compile(r"\bQ(Basic)?Timer\b|\bQTimerEvent\b"),
     "the clock that is handed in", "Platform/Foundation/SystemClock."),
    (re.compile(r"\bQEventLoop\b|\bprocessEvents\b|[.>]waitFor[A-Z]\w*\(|\bm?sleep(_for)?\("),
     "a task that awaits", "Platform/Async/FutureAwaiter."),
]

MODULES = ("Platform", "QuorvelKit", "Quorvel")
FOREIGN = ("Tests", "Tools", "Benchmarks")
CODE = (".h", ".cpp", ".py", ".sh", ".cmake", "CMakeLists.txt")
LARGEST_FOLDER = 25  # source files; what one can still take in at a glance
SHARE_OF_TESTS_MEANT = 0.33
LARGEST_SHARE_OF_TESTS = 0.36  # what it was when this check was made; it only ever goes down
INCLUDE = re.compile(r'^\s*#\s*include\s+[<"]([^>"]+)[>"]')


def git(*arguments):
    return subprocess.run(["git", *arguments], capture_output=True, text=True,
                          check=True).stdout


def files_now():
    """Path and text of every file of code, new ones included."""
    for path in git("ls-files", "--cached", "--others", "--exclude-standard").split("\n"):
        if path.endswith(CODE):
            try:
                with open(path, encoding="utf-8") as file:
                    yield path, file.read()
            except FileNotFoundError:
                pass  # removed, and not committed yet


def files_at(revision):
    for path in git("ls-tree", "-r", "--name-only", revision).split("\n"):
        if path.endswith(CODE):
            yield path, git("show", f"{revision}:{path}")


def allowed(folder):
    for word in ALLOWED[folder]:
        yield from GROUPS.get(word, [word])


def includes(text):
    """Numbers of lines and the files of this project that they include."""
    for number, line in enumerate(text.splitlines(), 1):
        found = INCLUDE.match(line)
        if found and found[1].split("/")[0] in MODULES + FOREIGN:
            yield number, found[1]


def wrong_includes(sources):
    """The includes that no rule allows, worded for whoever has to move them."""
    for path, text in sources:
        folder = posixpath.dirname(path)
        if folder not in ALLOWED:
            yield f"{path}: this folder has no rule; add it to {sys.argv[0]}"
            continue
        permitted = {folder, *allowed(folder)}
        for number, target in includes(text):
            if posixpath.dirname(target) not in permitted:
                yield f"{path}:{number}: {folder} must not include {target}"


def forbidden_words(sources):
    for path, text in sources:
        for number, line in enumerate(text.splitlines(), 1):
            code = line.split("//")[0]
            for pattern, instead, place in FORBIDDEN:
                if pattern.search(code) and not path.startswith(place):
                    yield f"{path}:{number}: {pattern.search(code)[0]}: use {instead}"


def circle(arrows):
    """Folders that lead back to the first of them; None where no way does."""
    done, way = set(), []

    def visit(folder):
        if folder in way:
            return way[way.index(folder):] + [folder]
        if folder in done:
            return None
        way.append(folder)
        for target in sorted(arrows.get(folder, ())):
            found = visit(target)
            if found:
                return found
        done.add(way.pop())
        return None

    for folder in sorted(arrows):
        found = visit(folder)
        if found:
            return found
    return None


def actual_arrows(sources):
    arrows = {}
    for path, text in sources:
        folder = posixpath.dirname(path)
        targets = {posixpath.dirname(target) for _, target in includes(text)}
        arrows.setdefault(folder, set()).update(targets - {folder})
    return arrows


def code_lines(path, text):
    """Lines that are neither blank nor only a comment."""
    comment = "//" if path.endswith((".h", ".cpp")) else "#"
    return sum(1 for line in text.splitlines()
               if line.strip() and not line.strip().startswith(comment))


def lines_by_module(files):
    lines = {}
    for path, text in files:
        module = path.split("/")[0] if "/" in path else "."
        lines[module] = lines.get(module, 0) + code_lines(path, text)
    return lines


def share_of_tests(lines):
    return lines.get("Tests", 0) / sum(lines.values())


def print_lines(now, before):
    for module in sorted(now, key=now.get, reverse=True):
        change = f"{before.get(module, 0):8}" if before else ""
        print(f"  {module:12}{change}{now[module]:8}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("--against", metavar="REVISION", help="print the lines of then as well")
    revision = parser.parse_args().against

    files = list(files_now())
    cxx = [(path, text) for path, text in files if path.endswith((".h", ".cpp"))]
    product = [(path, text) for path, text in cxx if path.split("/")[0] in MODULES]
    wrong = [*wrong_includes(product), *forbidden_words(product)]

    for name, arrows in (("includes", actual_arrows(product)),
                         ("rules", {folder: set(allowed(folder)) for folder in ALLOWED})):
        found = circle(arrows)
        if found:
            wrong.append(f"the {name} go in a circle: {' -> '.join(found)}")
    print("circles: " + ("see below" if any("circle" in line for line in wrong) else "none"))

    sizes = {}
    for path, _ in cxx:
        sizes[posixpath.dirname(path)] = sizes.get(posixpath.dirname(path), 0) + 1
    largest = max(sizes, key=sizes.get)
    print(f"largest folder: {largest}, {sizes[largest]} files")
    wrong += [f"{folder}: {size} files, more than {LARGEST_FOLDER}"
              for folder, size in sizes.items() if size > LARGEST_FOLDER]

    now = lines_by_module(files)
    before = lines_by_module(files_at(revision)) if revision else None
    print("lines of code" + (f", at {revision} and now" if before else ""))
    print_lines(now, before)
    share = share_of_tests(now)
    print(f"share of tests: {share:.1%}, at most {SHARE_OF_TESTS_MEANT:.0%} is meant"
          + (f", was {share_of_tests(before):.1%}" if before else ""))
    if share > LARGEST_SHARE_OF_TESTS:
        wrong.append(f"tests are {share:.1%} of the code, more than {LARGEST_SHARE_OF_TESTS:.0%}")

    print("\n".join(wrong) if wrong else f"{len(product)} files include in the right direction")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
