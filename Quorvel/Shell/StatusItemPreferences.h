// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/UserDefaults.h"
#include "Platform/StatusBar/StatusItemOptions.h"

namespace quorvel {

/// How the user wants the status item shown, as kept in the preferences.
struct StatusItemPreferences {
    /// From `statusItem.presentation`, `statusItem.stripPosition` and `statusItem.stripScreen`; the
    /// default for what is missing or unusable.
    static platform::StatusItemOptions options(const platform::UserDefaults& defaults);

    static void setStripPlace(platform::UserDefaults& defaults,
                              const platform::StripPosition& position, const QString& screen);
};

} // namespace quorvel
