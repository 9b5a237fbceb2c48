// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace platform {

/// One notification, to be shown at once.
struct NotificationRequest {
    /// One line of plain text.
    QString title;

    /// Plain text; may have several lines.
    QString body;

    /// The sound that goes with it, by its name in the desktop's sound themes; empty for none.
    QString soundName;

    bool operator==(const NotificationRequest&) const = default;
};

} // namespace platform
