// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/NotificationCenter.h"

#include <functional>
#include <vector>

namespace quorvel {

/// Calls one action when the machine is about to sleep and another when it has woken, from `start`
/// to `stop`. Owned by the application model; main thread.
///
/// The actions run inside the notification, so they only start what takes time. One may stop or
/// destroy the observer.
class SleepWakeObserver {
public:
    /// Registers nothing yet.
    /// @param center where `platform::Workspace` posts; outlives the observer
    SleepWakeObserver(platform::NotificationCenter& center, std::function<void()> onSleep,
                      std::function<void()> onWake);
    SleepWakeObserver(const SleepWakeObserver&) = delete;
    SleepWakeObserver& operator=(const SleepWakeObserver&) = delete;
    ~SleepWakeObserver() { stop(); }

    /// Does nothing where it has been started already.
    void start();

    /// No action is called any more, until the next `start`.
    void stop();

private:
    platform::NotificationCenter& center_;
    std::function<void()> onSleep_;
    std::function<void()> onWake_;
    /// Empty while stopped, else of sleep and of wake.
    std::vector<platform::NotificationCenter::Token> tokens_;
};

} // namespace quorvel
