# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Pictures of the screen as its user sees it, taken from outside of every program on it."""

import re
import shutil
import subprocess

from children import Failure


def save(folder, environment):
    """Saves screen.png, and panel.png: the part of the screen's edge that the panels keep."""
    screen, panel = folder / "screen.png", folder / "panel.png"
    _capture(screen, environment)
    _run(["convert", str(screen), "-crop", panel_strip(screen, environment), "+repage", str(panel)],
         environment)
    if int(_run(["identify", "-format", "%k", str(panel)], environment)) < 2:
        raise Failure(f"{panel} shows nothing: this display does not let itself be pictured")
    return panel


def save_notification(folder, environment):
    """Saves notification.png: what the daemon has drawn, or the screen where that is not known."""
    screen, notification = folder / "screen.png", folder / "notification.png"
    _capture(screen, environment)
    windows = _run(["xwininfo", "-root", "-tree"], environment) if environment.get("DISPLAY") else ""
    found = re.search(r'\("Dunst" "Dunst"\)\s+(\d+x\d+)\S*\s+(\+\d+\+\d+)', windows)
    area = found[1] + found[2] if found else "100%x100%+0+0"
    _run(["convert", str(screen), "-crop", area, "+repage", str(notification)], environment)
    return notification


def save_area(file, area, environment):
    """Saves the part of the screen with this width, height and upper left corner."""
    screen = file.with_suffix(".screen.png")
    _capture(screen, environment)
    width, height, left, top = area
    _run(["convert", str(screen), "-crop", f"{width}x{height}+{left}+{top}", "+repage", str(file)],
         environment)
    screen.unlink()


def _capture(screen, environment):
    if environment.get("WAYLAND_DISPLAY") and shutil.which("grim"):
        _run(["grim", str(screen)], environment)
    elif environment.get("DISPLAY"):
        _run(["import", "-silent", "-window", "root", str(screen)], environment)
    else:
        raise Failure("a picture of this Wayland session needs the program grim")


def panel_strip(screen, environment):
    """The strip above or below the work area as ImageMagick's geometry; without one, everything."""
    width, height = map(
        int, _run(["identify", "-format", "%w %h", str(screen)], environment).split())
    top, bottom = 0, height
    if environment.get("DISPLAY"):
        answer = _run(["xprop", "-root", "_NET_WORKAREA"], environment)
        numbers = [int(number) for number in re.findall(r"\b\d+\b", answer)]
        if len(numbers) >= 4:
            top, bottom = numbers[1], numbers[1] + numbers[3]
    if top > 0:
        return f"{width}x{top}+0+0"
    if bottom < height:
        return f"{width}x{height - bottom}+0+{bottom}"
    return f"{width}x{height}+0+0"


def _run(command, environment):
    try:
        return subprocess.run(
            command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
            timeout=20, check=True).stdout
    except (OSError, subprocess.SubprocessError) as error:
        raise Failure(f"no picture: {error}") from error
