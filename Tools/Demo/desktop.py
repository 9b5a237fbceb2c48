# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The desktop that the demo shows the item in: the user's own, or a virtual one with a real panel."""

import os

import dbus
import dbus.bus

from children import wait_for

WATCHER = "org.kde.StatusNotifierWatcher"
NOTIFICATIONS = "org.freedesktop.Notifications"
SCREEN = "1920x1200x24"
INDICATOR_SERVICE = \
    "/usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service"

# One panel at the top edge that holds nothing but the applet which shows status items.
PANEL_SETTINGS = """\
[org/mate/panel/general]
toplevel-id-list=['top']
object-id-list=['ind']

[org/mate/panel/toplevels/top]
orientation='top'
expand=true
size=28

[org/mate/panel/objects/ind]
object-type='applet'
applet-iid='IndicatorAppletFactory::IndicatorApplet'
toplevel-id='top'
position=0
panel-right-stick=true
"""

# Long enough for a picture of two, short enough not to pile up.
DAEMON_SETTINGS = """\
[global]
font = DejaVu Sans 10
origin = bottom-left
offset = 12x12
width = 320
icon_theme = Adwaita
enable_recursive_icon_lookup = true
format = "<b>%s</b>\\n%b"
frame_width = 1
frame_color = "#5a5a5a"
corner_radius = 6
[urgency_normal]
background = "#2d2d2d"
foreground = "#f2f2f2"
timeout = 8
"""


def own_session():
    """The environment of the user's session, in which a panel is up already."""
    environment = dict(os.environ)
    environment.setdefault(
        "DBUS_SESSION_BUS_ADDRESS", f"unix:path={os.environ.get('XDG_RUNTIME_DIR')}/bus")
    wait_for(lambda: has_owner(WATCHER, environment), "a panel that shows status items")
    return environment


def virtual(children, profile):
    """Starts a display, a bus, a window manager, a compositor, a panel
    and a notification daemon; gives the environment."""
    environment = profile.environment(dict(os.environ))
    environment |= {
        "XDG_RUNTIME_DIR": str(_runtime_folder(profile)),
        "XDG_SESSION_TYPE": "x11",
        "XDG_CURRENT_DESKTOP": "MATE",
        "GSETTINGS_BACKEND": "keyfile",
        "NO_AT_BRIDGE": "1",
        "LC_ALL": "C.UTF-8",
    }
    for name in ("WAYLAND_DISPLAY", "SESSION_MANAGER"):
        environment.pop(name, None)
    _write_panel_settings(profile)

    display = children.start(
        "display", ["Xvfb", "-displayfd", "1", "-screen", "0", SCREEN, "-nolisten", "tcp"],
        environment)
    environment["DISPLAY"] = ":" + display.first_line()
    bus = children.start(
        "bus", ["dbus-daemon", "--session", "--nofork", "--print-address=1"], environment)
    environment["DBUS_SESSION_BUS_ADDRESS"] = bus.first_line()

    children.start("window-manager", ["openbox", "--sm-disable"], environment)
    children.start("compositor", ["picom", "--backend", "xrender"], environment)
    service = children.start("indicator-service", [INDICATOR_SERVICE], environment)
    wait_for(lambda: has_owner(WATCHER, environment), "the indicator service", service)
    children.start("panel", ["mate-panel"], environment)
    settings = profile.folder / "dunstrc"
    settings.write_text(DAEMON_SETTINGS)
    daemon = children.start("daemon", ["dunst", "-conf", str(settings)], environment)
    wait_for(lambda: has_owner(NOTIFICATIONS, environment), "the notification daemon", daemon)
    return environment


def has_owner(name, environment):
    """Whether a program on the session bus offers the service of this name."""
    bus = dbus.bus.BusConnection(environment["DBUS_SESSION_BUS_ADDRESS"])
    try:
        return bus.name_has_owner(name)
    finally:
        bus.close()


def _runtime_folder(profile):
    folder = profile.folder / "runtime"
    folder.mkdir(mode=0o700)
    return folder


def _write_panel_settings(profile):
    folder = profile.variables["XDG_CONFIG_HOME"] / "glib-2.0" / "settings"
    folder.mkdir(parents=True)
    (folder / "keyfile").write_text(PANEL_SETTINGS)
