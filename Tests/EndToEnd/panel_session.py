# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The whole program on a virtual desktop with a real panel."""

from session import ROOT, Area, Failure, Session, becomes, panels, picture, wait_for

PICTURES = ROOT / "build/panels"
SHADOW = 18


class PanelSession(Session):
    """With a panel that is there once it is started, and assistive technology's bus."""

    kind = panels.MATE

    def set_up_desktop(self):
        PICTURES.mkdir(parents=True, exist_ok=True)
        self.desktop.start_display()
        self.desktop.start_session(self.kind)
        self.desktop.start_accessibility()
        self.screen = self.desktop.screen
        # The panel and some of what is below it.
        self.panel_area = Area(0, 0, self.screen.width, 2 * panels.HEIGHT)

    def start_program(self):
        self.program = self.launch()
        self.assert_becomes(self.simulator.connection_count, 1)

    def is_bare(self, area):
        return self.desktop.picture(area).is_bare()

    def shows_panel(self):
        """Whether there is something across the middle of the screen's upper edge."""
        return not self.is_bare(Area(self.screen.width // 2, 4, 1, 2 * panels.HEIGHT))

    def open_popover(self, item):
        """Clicks the item and, where the panel gives clicks no other meaning, chooses the first
        entry of its menu. Waits until the popover has the keyboard."""
        if not self.kind.click_opens_menu:
            self.desktop.click(item)
            return wait_for(self.popover, "the popover")
        below = Area(item[0] - 240, panels.HEIGHT, 260, 60)
        before = self.desktop.picture(below)
        # On a busy machine the click may come while the panel still makes room for the item, and the
        # keys before the menu has taken the keyboard.
        for _ in range(3):
            self.desktop.click(item)
            if not becomes(lambda: self.desktop.picture(below) != before, 5):
                continue
            self.desktop.press("Down", "Return")
            if found := becomes(self.popover, 5):
                return found
            self.desktop.press("Escape")
            becomes(lambda: self.desktop.picture(below) == before, 2)
        raise Failure("the menu opens no popover")

    def popover(self):
        """Where the popover is without its shadow; nothing until it has the keyboard."""
        window = self.desktop.active_window("Quorvel")
        if not window:
            return None
        left, top, width, height = picture.window_area(window, self.desktop.environment)
        return Area(left + SHADOW, top + SHADOW, width - 2 * SHADOW, height - 2 * SHADOW)

    def shows_watchlist(self):
        return any(part.role == "list" and part.name == "Watchlist"
                   for part in self.desktop.parts())

    def click_on(self, role, name, button=1):
        self.desktop.click(self.desktop.part(role, name).center, button)

    def open_other_window(self):
        """Another program's window with the keyboard."""
        self.desktop.start("other", ["xev", "-geometry", "300x200+500+550", "-name", "Other"])
        return wait_for(lambda: self.desktop.active_window("Other"), "the other window")

    def open_popover_of_two_pairs(self):
        """Starts the panel and then the program, and opens the popover from the item."""
        self.profile.watch("BTC*", "ETH")
        self.desktop.start_panel()
        self.assert_becomes(self.shows_panel, True, 20)
        end = Area(self.screen.width - 60, 0, 60, panels.HEIGHT)
        empty = self.desktop.picture(end)
        self.start_program()
        self.assert_becomes(lambda: self.desktop.picture(end) != empty, True, 20)
        self.item = self.screen.width - 40, panels.HEIGHT // 2
        self.open_popover(self.item)
