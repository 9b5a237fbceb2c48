#pragma once

#include "Platform/Desktop/StatusItemOptions.h"
#include "Platform/Foundation/UserDefaults.h"

namespace quorvel {

/// How the user wants the status item shown, as kept in the preferences.
struct StatusItemPreferences {
    /// From `statusItem.presentation` and `statusItem.stripPosition`; the default for what is
    /// missing or unusable.
    static platform::StatusItemOptions options(const platform::UserDefaults& defaults);

    static void setStripPosition(platform::UserDefaults& defaults,
                                 const platform::StripPosition& position);
};

} // namespace quorvel
