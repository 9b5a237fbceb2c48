// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusBar/StatusItemPresentationChoice.h"

#include <gtest/gtest.h>

using namespace platform;
using Kind = StatusItemPresentationKind;

namespace {

/// A desktop as the table below writes it; empty texts for what is not there.
struct Case {
    const char* name;
    const char* desktopNames = "";
    const char* watcher = ""; ///< its process; `?` for one that cannot be seen
    const char* tray = "";    ///< likewise
    Kind automatic;
    bool isX11 = true;
    bool isTrayHorizontal = true;
};

StatusItemDesktop desktopOf(const Case& c) {
    const auto process = [](const char* text) {
        return *text == '?' ? QString() : QString::fromLatin1(text);
    };
    return {.isX11 = c.isX11,
            .names = QString::fromLatin1(c.desktopNames).split(QLatin1Char(':')),
            .hasWatcher = *c.watcher != 0,
            .watcherProcess = process(c.watcher),
            .hasTray = *c.tray != 0,
            .trayProcess = process(c.tray),
            .isTrayHorizontal = c.isTrayHorizontal};
}

class EachDesktop : public testing::TestWithParam<Case> {};

TEST_P(EachDesktop, GetsWhatMakesItsTextReadable) {
    EXPECT_EQ(StatusItemPresentationChoice::of(std::nullopt, desktopOf(GetParam())),
              GetParam().automatic);
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, EachDesktop,
    testing::Values(
        Case{"gnome", "ubuntu:GNOME", "gnome-shell", "gnome-shell", Kind::label},
        Case{"gnomeOnWaylandAlone", "GNOME", "gnome-shell", "", Kind::label, false},
        Case{"mateIndicator", "MATE", "ayatana-indicat", "mate-panel", Kind::label},
        Case{"mateTrayAlone", "MATE", "", "notification-ar", Kind::dock},
        Case{"xfce", "XFCE", "panel-3-systray", "panel-3-systray", Kind::dock},
        Case{"xfceOneProcess", "XFCE", "xfce4-panel", "xfce4-panel", Kind::dock},
        Case{"xfceUpright", "XFCE", "panel-3-systray", "panel-3-systray", Kind::strip, true, false},
        Case{"xfceWithoutTray", "XFCE", "panel-3-systray", "", Kind::strip},
        Case{"xfceWithIndicators", "XFCE", "ayatana-indicat", "panel-3-systray", Kind::label},
        Case{"panelThatOnlySoundsSo", "", "", "panel-x", Kind::strip},
        Case{"lxqt", "LXQt", "lxqt-panel", "lxqt-panel", Kind::strip},
        Case{"plasma", "KDE", "kded5", "xembedsniproxy", Kind::strip},
        Case{"waybar", "sway", "waybar", "", Kind::image},
        Case{"tint2", "", "", "tint2", Kind::strip}, Case{"nothing", "", "", "", Kind::strip},
        Case{"nothingWithoutX", "", "", "", Kind::label, false},
        Case{"unknownPanel", "Budgie", "budgie-panel", "", Kind::label},
        Case{"cinnamon", "X-Cinnamon", "xapp-sn-watcher", "cinnamon", Kind::image},
        Case{"hiddenWatcher", "Budgie", "?", "", Kind::label},
        Case{"hiddenWatcherOnPlasma", "KDE", "?", "", Kind::strip},
        Case{"hiddenWatcherOnXfce", "xubuntu:xfce", "?", "xfce4-panel", Kind::dock}),
    [](const auto& info) { return std::string(info.param.name); });

struct Wish {
    Kind preferred = {};
    Case desktop;
    Kind chosen = {};
};

TEST(StatusItemPresentationChoice, HeedsTheUserUnlessNothingWouldBeSeen) {
    const Case mate{"", "MATE", "ayatana-indicat", "notification-ar", Kind::label};
    const Case noTray{"", "MATE", "ayatana-indicat", "", Kind::label};
    const Case cropping{"", "", "", "tint2", Kind::strip};
    const Case wayland{"", "sway", "waybar", "", Kind::image, false};
    const Case bare{"", "", "", "", Kind::strip};
    for (const auto& [preferred, desktop, chosen] : {
             Wish{Kind::label, mate, Kind::label},
             Wish{Kind::image, mate, Kind::image},
             Wish{Kind::strip, mate, Kind::strip},
             Wish{Kind::dock, noTray, Kind::label},
             Wish{Kind::dock, cropping, Kind::dock},
             Wish{Kind::label, wayland, Kind::label},
             Wish{Kind::strip, wayland, Kind::image},
             Wish{Kind::label, bare, Kind::strip},
             Wish{Kind::icon, wayland, Kind::icon},
             Wish{Kind::icon, bare, Kind::strip},
         }) {
        EXPECT_EQ(StatusItemPresentationChoice::of(preferred, desktopOf(desktop)), chosen)
            << static_cast<int>(preferred) << " on " << desktop.watcher << '/' << desktop.tray;
    }
}

TEST(StatusItemPresentationChoice, TellsWhatCannotBeSeenHere) {
    using Choice = StatusItemPresentationChoice;
    const auto obstacles = [](const Case& desktop) {
        std::vector<std::optional<Choice::Obstacle>> all;
        for (const Kind kind : {Kind::label, Kind::image, Kind::dock, Kind::strip, Kind::icon})
            all.push_back(Choice::obstacle(kind, desktopOf(desktop)));
        return all;
    };
    using enum Choice::Obstacle;
    const std::optional<Choice::Obstacle> none;
    using Obstacles = std::vector<std::optional<Choice::Obstacle>>;
    EXPECT_EQ(obstacles({"", "KDE", "kded5", "xembedsniproxy", Kind::strip}),
              (Obstacles{noText, squareIcons, none, none, none}));
    EXPECT_EQ(obstacles({"", "GNOME", "gnome-shell", "", Kind::label, false}),
              (Obstacles{none, squareIcons, noTray, noPlacement, none}));
    EXPECT_EQ(obstacles({"", "", "", "tint2", Kind::strip}),
              (Obstacles{noPanel, noPanel, none, none, noPanel}));
    const Case unknown{"", "Budgie", "budgie-panel", "", Kind::label};
    EXPECT_EQ(obstacles(unknown), (Obstacles{none, none, noTray, none, none}));

    EXPECT_FALSE(Choice::isPanelKnown(desktopOf(unknown)));
    EXPECT_TRUE(Choice::isPanelKnown(desktopOf({"", "KDE", "kded5", "", Kind::strip})));
    EXPECT_TRUE(Choice::isPanelKnown(desktopOf({"", "Budgie", "", "", Kind::strip})));
}

} // namespace
