# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

import signal
import time
import unittest

from session import Session, becomes

NAMES = "org.quorvel.Quorvel."


class SecondStart(Session):
    def start_again(self, **variables):
        """Starts the program once more in the first one's profile: its exit status, what it has
        printed as errors, and the seconds it took."""
        began = time.monotonic()
        second = self.launch(**variables)
        return second.status(), second.errors.read_text(), time.monotonic() - began

    def listeners(self):
        """The processes that can be called from a second start."""
        return [self.bus.call_blocking("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                       "GetConnectionUnixProcessID", "s", (name,))
                for name in self.bus.list_names() if name.startswith(NAMES)]

    def candles(self):
        """How many were asked for: what the panel does first, and what shows from outside."""
        return len(self.simulator.requests("/api/v3/klines"))

    def test_it_opens_the_panel_of_the_first_and_ends(self):
        self.start_with_prices()
        files = self.profile.files()
        self.assertEqual(self.listeners(), [self.program.id])
        self.assertEqual(self.candles(), 0)
        status, errors, seconds = self.start_again()
        self.assertEqual((status, errors), (0, ""))
        self.assertLess(seconds, 1)
        self.assert_becomes(self.candles, 3)
        self.assertEqual(self.profile.files(), files)
        self.assertTrue(self.program.is_running())

    def test_it_reports_a_first_that_does_not_answer(self):
        self.start_with_prices()
        self.program.send(signal.SIGSTOP)
        files = self.profile.files()
        status, errors, seconds = self.start_again()
        self.program.send(signal.SIGCONT)
        self.assertEqual(status, 1)
        self.assertTrue(2 <= seconds < 3, seconds)
        self.assertIn(str(self.program.id), errors)
        self.assertEqual(self.profile.files(), files)
        self.assert_becomes(self.program.is_running, True)

    def test_it_reports_a_first_in_another_session(self):
        self.start()
        first_session = self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
        self.desktop.start_bus()
        self.assertNotEqual(self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"], first_session)
        status, errors, _ = self.start_again()
        self.assertEqual(status, 1)
        self.assertIn(str(self.program.id), errors)
        self.assertTrue(self.program.is_running())

    def test_it_takes_over_from_a_first_that_died(self):
        self.start()
        self.program.send(signal.SIGKILL)
        self.assertEqual(self.program.status(), -signal.SIGKILL)
        self.start()
        self.assertEqual(self.listeners(), [self.program.id])

    def test_one_is_left_of_several_at_the_same_instant(self):
        self.bus = self.desktop.connect()
        programs = [self.launch() for _ in range(3)]
        becomes(lambda: sum(program.is_running() for program in programs) == 1)
        self.assertEqual(sorted((program.popen.returncode for program in programs), key=str),
                         [0, 0, None])
        self.assertEqual(self.listeners(),
                         [program.id for program in programs if program.is_running()])
        self.bus.close()

    def test_it_runs_in_another_profile(self):
        self.start()
        other = self.launch(self.new_profile("other"))
        self.assert_becomes(lambda: self.listed(other) is not None, True)
        self.assertEqual(sorted(self.listeners()), sorted([self.program.id, other.id]))


if __name__ == "__main__":
    unittest.main()
