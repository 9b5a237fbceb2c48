# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

import signal
import time
import unittest

from item_pictures import ItemPictures
from panel_session import PICTURES, PanelSession
from session import Area, becomes, panels, picture, run, wait_for


class EachPanel:
    def set_up_desktop(self):
        super().set_up_desktop()
        self.file = PICTURES / f"{self.kind.name}.png"
        self.file.unlink(missing_ok=True)

    def still_picture(self, seconds):
        """The panel once nothing has changed on it for that long."""
        still, since = self.desktop.picture(self.panel_area), time.monotonic()
        deadline = since + 10
        while time.monotonic() < min(since + seconds, deadline):
            now = self.desktop.picture(self.panel_area)
            if now != still:
                still, since = now, time.monotonic()
        return still

    def pictures(self):
        taken = []
        for price, change in (("65432.10", "1.234"), ("75432.10", "1.234"), ("75432.11", "1.234"),
                              ("75432.11", "-1.234")):
            self.simulator.push("BTCUSDT", price, change)
            if taken:
                becomes(lambda: self.desktop.picture(self.panel_area) != taken[-1], 2)
            # Prices change once a second.
            taken.append(self.still_picture(0.1 if taken else 1.2))
        return ItemPictures(*taken)

    def place(self):
        """Where on the pictures the item is to be."""
        return (Area(0, 0, self.screen.width, panels.HEIGHT) if self.kind.commands else
                Area(self.screen.width // 2, 0, self.screen.width // 2, 2 * panels.HEIGHT))

    def readable_pictures(self):
        """The pictures, seeing that nothing is wrong with them in the end."""
        place = self.place()
        deadline = time.monotonic() + 20
        while (faults := (taken := self.pictures()).faults(place, self.kind.draws_colors)) \
                and time.monotonic() < deadline:
            pass
        self.assertEqual(faults, "")
        taken.cents.save(self.file)
        return taken

    def is_placed_for(self, item):
        """Whether the popover is on the screen, and, where programs place their windows themselves,
        beside the item."""
        shown = self.popover()
        return shown and self.screen.contains(shown) and (
            self.kind.is_on_wayland or (item[1] <= shown.top < item[1] + panels.HEIGHT
                                        and shown.left < item[0] < shown.right))

    def test_it_shows_the_item_of_a_program_that_was_there_before(self):
        self.profile.watch("BTC*")
        self.profile.prefer({"display.mode": "fixed", "display.colorScheme": "greenUpRedDown"})
        self.start_program()
        if not self.kind.is_on_wayland:
            # A strip while there is no panel.
            self.assert_becomes(lambda: self.is_bare(self.panel_area), False)
        self.desktop.start_panel()
        item = self.readable_pictures().last_figure.center
        if self.kind.commands:
            # Less the panel's border.
            below = Area(0, panels.HEIGHT + 2, self.screen.width, panels.HEIGHT - 2)
            self.assertTrue(self.is_bare(below), "the strip stays beside the panel")
        self.open_popover(item)
        # Window managers may have another place for it at first.
        self.assertTrue(becomes(lambda: self.is_placed_for(item), 5), self.popover())
        self.close_popover(item)
        self.desktop.move(self.screen.center)
        if self.kind.commands:
            self.desktop.end_panel()
            self.assert_becomes(self.shows_panel, False)
            self.desktop.start_panel()
            self.readable_pictures()

    def close_popover(self, item):
        """By another click where that is no menu, and sees that this does not open it anew."""
        time.sleep(0.5)  # longer than between the clicks of a double click
        if self.kind.click_opens_menu:
            self.desktop.press("Escape")
        else:
            self.desktop.click(item)
        self.assert_becomes(self.shows_watchlist, False)
        self.assertFalse(becomes(self.shows_watchlist, 0.5), "opened anew")


class Mate(EachPanel, PanelSession):
    kind = panels.MATE


class Xfce(EachPanel, PanelSession):
    kind = panels.XFCE


class Waybar(EachPanel, PanelSession):
    kind = panels.WAYBAR


class NoPanel(EachPanel, PanelSession):
    kind = panels.NONE


class Strip(PanelSession):
    kind = panels.NONE

    def setUp(self):
        super().setUp()
        self.profile.watch("BTC*")
        self.start_program()
        wait_for(self.strip, "the strip")

    def strip(self):
        """Where the program's one window is; nothing while none is shown."""
        windows = run(["xdotool", "search", "--onlyvisible", "--pid", self.program.id],
                      self.desktop.environment, check=False).split()
        return picture.window_area(windows[0], self.desktop.environment) if windows else None

    def settled_strip(self):
        """Where the strip is once it does not move."""
        places = [None, self.strip()]
        while not places[-1] or places[-1] != places[-2]:
            time.sleep(0.3)
            places.append(self.strip())
        return places[-1]

    def test_a_full_screen_window_hides_it(self):
        other = self.open_other_window()
        # A window tells so before it is shown.
        self.desktop.do("windowunmap", other)
        run(["xprop", "-id", other, "-f", "_NET_WM_STATE", "32a",
             "-set", "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN"], self.desktop.environment)
        self.desktop.do("windowmap", other)
        self.assert_becomes(self.strip, None)
        self.desktop.do("windowunmap", other)
        wait_for(self.strip, "the strip")

    def test_it_stays_where_it_was_dragged_to_after_a_restart(self):
        before = self.settled_strip()
        self.desktop.drag(before.center, (self.screen.width // 3, self.screen.height - 20))
        wait_for(lambda: 'stripPosition="bottom,' in self.profile.configuration.read_text(),
                 "the place in the preferences")
        dragged = self.settled_strip()
        self.assertGreater(dragged.top, self.screen.height - 60)
        self.assertLess(abs(dragged.center[0] - self.screen.width // 3), 60)
        self.end(signal.SIGTERM)
        self.start_program()
        wait_for(self.strip, "the strip")
        again = self.settled_strip()
        # The place is stored as a fraction of the edge.
        self.assertTrue(again.top == dragged.top and abs(again.left - dragged.left) <= 2,
                        f"{dragged}, then {again}")


class Popover(PanelSession):
    """In the panel with labels."""

    def is_subscribed(self, stream):
        return any("SUBSCRIBE" in detail["text"] and stream in detail["text"]
                   for detail in self.simulator.details("text"))

    def assert_stored(self, *pairs):
        self.assert_becomes(self.profile.watched, list(pairs))

    def test_a_click_elsewhere_closes_it(self):
        self.open_popover_of_two_pairs()
        self.desktop.press("Escape")
        below = Area(self.screen.width // 2, panels.HEIGHT + 2, self.screen.width // 2, 60)
        self.assert_becomes(lambda: self.is_bare(below), True)
        other = self.open_other_window()
        self.open_popover(self.item)
        self.assert_becomes(self.shows_watchlist, True)
        self.desktop.click(picture.window_area(other, self.desktop.environment).center)
        self.assert_becomes(self.shows_watchlist, False)

    def test_it_shows_the_price_of_a_pair_that_is_added(self):
        self.simulator.push("ADAUSDT", "0.4321", "-2.5")
        self.open_popover_of_two_pairs()
        self.desktop.type("ada")
        self.desktop.part("push button", "Add ADA")
        self.desktop.press("Return")
        self.assert_becomes(lambda: self.is_subscribed("adausdt@ticker"), True)
        self.desktop.part("list item", "ADAUSDT, 0.4321, -2.50%")
        self.simulator.push("ADAUSDT", "0.5", "3")
        self.desktop.part("list item", "ADAUSDT, 0.5, +3.00%")

    def test_it_is_walked_by_keys_alone(self):
        self.open_popover_of_two_pairs()
        self.desktop.type("xrp")
        self.desktop.press("Return")
        self.assert_stored("BTC*", "ETH", "XRP")
        self.desktop.press("Down", "End", "alt+Up")
        self.assert_stored("BTC*", "XRP", "ETH")
        self.desktop.press("Menu", "Down", "Down", "Down", "Return")
        self.assert_stored("BTC*", "XRP*", "ETH")
        self.desktop.press("Home", "Delete")
        self.assert_stored("XRP*", "ETH")
        self.assertTrue(self.shows_watchlist())
        self.desktop.press("Escape")
        self.assert_becomes(self.shows_watchlist, False)
        self.assertTrue(self.program.is_running())

    def test_an_alert_made_from_a_rows_menu_is_told(self):
        self.simulator.push("ETHUSDT", "3000", "1")
        self.desktop.start_daemon()
        reader = self.desktop.start_tool("notification_reader")
        wait_for(lambda: reader.errors.read_text(), "the reader of notifications")
        self.open_popover_of_two_pairs()
        self.click_on("list item", "ETHUSDT, 3,000.00", 3)
        self.desktop.press("Up", "Up", "Return")  # the last entry but one
        self.desktop.part("push button", "Add")
        self.desktop.type("3100")
        self.click_on("push button", "Add")
        self.desktop.part("check box", "ETH Rises above 3,100.00")
        self.simulator.push("ETHUSDT", "3100.5", "1.5")
        line = wait_for(reader.lines, "the notification")[0]
        self.assertTrue(line.endswith("ETH Rises above 3,100.00 | Now 3,100.50  +1.50%"), line)
        self.desktop.part("label", "Triggered")

    def test_the_program_starts_anew_in_the_language_that_is_chosen(self):
        self.open_popover_of_two_pairs()
        self.click_on("push button", "Settings…")
        self.desktop.part("combo box", "")
        # From the first control back to the last but one.
        self.desktop.press("shift+Tab", "shift+Tab", "Down", "Down", "Tab")
        self.desktop.part("push button", "Restart Now")
        self.desktop.press("space")
        self.assertEqual(self.program.status(), 0)
        self.open_popover(self.item)
        self.desktop.part("text", "搜索币种，例如 BTC")
        self.click_on("push button", "退出")
        self.assert_becomes(self.desktop.parts, [])


if __name__ == "__main__":
    unittest.main()
