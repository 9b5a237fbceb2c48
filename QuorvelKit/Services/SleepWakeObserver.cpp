// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Services/SleepWakeObserver.h"

#include "Platform/Services/Workspace.h"

#include <utility>

namespace quorvel {

using platform::Workspace;

SleepWakeObserver::SleepWakeObserver(platform::NotificationCenter& center,
                                     std::function<void()> onSleep, std::function<void()> onWake)
    : center_(center), onSleep_(std::move(onSleep)), onWake_(std::move(onWake)) {}

void SleepWakeObserver::start() {
    if (!tokens_.empty())
        return;
    // The center keeps copies, which an action that destroys this object does not destroy.
    tokens_.push_back(center_.addObserver(Workspace::willSleepNotification, onSleep_));
    tokens_.push_back(center_.addObserver(Workspace::didWakeNotification, onWake_));
}

void SleepWakeObserver::stop() {
    for (const auto token : tokens_)
        center_.removeObserver(token);
    tokens_.clear();
}

} // namespace quorvel
