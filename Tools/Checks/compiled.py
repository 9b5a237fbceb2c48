#!/usr/bin/env python3
"""Of the source files named on standard input, prints those that the build in a folder compiles."""

import json
import os
import sys


def main():
    with open(os.path.join(sys.argv[1], "compile_commands.json"), encoding="utf-8") as file:
        compiled = {os.path.realpath(os.path.join(entry["directory"], entry["file"]))
                    for entry in json.load(file)}
    for line in sys.stdin:
        if os.path.realpath(line.strip()) in compiled:
            print(line.strip())


if __name__ == "__main__":
    main()
