// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Services/LaunchAtLoginController.h"

#include "Platform/Foundation/PlatformError.h"
#include "Platform/Foundation/StringTable.h"

#include <utility>

namespace quorvel {

LaunchAtLoginController::LaunchAtLoginController(std::unique_ptr<LaunchAtLoginManaging> service)
    : service_(std::move(service)), isEnabled_(service_->isEnabled()) {}

void LaunchAtLoginController::setEnabled(bool enabled) {
    if (enabled == isEnabled_)
        return;
    std::optional<QString> message;
    try {
        service_->setEnabled(enabled);
    } catch (const std::exception& failure) {
        message = platform::localized("QuorvelKit", "Couldn't change launch at login: %1")
                      .arg(platform::localizedDescription(failure));
    }
    show(message ? service_->isEnabled() : enabled);
    setLastErrorMessage(std::move(message));
}

void LaunchAtLoginController::show(bool isEnabled) {
    if (std::exchange(isEnabled_, isEnabled) != isEnabled)
        Q_EMIT isEnabledChanged();
}

void LaunchAtLoginController::setLastErrorMessage(std::optional<QString> message) {
    if (lastErrorMessage_ == message)
        return;
    lastErrorMessage_ = std::move(message);
    Q_EMIT lastErrorMessageChanged();
}

} // namespace quorvel
