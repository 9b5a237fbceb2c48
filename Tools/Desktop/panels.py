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
