# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Opens the program's windows as a user does and takes their pictures, in several looks.

Only on the virtual desktop: nobody wants clicks of others on a desktop of their own.
"""

import re
import subprocess
import threading
import time

import picture
from children import Failure, wait_for

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


class Tour(threading.Thread):
    """Runs beside the readers. `start_program` ends the program where it runs and starts it."""

    def __init__(self, folder, environment, start_program):
        super().__init__(daemon=True)
        self.folder = folder
        self.environment = environment
        self.start_program = start_program
        self.failure = None

    @staticmethod
    def pictures():
        return [f"{window}-{name}{part}.png" for name, _, _ in LOOKS
                for window, part in (("popover", ""), ("settings", ""), ("settings", "-end"))]

    def run(self):
        try:
            for name, preferences, variables in LOOKS:
                self.start_program(preferences, variables)
                self.save(f"popover-{name}.png", self.open(OPEN, "Quorvel"))
                self.run_tool("xdotool", "key", "Escape")
                settings = self.open(SETTINGS, "Quorvel .+")
                self.save(f"settings-{name}.png", settings)
                self.scroll_down(settings)
                self.save(f"settings-{name}-end.png", settings)
        except Failure as failure:
            self.failure = failure
        except Exception as error:  # else it would be lost with this thread
            self.failure = Failure(f"the windows' pictures: {error!r}")

    def save(self, file, window):
        """Saves a picture of the window, with the frame that the window manager has drawn."""
        time.sleep(DRAWN_AFTER)
        left, top, width, height = self.place(window)
        frame = self.run_tool("xprop", "-id", window, "_NET_FRAME_EXTENTS")
        west, east, north, south = map(int, re.findall(r"\d+", frame) or [0] * 4)
        area = (width + west + east, height + north + south, left - west, top - north)
        picture.save_area(self.folder / file, area, self.environment)
        print(f"Saved build/demo/{file}")

    def place(self, window):
        """Left, top, width and height of a window in pixels."""
        lines = self.run_tool("xwininfo", "-id", window)
        return [int(re.search(rf"{name}: +(-?\d+)", lines)[1]) for name in
                ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]

    def scroll_down(self, window):
        """Turns the wheel over the window's margin."""
        left, top, _, height = self.place(window)
        self.run_tool("xdotool", "mousemove", str(left + 5), str(top + height // 2),
                      "click", "--repeat", "40", "--delay", "10", "5")

    def open(self, entry, title):
        """Chooses an entry of the item's menu with the pointer and keys until its window is up."""
        width = self.run_tool("xdotool", "getdisplaygeometry").split()[0]
        x, y = int(width) - ITEM_FROM_END[0], ITEM_FROM_END[1]
        for _ in range(ATTEMPTS):
            self.run_tool("xdotool", "mousemove", str(x), str(y), "click", "1")
            time.sleep(0.5)
            self.run_tool("xdotool", "key", *["Down"] * entry, "Return")
            try:
                return wait_for(lambda: self.active_window(title), "a window", seconds=2.5)
            except Failure:
                self.run_tool("xdotool", "key", "Escape") # a menu that came late
        raise Failure(f"the menu opened no window with the title {title}")

    def active_window(self, title):
        answer = self.run_tool("xdotool", "getactivewindow", "getwindowname", check=False)
        if not re.fullmatch(title, answer.strip()):
            return None
        return self.run_tool("xdotool", "getactivewindow").strip()

    def run_tool(self, *command, check=True):
        try:
            return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL,
                                  capture_output=True, text=True, timeout=20, check=check).stdout
        except (OSError, subprocess.SubprocessError) as error:
            raise Failure(f"{command[0]}: {error}") from error
