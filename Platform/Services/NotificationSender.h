// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace platform {

/// What all notifications of a program say of where they come from.
struct NotificationSender {
    /// The program's name for people.
    QString name;

    /// The icon beside each notification: its name in the icon theme, or the absolute path of an
    /// image file; empty for none.
    QString icon;

    /// The name of the program's desktop file, without its suffix. The desktop's own settings for
    /// notifications go by it.
    QString desktopEntry;

    bool operator==(const NotificationSender&) const = default;
};

} // namespace platform
