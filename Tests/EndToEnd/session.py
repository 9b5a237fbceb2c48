# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The whole program between an exchange and a panel, everything a process of its own."""

import os
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).absolute().parents[2]
sys.path.insert(0, str(ROOT / "Tools"))

# pylint: disable=unused-import
from Desktop import panels, picture  # noqa: E402, F401
from Desktop.desktop import Desktop  # noqa: E402
from Desktop.item import Item  # noqa: E402
from Desktop.picture import Area  # noqa: E402, F401
from Desktop.processes import Failure, becomes, run, wait_for  # noqa: E402, F401
from Desktop.profile import Profile  # noqa: E402
from Desktop.simulator import Simulator  # noqa: E402

BUILD = Path(os.environ.get("QUORVEL_BUILD", ROOT / "build/debug"))


class Session(unittest.TestCase):
    """A session bus with a list of items on it, the exchange with prices that stand still, and the
    program's profile, in which BTC and ETH are pinned and SOL is not. Ends all of it."""

    maxDiff = None

    def setUp(self):
        folder = Path(tempfile.mkdtemp(prefix="quorvel-"))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        self.desktop = Desktop(folder)
        self.addCleanup(self.desktop.end)
        self.set_up_desktop()
        self.simulator = Simulator(
            self.desktop.processes, BUILD, self.desktop.environment, "--quiet")
        self.profile = self.new_profile("profile")
        self.profile.watch("BTC*", "ETH*", "SOL")
        self.simulator.push("BTCUSDT", "65432.10000000", "1.234")
        self.simulator.push("ETHUSDT", "0.00001234", "-0.500")

    def set_up_desktop(self):
        self.session_bus = self.desktop.start_bus()
        self.desktop.start_tool("watcher")

    def new_profile(self, name):
        profile = Profile(self.desktop.folder / name)
        profile.use_exchange(self.simulator)
        return profile

    def launch(self, profile=None, **variables):
        """Starts the program once more, in its profile or another one."""
        environment = (profile or self.profile).environment(self.desktop.environment) | variables
        program = self.desktop.processes.start(
            f"quorvel-{len(self.desktop.processes.started)}", [BUILD / "Quorvel/quorvel"],
            environment)
        # Shown where the case fails.
        self.addCleanup(lambda: sys.stderr.write(program.errors.read_text(errors="replace")))
        return program

    def start(self, **variables):
        """Starts the program and waits for its item."""
        self.program = self.launch(**variables)
        self.bus = self.desktop.connect()
        self.addCleanup(self.bus.close)
        self.item = wait_for(self.listed, "the item", 20, self.program)

    def listed(self, program=None):
        """The item of the program, once it is listed."""
        program = program or self.program
        return next((item for item in Item.listed(self.bus) if item.process == program.id), None)

    def start_with_prices(self, **variables):
        """Starts the program and waits for prices in its item and for its stream."""
        self.start(**variables)
        self.assert_becomes(lambda: "%" in (self.item.text() or ""), True)
        self.assert_becomes(self.simulator.connection_count, 1)

    def end(self, number):
        """Ends the program by a signal; sees that it ends in order."""
        self.program.send(number)
        self.assertEqual(self.program.status(), 0)

    def assert_becomes(self, get, expected, seconds=10, message=None):
        becomes(lambda: get() == expected, seconds)
        self.assertEqual(get(), expected, message)

    def assert_label(self, text, seconds=1.5):
        self.assert_becomes(lambda: self.item.label(), text, seconds)
