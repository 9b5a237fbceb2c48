# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Opens the program's windows as a user does and takes their pictures, in several looks.

Only on the virtual desktop: nobody wants clicks of others on a desktop of their own.
"""

import time

from Desktop import picture
from Desktop.processes import Failure, wait_for

# The name of the pictures, preferences, and variables of the start. The last one stays.
LOOKS = [
    ("2x", {"interfaceAppearance": "light"}, {"QT_SCALE_FACTOR": "2"}),
    ("zh", {"interfaceAppearance": "light", "interfaceLanguage": "simplifiedChinese"}, {}),
    ("dark", {"interfaceAppearance": "dark"}, {}),
    ("light", {"interfaceAppearance": "light"}, {}),
]

# From the panel's right end to the middle of what it shows of the item, in pixels.
ITEM_FROM_END = (40, 14)
# The menu's entries are reached with as many strokes of the arrow key.
OPEN, SETTINGS = 1, 2
# Sparklines are fetched and marks have come to rest.
DRAWN_AFTER = 1.2
ATTEMPTS = 4


class Tour:
    """On a virtual desktop. `start_program` ends the program where it runs and starts it."""

    def __init__(self, folder, desktop, start_program, deadline):
        self.folder = folder
        self.desktop = desktop
        self.start_program = start_program
        self.deadline = deadline

    @staticmethod
    def pictures():
        return [f"{window}-{name}{part}.png" for name, _, _ in LOOKS
                for window, part in (("popover", ""), ("settings", ""), ("settings", "-end"))]

    def run(self):
        for name, preferences, variables in LOOKS:
            self.start_program(preferences, variables)
            self.save(f"popover-{name}.png", self.open(OPEN, "Quorvel"))
            self.desktop.press("Escape")
            settings = self.open(SETTINGS, "Quorvel .+")
            self.save(f"settings-{name}.png", settings)
            self.scroll_down(settings)
            self.save(f"settings-{name}-end.png", settings)

    def save(self, file, window):
        """Saves a picture of the window once it has come to rest."""
        time.sleep(DRAWN_AFTER)
        picture.save_window(self.folder / file, window, self.desktop.environment)
        print(f"Saved build/demo/{file}")
        self.desktop.processes.check()
        if time.monotonic() > self.deadline:
            raise Failure("the windows' pictures took too long")

    def scroll_down(self, window):
        """Turns the wheel over the window's margin."""
        area = picture.window_area(window, self.desktop.environment)
        self.desktop.do("mousemove", area.left + 5, area.center[1],
                        "click", "--repeat", 40, "--delay", 10, 5)

    def open(self, entry, title):
        """Chooses an entry of the item's menu with the pointer and keys until its window is up."""
        item = self.desktop.screen.right - ITEM_FROM_END[0], ITEM_FROM_END[1]
        for _ in range(ATTEMPTS):
            self.desktop.click(item)
            time.sleep(0.5)
            self.desktop.press(*["Down"] * entry, "Return")
            try:
                return wait_for(lambda: self.desktop.active_window(title), "a window", 2.5)
            except Failure:
                self.desktop.press("Escape")  # a menu that came late
        raise Failure(f"the menu opened no window with the title {title}")
