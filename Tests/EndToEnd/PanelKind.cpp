// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/PanelKind.h"

namespace test {

PanelKind PanelKind::mate() {
    return {.name = "mate",
            .desktopName = "MATE",
            .settings = {{"glib-2.0/settings/keyfile", R"([org/mate/panel/general]
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
)"}},
            .commands = {{"/usr/libexec/ayatana-indicator-application/"
                          "ayatana-indicator-application-service"},
                         {"mate-panel"}},
            .drawsColors = false,
            .clickOpensMenu = true};
}

PanelKind PanelKind::xfce() {
    return {.name = "xfce",
            .desktopName = "XFCE",
            .settings = {{"xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml",
                          R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)"}},
            .commands = {{"xfce4-panel", "--disable-wm-check"}}};
}

PanelKind PanelKind::waybar() {
    return {.name = "waybar",
            .desktopName = "sway",
            .settings = {{"waybar/config", R"({
    "position": "top",
    "height": 28,
    "modules-right": ["tray"],
    "tray": {"icon-size": 22}
})"},
                         {"waybar/style.css", "* { min-height: 0; }\n"
                                              "window#waybar { background: #202020; }\n"}},
            .commands = {{"waybar"}},
            .isOnWayland = true};
}

} // namespace test
