// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Alerts/AlertRule.h"

#include <vector>

namespace quorvel {

/// Where alert rules are kept between runs.
class AlertPersistence {
public:
    AlertPersistence() = default;
    AlertPersistence(const AlertPersistence&) = delete;
    AlertPersistence& operator=(const AlertPersistence&) = delete;
    virtual ~AlertPersistence() = default;

    /// The stored rules in order. An implementation may throw where they cannot be had.
    virtual std::vector<AlertRule> load() = 0;

    /// Replaces the stored rules. @throws std::exception where that fails
    virtual void save(const std::vector<AlertRule>& rules) = 0;

    /// Has the next `save` put aside what is stored before it replaces it, because rules may be
    /// about to go that the user wants. Where nothing outlives a save there is nothing to put
    /// aside.
    virtual void keepStoredOnNextSave() {}
};

} // namespace quorvel
