# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""What a screen reader finds, read over the accessibility bus by another process. Leaves the trees in
build/panels/accessibility-*.txt."""

import unittest

from panel_session import PICTURES, PanelSession
from session import becomes

# What has no name of its own: it only holds others.
UNNAMED = {"filler"}
# What takes no input.
PASSIVE = {"application", "filler", "label", "list", "panel", "scroll bar"}


def row(part):
    """Role, name, and what is chosen, entered, or told besides."""
    if part.role == "combo box":
        # A choice gives its value for its name, and its label by a relation.
        return part.role, "".join(part.labels), part.name
    told = "checked" if "checked" in part.states else part.value or part.description.strip()
    return part.role, part.name, "" if told == part.name else told


class Accessibility(PanelSession):
    def setUp(self):
        super().setUp()
        self.profile.alert(("BTC", "priceRisesAbove", 70000))
        self.open_popover_of_two_pairs()

    def assert_told(self, name, controls):
        """Sees that these are the controls in their order, and that none lacks a name or focus."""
        def rows():
            return [row(part) for part in self.desktop.parts()
                    if part.role not in PASSIVE - {"list"}]
        becomes(lambda: rows() == controls, 5)
        parts = self.desktop.parts()
        (PICTURES / f"accessibility-{name}.txt").write_text("\n".join(map(str, parts)) + "\n")
        self.assertEqual(rows(), controls)
        self.assertEqual([part for part in parts if not part.name and part.role not in UNNAMED], [])
        self.assertEqual([str(part) for part in parts if part.role not in PASSIVE
                          and "focusable" not in part.states], [])

    def test_the_popover_is_told(self):
        self.desktop.type("xr")
        self.assert_told("popover", [
            ("text", "Search coins, e.g. BTC", "xr"),
            ("push button", "Add XRP", ""),
            ("list", "Watchlist", ""),
            ("list item", "BTCUSDT, 65,432.10, +1.23%", "Pinned to menu bar, Alert set"),
            ("push button", "Remove BTC", ""),
            ("list item", "ETHUSDT, 0.00001234, -0.50%", ""),
            ("push button", "Remove ETH", ""),
            ("push button", "Settings…", ""),
            ("push button", "Quit", ""),
        ])


if __name__ == "__main__":
    unittest.main()
