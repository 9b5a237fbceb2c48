# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Pictures of the screen as its user sees it, taken from outside of every program on it."""

import re
import shutil
from collections import namedtuple

from .processes import Failure, run


class Area(namedtuple("Area", "left top width height")):
    """A part of the screen in pixels."""

    @property
    def right(self):
        return self.left + self.width

    @property
    def bottom(self):
        return self.top + self.height

    @property
    def center(self):
        return self.left + self.width // 2, self.top + self.height // 2

    def contains(self, other):
        return (self.left <= other.left and other.right <= self.right
                and self.top <= other.top and other.bottom <= self.bottom)

    def __str__(self):
        return f"{self.width}x{self.height}+{self.left}+{self.top}"


class Picture:
    """What is on a part of the screen."""

    def __init__(self, area, environment):
        self.data = run(["import", "-silent", "-window", "root", "-crop", area, "+repage", "-depth",
                         "8", "ppm:-"], environment, text=False)
        found = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", self.data)
        if not found or (int(found[1]), int(found[2])) != (area.width, area.height):
            raise Failure(f"no picture of the display's part {area}")
        stride = 3 * area.width
        pixels = self.data[found.end():]
        # Three bytes a pixel.
        self.rows = [pixels[y * stride:(y + 1) * stride] for y in range(area.height)]

    def __eq__(self, other):
        return self.data == other.data

    def is_bare(self):
        """Whether there is nothing but one colour."""
        return set(self.rows) == {self.rows[0][:3] * (len(self.rows[0]) // 3)}

    def save(self, file):
        run(["convert", "-", file], None, text=False, given=self.data)


def window_area(window, environment):
    """Where a window is, without the frame that the window manager has drawn."""
    lines = run(["xwininfo", "-id", window], environment)
    return Area(*(int(re.search(rf"{name}: +(-?\d+)", lines)[1]) for name in
                  ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")))


def save_window(file, window, environment):
    """Saves the part of the screen where a window is, with its frame."""
    left, top, width, height = window_area(window, environment)
    frame = run(["xprop", "-id", window, "_NET_FRAME_EXTENTS"], environment)
    west, east, north, south = map(int, re.findall(r"\d+", frame) or [0] * 4)
    _save(file, Area(left - west, top - north, width + west + east, height + north + south),
          environment)


def save_panel(folder, environment):
    """Saves screen.png, and panel.png: the part of the screen's edge that the panels keep."""
    screen, panel = folder / "screen.png", folder / "panel.png"
    _capture(screen, environment)
    run(["convert", screen, "-crop", _panel_strip(screen, environment), "+repage", panel],
        environment)
    if int(run(["identify", "-format", "%k", panel], environment)) < 2:
        raise Failure(f"{panel} shows nothing: this display does not let itself be pictured")
    return panel


def save_notification(folder, environment):
    """Saves notification.png: what the daemon has drawn, or the screen where that is not known."""
    windows = run(["xwininfo", "-root", "-tree"], environment) if environment.get("DISPLAY") else ""
    found = re.search(r'\("Dunst" "Dunst"\)\s+(\d+x\d+)\S*\s+(\+\d+\+\d+)', windows)
    notification = folder / "notification.png"
    _save(notification, found[1] + found[2] if found else "100%x100%+0+0", environment)
    return notification


def _save(file, area, environment):
    screen = file.with_suffix(".screen.png")
    _capture(screen, environment)
    run(["convert", screen, "-crop", area, "+repage", file], environment)
    screen.unlink()


def _capture(screen, environment):
    if environment.get("WAYLAND_DISPLAY") and shutil.which("grim"):
        run(["grim", screen], environment)
    elif environment.get("DISPLAY"):
        run(["import", "-silent", "-window", "root", screen], environment)
    else:
        raise Failure("a picture of this Wayland session needs the program grim")


def _panel_strip(screen, environment):
    """The strip above or below the work area; without one, everything."""
    size = run(["identify", "-format", "%w %h", screen], environment)
    width, height = map(int, size.split())
    top, bottom = 0, height
    if environment.get("DISPLAY"):
        answer = run(["xprop", "-root", "_NET_WORKAREA"], environment)
        numbers = [int(number) for number in re.findall(r"\b\d+\b", answer)]
        if len(numbers) >= 4:
            top, bottom = numbers[1], numbers[1] + numbers[3]
    if top > 0:
        return Area(0, 0, width, top)
    if bottom < height:
        return Area(0, bottom, width, height - bottom)
    return Area(0, 0, width, height)
