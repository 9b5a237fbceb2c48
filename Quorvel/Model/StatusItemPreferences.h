// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/UserDefaults.h"
#include "Platform/StatusBar/StatusItemOptions.h"

#include <optional>

namespace quorvel {

/// How the user wants the status item shown, as kept in the preferences.
struct StatusItemPreferences {
    /// From `statusItem.presentation`, `statusItem.stripPosition` and `statusItem.stripScreen`; the
    /// default for what is missing or unusable.
    static platform::StatusItemOptions options(const platform::UserDefaults& defaults);

    /// Absent is written as such, too: from then on the presentation is settled.
    static void setPresentation(platform::UserDefaults& defaults,
                                std::optional<platform::StatusItemPresentationKind> kind);

    /// Whether the preferences say anything about the presentation.
    static bool isPresentationSettled(const platform::UserDefaults& defaults);

    /// Whether the user has been told of the widget that the desktop could show instead.
    static bool isWidgetOffered(const platform::UserDefaults& defaults);
    static void setWidgetOffered(platform::UserDefaults& defaults);

    static void setStripPlace(platform::UserDefaults& defaults,
                              const platform::StripPosition& position, const QString& screen);
};

} // namespace quorvel
