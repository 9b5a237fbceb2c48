// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusBar/StatusItemPresentationChoice.h"

#include <algorithm>
#include <array>
#include <utility>

namespace platform {

namespace {

using Kind = StatusItemPresentationKind;

/// In the order of the enumerators.
constexpr std::array<QStringView, 5> names{u"label", u"image", u"dock", u"strip", u"icon"};

/// What a panel does with the text of an item on the bus.
enum class TextHabit {
    drawsLabel,
    drawsWideImage,
    drawsNone,
};

/// By the watcher's process, else, where that is none of these or cannot be seen, by the desktop.
constexpr std::array<std::pair<QStringView, TextHabit>, 16> habits{{
    {u"gnome-shell", TextHabit::drawsLabel},
    // The services of indicator applets, whose names are longer than a process's may be.
    {u"ayatana-indicat", TextHabit::drawsLabel},
    {u"indicator-appli", TextHabit::drawsLabel},
    {u"mate-panel", TextHabit::drawsLabel},
    {u"notification-ar", TextHabit::drawsLabel},
    {u"waybar", TextHabit::drawsWideImage},
    {u"xapp-sn-watcher", TextHabit::drawsWideImage},
    {u"X-Cinnamon", TextHabit::drawsWideImage},
    {u"lxqt-panel", TextHabit::drawsNone},
    // Plasma's watcher is not in its shell but in its service daemon.
    {u"kded5", TextHabit::drawsNone},
    {u"kded6", TextHabit::drawsNone},
    {u"plasmashell", TextHabit::drawsNone},
    {u"swaybar", TextHabit::drawsNone},
    {u"KDE", TextHabit::drawsNone},
    {u"LXQt", TextHabit::drawsNone},
    {u"XFCE", TextHabit::drawsNone},
}};

/// Xfce keeps its tray in the panel, or in a process of its own by the name of a place in the panel
/// and a plugin, e.g. `panel-3-systray`.
bool isXfce(QStringView process) {
    constexpr QStringView place = u"panel-";
    return process == u"xfce4-panel" ||
           (process.size() > place.size() && process.startsWith(place) &&
            process[place.size()].isDigit());
}

/// Absent where nobody has looked at the panel.
std::optional<TextHabit> knownHabit(const StatusItemDesktop& desktop) {
    if (isXfce(desktop.watcherProcess))
        return TextHabit::drawsNone;
    for (const QString& name : QStringList(desktop.watcherProcess) + desktop.names) {
        const auto* const found = std::ranges::find_if(habits, [&name](const auto& known) {
            return known.first.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found != habits.end())
            return found->second;
    }
    return std::nullopt;
}

/// Trays that give a docked window the width it asks for. Others crop it to a square, and most
/// trays are others.
bool givesWidth(const StatusItemDesktop& desktop) {
    const bool isKnown = isXfce(desktop.trayProcess) || desktop.trayProcess == u"mate-panel" ||
                         desktop.trayProcess == u"notification-ar";
    return desktop.isX11 && desktop.hasTray && desktop.isTrayHorizontal && isKnown;
}

/// Whether the item can be seen at all when presented so.
bool isPossible(Kind kind, const StatusItemDesktop& desktop) {
    switch (kind) {
    case Kind::label:
    case Kind::image:
    case Kind::icon:
        return desktop.hasWatcher;
    case Kind::dock:
        return desktop.isX11 && desktop.hasTray;
    case Kind::strip:
        return desktop.isX11;
    }
    return false;
}

Kind fitting(const StatusItemDesktop& desktop) {
    // Nothing is lost if an unknown one draws none: there is the icon, and the text in its tooltip.
    const TextHabit habit = desktop.hasWatcher ? knownHabit(desktop).value_or(TextHabit::drawsLabel)
                                               : TextHabit::drawsNone;
    if (habit == TextHabit::drawsLabel)
        return Kind::label;
    if (habit == TextHabit::drawsWideImage)
        return Kind::image;
    if (givesWidth(desktop))
        return Kind::dock;
    // A Wayland compositor would put the strip wherever it likes, below other windows too.
    return desktop.isX11 ? Kind::strip : Kind::label;
}

} // namespace

std::optional<Kind> statusItemPresentationKind(QStringView name) {
    const auto* const found = std::ranges::find(names, name);
    return found == names.end() ? std::nullopt
                                : std::optional(static_cast<Kind>(found - names.begin()));
}

QString name(Kind kind) {
    return names.at(static_cast<std::size_t>(kind)).toString();
}

Kind StatusItemPresentationChoice::of(std::optional<Kind> preferred,
                                      const StatusItemDesktop& desktop) {
    return preferred && isPossible(*preferred, desktop) ? *preferred : fitting(desktop);
}

std::optional<StatusItemPresentationChoice::Obstacle>
StatusItemPresentationChoice::obstacle(Kind kind, const StatusItemDesktop& desktop) {
    const auto when = [](bool holds, Obstacle obstacle) {
        return holds ? std::optional(obstacle) : std::nullopt;
    };
    if (kind == Kind::dock)
        return when(!isPossible(kind, desktop), Obstacle::noTray);
    if (kind == Kind::strip)
        return when(!isPossible(kind, desktop), Obstacle::noPlacement);
    if (!isPossible(kind, desktop))
        return Obstacle::noPanel;
    const auto habit = knownHabit(desktop);
    if (kind == Kind::label)
        return when(habit == TextHabit::drawsNone, Obstacle::noText);
    const bool isSquare = habit == TextHabit::drawsNone || keepsEmptyLabel(desktop);
    return when(kind == Kind::image && isSquare, Obstacle::squareIcons);
}

bool StatusItemPresentationChoice::isPanelKnown(const StatusItemDesktop& desktop) {
    return !desktop.hasWatcher || knownHabit(desktop);
}

bool StatusItemPresentationChoice::keepsEmptyLabel(const StatusItemDesktop& desktop) {
    const bool isHidden = desktop.watcherProcess.isEmpty();
    return desktop.watcherProcess == u"gnome-shell" ||
           (isHidden && desktop.names.contains(u"GNOME", Qt::CaseInsensitive));
}

} // namespace platform
