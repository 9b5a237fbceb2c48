// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/Alerts/AlertRule.h"
#include "QuorvelKit/Alerts/AlertRuleList.h"
#include "QuorvelKit/MarketModel/Quote.h"

#include <optional>
#include <vector>

namespace quorvel {

/// Decides which rules fire when a quote replaces another. Pure; nothing here fails.
///
/// A rule fires on a crossing only: the watched value was not beyond the threshold in the quote
/// before and is in this one. A value on the threshold is not beyond it.
struct AlertEngine {
    /// Copies of the rules that fire, unchanged and in the list's order.
    ///
    /// Beside the crossing, a rule must be enabled and, where it fired before, repeating with its
    /// cooldown over.
    /// @param previous the quote of the same pair that `current` replaced; without one nothing
    /// fires
    /// @param rules    those of all pairs
    /// @param now      the instant of this call, by the clock that `applying` was given
    static std::vector<AlertRule> triggeredRules(const std::optional<Quote>& previous,
                                                 const Quote& current, const AlertRuleList& rules,
                                                 platform::Date now);

    /// The rule after it has fired: one that fires once is disabled.
    static AlertRule applying(AlertRule trigger, platform::Date at);
};

} // namespace quorvel
