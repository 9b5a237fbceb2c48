#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT
"""Prints the source files that show a linter all C++ that has changed since a revision: those that
have changed, and for a changed header one that includes it, its own first.

usage: changed_sources.py REVISION
"""

import os
import subprocess
import sys


def git(*arguments, may_fail=False):
    return subprocess.run(["git", *arguments], capture_output=True, text=True,
                          check=not may_fail).stdout.split()


def includers(header):
    """The source files that include a header, its own alone where it has one."""
    own = header.removesuffix(".h") + ".cpp"
    if os.path.exists(own):
        return [own]
    return git("grep", "-l", "-F", f'#include "{header}"', "--", "*.cpp", may_fail=True)


def main():
    changed = {path for path in [*git("diff", "--name-only", sys.argv[1]),
                                 *git("ls-files", "--others", "--exclude-standard")]
               if path.endswith((".h", ".cpp")) and os.path.exists(path)}
    sources = {path for path in changed if path.endswith(".cpp")}
    for header in sorted(changed - sources):
        shown_by = includers(header)
        if shown_by and not sources.intersection(shown_by):
            sources.add(shown_by[0])
    print("\n".join(sorted(sources)))


if __name__ == "__main__":
    main()
