# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The panels that the item is shown in: each as its users have it, with nothing on it but what shows
status items, at the top edge of the screen; or none at all."""

from dataclasses import dataclass, field

HEIGHT = 28


@dataclass(frozen=True)
class PanelKind:
    name: str
    desktop_name: str  # what the session calls the desktop
    files: dict = field(default_factory=dict)  # settings, by their path below the folder of all
    commands: tuple = ()  # its processes in the order in which they start
    draws_colors: bool = True  # one that does not writes the text itself
    click_opens_menu: bool = False
    is_on_wayland: bool = False
    is_at_bottom: bool = False
    # Of a desktop that brings its own window manager:
    variables: dict = field(default_factory=dict)  # of its environment
    ready: str = ""  # the bus name that says that it is there; set for desktops alone
    data: dict = field(default_factory=dict)  # folders of the build, by where users' data has them

    @property
    def is_desktop(self):
        return bool(self.ready)


# Labels, and clicks that open the menu.
MATE = PanelKind(
    "mate", "MATE",
    {"glib-2.0/settings/keyfile": f"""\
[org/mate/panel/general]
toplevel-id-list=['top']
object-id-list=['ind']

[org/mate/panel/toplevels/top]
orientation='top'
expand=true
size={HEIGHT}

[org/mate/panel/objects/ind]
object-type='applet'
applet-iid='IndicatorAppletFactory::IndicatorApplet'
toplevel-id='top'
position=0
panel-right-stick=true
"""},
    (["/usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service"],
     ["mate-panel"]),
    draws_colors=False, click_opens_menu=True)

# Has a square for an item, and room for windows in its tray.
XFCE = PanelKind(
    "xfce", "XFCE",
    {"xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml": f"""\
<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="{HEIGHT}"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
"""},
    (["xfce4-panel", "--disable-wm-check"],))

# Shows pictures in their own width.
WAYBAR = PanelKind(
    "waybar", "sway",
    {"waybar/config": f"""\
{{
    "position": "top",
    "height": {HEIGHT},
    "modules-right": ["tray"],
    "tray": {{"icon-size": 22}}
}}
""",
     "waybar/style.css": "* { min-height: 0; }\nwindow#waybar { background: #202020; }\n"},
    (["waybar"],), is_on_wayland=True)

NONE = PanelKind("strip", "Openbox")


def gnome(name, extension):
    """GNOME Shell with one extension. It has a settings service that keeps to itself what it is."""
    return PanelKind(
        name, "GNOME",
        {"glib-2.0/settings/keyfile": f"""\
[org/gnome/shell]
enabled-extensions=['{extension}']
welcome-dialog-last-shown-version='99'
"""},
        (["gnome-shell", "--x11", "--sm-disable"],),
        draws_colors=extension.startswith("quorvel"),
        click_opens_menu=not extension.startswith("quorvel"),
        variables={"LIBGL_ALWAYS_SOFTWARE": "1"},
        ready="org.gnome.Shell",
        data={"gnome-shell/extensions/quorvel@quorvel.org":
              "Desktops/GNOME/43/quorvel@quorvel.org"})


GNOME_INDICATOR = gnome("gnome-indicator", "ubuntu-appindicators@ubuntu.com")
GNOME_LINE = gnome("gnome", "quorvel@quorvel.org")

PLASMA = PanelKind(
    "plasma", "KDE", {},
    (["kwin_x11", "--replace"], ["kded5"], ["plasmashell", "--no-respawn"]),
    variables={"LIBGL_ALWAYS_SOFTWARE": "1", "QT_QUICK_BACKEND": "software",
               "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5",
               "XDG_MENU_PREFIX": "plasma-"},
    # Last of all it shows notifications.
    ready="org.freedesktop.Notifications",
    data={"plasma/plasmoids/org.quorvel.line": "Desktops/Plasma/5/plasma/plasmoids/org.quorvel.line"})

# Its watcher is a program of its own, whose desktop file starts it at login.
CINNAMON = PanelKind(
    "cinnamon", "X-Cinnamon", {},
    (["cinnamon"], ["/usr/libexec/xapps/sn-watcher/xapp-sn-watcher"]),
    variables={"LIBGL_ALWAYS_SOFTWARE": "1", "CINNAMON_2D": "1"},
    ready="org.kde.StatusNotifierWatcher",
    is_at_bottom=True)

# Writes no text: there is the strip.
LXQT = PanelKind(
    "lxqt", "LXQt",
    {"lxqt/lxqt.conf": "[General]\ntheme=light\nicon_theme=Adwaita\n",
     "lxqt/panel.conf": """\
[General]
__userfile__=true
panels=panel1

[panel1]
plugins=mainmenu, taskbar, statusnotifier, worldclock
position=Bottom

[mainmenu]
type=mainmenu

[taskbar]
type=taskbar

[statusnotifier]
type=statusnotifier

[worldclock]
type=worldclock
"""},
    (["openbox", "--sm-disable"], ["picom", "--backend", "xrender"], ["lxqt-panel"]),
    ready="org.kde.StatusNotifierWatcher")
