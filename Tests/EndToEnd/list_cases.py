# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Prints the cases of a file of tests, one a line, as the file takes them for arguments."""

import pathlib
import sys
import unittest

file = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(file.parent))
module = __import__(file.stem)
for suite in unittest.defaultTestLoader.loadTestsFromModule(module):
    for case in suite:
        if case.__class__.__module__ == file.stem:
            print(case.id().partition(".")[2])
