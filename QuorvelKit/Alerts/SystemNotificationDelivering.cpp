// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/SystemNotificationDelivering.h"

#include "Platform/Services/UserNotificationCenter.h"

namespace quorvel {

platform::Task<bool> SystemNotificationDelivering::requestAuthorization() {
    return center_.requestAuthorization();
}

platform::Task<void> SystemNotificationDelivering::deliver(QString title, QString body) {
    return center_.add({.title = std::move(title),
                        .body = std::move(body),
                        .soundName = QStringLiteral("message-new-instant")});
}

} // namespace quorvel
