// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"

#include <QString>

namespace quorvel {

/// Shows notifications to the user. Lives on the main thread, and outlives the tasks that use it.
class NotificationDelivering {
public:
    NotificationDelivering() = default;
    NotificationDelivering(const NotificationDelivering&) = delete;
    NotificationDelivering& operator=(const NotificationDelivering&) = delete;
    virtual ~NotificationDelivering() = default;

    /// Asks for the permission to show notifications; false where it is refused or cannot be asked
    /// for. Never throws.
    virtual platform::Task<bool> requestAuthorization() = 0;

    /// Shows one notification now, and waits until whoever shows it has taken it.
    ///
    /// @param title one line of plain text
    /// @param body  plain text
    /// @throws std::exception where it was not taken; `platform::localizedDescription` words it
    virtual platform::Task<void> deliver(QString title, QString body) = 0;
};

} // namespace quorvel
