# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""What a screen reader finds, read over the accessibility bus by another process. Leaves the trees in
build/panels/accessibility-*.txt."""

import re
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
    told = re.sub(r"Price of \d+:\d+", "Price of TIME", told)
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
            ("list item", "BTCUSDT, 65,432.10, +1.23%", 
             "Pinned to menu bar, Alert set, Price of TIME"),
            ("push button", "Remove BTC", ""),
            ("list item", "ETHUSDT, 0.00001234, -0.50%", "Price of TIME"),
            ("push button", "Remove ETH", ""),
            ("push button", "Settings…", ""),
            ("push button", "Quit", ""),
        ])

    def test_the_settings_are_told_with_what_is_chosen(self):
        self.click_on("push button", "Settings…")
        controls = [
            ("combo box", "Show prices in", "Automatic"),
            ("combo box", "Display", "Rotate one"),
            ("spin button", "Rotation interval: 5s", "5"),
            ("combo box", "Content", "Price and change"),
            ("check box", "Show icon", "checked"),
            ("check box", "Show up/down arrow", "checked"),
            ("combo box", "Theme", "Follow system"),
            ("radio button", "Red up, green down", "checked"),
            ("radio button", "Green up, red down", ""),
            ("combo box", "Chart period", "24 hours"),
            ("check box", "BTC Rises above 70,000.00", "checked"),
            ("push button", "Delete BTC Rises above 70,000.00", "Delete"),
            ("combo box", "Coin", "Choose…"),
            ("combo box", "Condition", "Price rises above"),
            ("text", "Threshold", ""),
            ("check box", "Repeat", ""),
            ("push button", "Add", "Choose a coin first"),
            ("combo box", "Language", "Follow system"),
            ("check box", "Launch Quorvel at login", ""),
        ]
        self.assert_told("settings", controls)
        # By keys, from the first control on: each tells of its change.
        self.desktop.press("Tab", "Down", "Tab", "Up", "Tab", "Tab", "space")
        controls[1] = ("combo box", "Display", "Side by side")
        controls[2] = ("spin button", "Show up to 4", "4")
        controls[4] = ("check box", "Show icon", "")
        self.assert_told("settings-changed", controls)


if __name__ == "__main__":
    unittest.main()
