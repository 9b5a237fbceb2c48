#!/usr/bin/env python3
"""Checks that includes between the modules, and between their folders, go in one direction only.

The linker sees only modules; this sees the folders too, and says which line is wrong.
"""

import re
import subprocess
import sys

# What each place may include from this project besides itself; the longest matching prefix counts.
ALLOWED = {
    # One level: what waits needs a clock, and what talks to the network can be awaited.
    "Platform/Foundation": ["Platform/Async"],
    "Platform/Async": ["Platform/Foundation"],
    "Platform/Services": ["Platform/Async", "Platform/Foundation"],
    "Platform/Desktop": ["Platform/Async", "Platform/Foundation", "Platform/Services"],
    "Platform/Controls": ["Platform/Foundation", "Platform/Desktop"],
    "Platform/StatusBar": ["Platform/Async", "Platform/Foundation", "Platform/Services",
                           "Platform/Desktop", "Platform/Controls"],
    "QuorvelKit/MarketModel": ["Platform"],
    "QuorvelKit/MarketData": ["Platform", "QuorvelKit/MarketModel"],
    "QuorvelKit/Stores": ["Platform", "QuorvelKit/MarketModel"],
    "QuorvelKit/StatusBar": ["Platform", "QuorvelKit/MarketModel", "QuorvelKit/Stores"],
    "QuorvelKit/Alerts": ["Platform", "QuorvelKit/MarketModel", "QuorvelKit/Stores"],
    "QuorvelKit/Services": ["Platform", "QuorvelKit"],
    "Quorvel/Model": ["Platform", "QuorvelKit"],
    "Quorvel/Panel": ["Platform", "QuorvelKit", "Quorvel/Model"],
    "Quorvel/Settings": ["Platform", "QuorvelKit", "Quorvel/Model"],
    "Quorvel/Shell": ["Platform", "QuorvelKit", "Quorvel"],
}

# Exceptions to what the lists above allow: the kit knows no screen.
FORBIDDEN = {"QuorvelKit": ["Platform/Desktop", "Platform/Controls", "Platform/StatusBar"]}

MODULES = ("Platform/", "QuorvelKit/", "Quorvel/")
PRODUCT_FOREIGN = ("Tests/", "Tools/", "Benchmarks/")
INCLUDE = re.compile(r'^\s*#\s*include\s+[<"]([^>"]+)[>"]')


def within(path, folder):
    return path.startswith(folder + "/")


def permitted(place, target):
    if any(within(target, folder)
           for origin, folders in FORBIDDEN.items() if within(place + "/", origin)
           for folder in folders):
        return False
    return any(within(target, folder) for folder in [place, *ALLOWED[place]])


def faults(path, text):
    """The wrong includes of one file, worded for whoever has to move them."""
    place = next((folder for folder in ALLOWED if within(path, folder)), None)
    if place is None:
        yield f"{path}: this folder has no rule; add it to {sys.argv[0]}"
        return
    for number, line in enumerate(text.splitlines(), 1):
        found = INCLUDE.match(line)
        if found and found[1].startswith(MODULES + PRODUCT_FOREIGN):
            if not permitted(place, found[1]):
                yield f"{path}:{number}: {place} must not include {found[1]}"


def main():
    files = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "--",
         *(f"{module}*.{suffix}" for module in MODULES for suffix in ("h", "cpp"))],
        capture_output=True, text=True, check=True).stdout.split()
    wrong = []
    for path in files:
        with open(path, encoding="utf-8") as file:
            wrong += faults(path, file.read())
    print("\n".join(wrong) if wrong else f"{len(files)} files include in the right direction")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
