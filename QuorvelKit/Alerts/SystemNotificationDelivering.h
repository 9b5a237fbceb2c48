// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Alerts/NotificationDelivering.h"

namespace platform {
class UserNotificationCenter;
}

namespace quorvel {

/// Delivers through the desktop's notifications, each with the sound that the desktop's theme has
/// for a new message. Main thread.
class SystemNotificationDelivering final : public NotificationDelivering {
public:
    /// @param center outlives this object
    explicit SystemNotificationDelivering(platform::UserNotificationCenter& center)
        : center_(center) {}

    platform::Task<bool> requestAuthorization() override;

    /// @throws platform::ServiceError where the desktop did not take it
    platform::Task<void> deliver(QString title, QString body) override;

private:
    platform::UserNotificationCenter& center_;
};

} // namespace quorvel
