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
    auto message = platform::failureOf(
        [&] { service_->setEnabled(enabled); },
        platform::localized("QuorvelKit", "Couldn't change launch at login: %1"));
    isEnabled_ = message ? service_->isEnabled() : enabled;
    lastErrorMessage_ = std::move(message);
}

} // namespace quorvel
