// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <map>
#include <string>
#include <vector>

namespace test {

/// A panel as its users have it, with nothing on it but what shows status items, at the top edge of
/// the screen; or none at all.
struct PanelKind {
    const char* name;
    /// What the session calls the desktop.
    const char* desktopName;
    /// Files by their path below the folder of all settings.
    std::map<const char*, const char*> settings;
    /// Its processes in the order in which they start, the first word of each the program.
    std::vector<std::vector<std::string>> commands;
    /// Whether it draws the item's own colours; one that does not writes the text itself.
    bool drawsColors = true;
    /// Whether a click on the item opens its menu, and is no activation.
    bool clickOpensMenu = false;
    /// Whether its session is a Wayland compositor.
    bool isOnWayland = false;

    /// Labels, and clicks that open the menu.
    static PanelKind mate();

    /// Has a square for an item, and room for windows in its tray.
    static PanelKind xfce();

    /// Shows pictures in their own width.
    static PanelKind waybar();

    static PanelKind none() { return {"strip", "Openbox", {}, {}}; }
};

} // namespace test
