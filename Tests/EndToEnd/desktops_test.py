# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Whole desktops, each as its users have it."""

import shutil
import time
import unittest

from panel_session import PICTURES, PanelSession
from panels_test import EachPanel
from session import BUILD, Area, panels, run

ADD_WIDGET = 'var panel = panels()[0]; panel.location = "top"; panel.addWidget("org.quorvel.line")'


class EachDesktop(EachPanel):
    strips = 0  # windows that are to be seen before the popover is opened

    def set_up_desktop(self):
        PICTURES.mkdir(parents=True, exist_ok=True)
        self.desktop.start_display()
        self.screen = self.desktop.screen
        for place, folder in self.kind.data.items():
            self.desktop.add_data(place, BUILD / folder)
        self.desktop.start_session(self.kind)
        self.desktop.start_accessibility()
        height = 2 * panels.HEIGHT
        top = self.screen.height - height if self.kind.is_at_bottom else 0
        self.panel_area = Area(0, top, self.screen.width, height)
        self.file = PICTURES / f"{self.kind.name}.png"
        self.file.unlink(missing_ok=True)

    def begin(self):
        """Starts the desktop and the program in the desktop's own profile."""
        self.profile.watch("BTC*")
        self.profile.prefer({"display.mode": "fixed", "display.colorScheme": "greenUpRedDown"})
        self.desktop.start_panel()
        # Notices of the desktop's own start, and its overview.
        time.sleep(3)
        self.desktop.press("Escape")
        # The desktop's settings, too, are the user's.
        settings = self.profile.configuration.read_text()
        self.desktop.configure("Quorvel/Quorvel.conf", settings)
        self.desktop.environment["XDG_DATA_HOME"] = str(self.profile.variables["XDG_DATA_HOME"])
        # The user need not get at the build.
        program = shutil.copy(BUILD / "Quorvel/quorvel", self.desktop.folder)
        self.desktop.give_away()
        self.program = self.desktop.start("quorvel", [program])
        self.assert_becomes(self.simulator.connection_count, 1, 20)

    def test_it_shows_prices_in_its_panel(self):
        self.begin()
        self.arrange()
        # The desktop writes its layout within ten seconds.
        self.assert_becomes(lambda: len(self.windows()), self.strips, 20, "strips")
        left, top = self.readable_pictures().last_figure.center
        self.open_popover((left, self.panel_area.top + top))
        self.desktop.type("eth")
        self.desktop.part("push button", "Add ETH")
        self.desktop.picture(self.screen).save(self.file)

    def place(self):
        return Area(0, 0, *self.panel_area[2:])

    def windows(self):
        """The program's windows that can be seen."""
        return run(["xdotool", "search", "--onlyvisible", "--pid", self.program.id],
                   self.desktop.environment, check=False).split()

    def arrange(self):
        """What the desktop's user has to do once."""


class GnomeLine(EachDesktop, PanelSession):
    kind = panels.GNOME_LINE


class GnomeIndicator(EachDesktop, PanelSession):
    kind = panels.GNOME_INDICATOR


class Plasma(EachDesktop, PanelSession):
    kind = panels.PLASMA

    def arrange(self):
        run(["gdbus", "call", "--session", "-d", "org.kde.plasmashell", "-o", "/PlasmaShell", "-m",
             "org.kde.PlasmaShell.evaluateScript", ADD_WIDGET], self.desktop.environment)


class Cinnamon(EachDesktop, PanelSession):
    kind = panels.CINNAMON


class Lxqt(EachDesktop, PanelSession):
    kind = panels.LXQT
    strips = 1


# The base's own case is not for desktops.
del EachPanel.test_it_shows_the_item_of_a_program_that_was_there_before

if __name__ == "__main__":
    unittest.main()
