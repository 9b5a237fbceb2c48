// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertEngine.h"

#include <algorithm>
#include <span>

namespace quorvel {

using platform::Date;
using Position = AlertRuleList::Position;

namespace {

const Decimal& watchedValue(const Quote& quote, AlertConditionKind kind) {
    return isPercentage(kind) ? quote.changePercent24h : quote.lastPrice;
}

/// Of rules sorted by threshold those that a move between two values crosses: upward from a
/// threshold or below to above it, downward from a threshold or above to below it.
std::span<const Position> crossed(std::span<const Position> sorted, const AlertRuleList& rules,
                                  const Decimal& from, const Decimal& to, bool isUpward) {
    const auto threshold = [&rules](Position position) -> const Decimal& {
        return rules[position].condition.threshold;
    };
    if (isUpward ? from >= to : from <= to)
        return {};
    if (isUpward)
        return {std::ranges::lower_bound(sorted, from, {}, threshold),
                std::ranges::lower_bound(sorted, to, {}, threshold)};
    return {std::ranges::upper_bound(sorted, to, {}, threshold),
            std::ranges::upper_bound(sorted, from, {}, threshold)};
}

bool mayFire(const AlertRule& rule, Date now) {
    if (!rule.isEnabled)
        return false;
    if (!rule.lastTriggeredAt)
        return true;
    const auto& cooldown = rule.repeatMode.cooldown;
    return cooldown && now - *rule.lastTriggeredAt >= *cooldown;
}

} // namespace

std::vector<AlertRule> AlertEngine::triggeredRules(const std::optional<Quote>& previous,
                                                   const Quote& current, const AlertRuleList& rules,
                                                   Date now) {
    const auto* const pair = previous ? rules.rules(current.symbol) : nullptr;
    if (!pair)
        return {};
    std::vector<Position> firing;
    for (const AlertConditionKind kind : allCases<AlertConditionKind>()) {
        for (const Position position :
             crossed(pair->byThreshold(kind), rules, watchedValue(*previous, kind),
                     watchedValue(current, kind), isRising(kind))) {
            if (mayFire(rules[position], now))
                firing.push_back(position);
        }
    }
    std::ranges::sort(firing);
    std::vector<AlertRule> fired;
    fired.reserve(firing.size());
    for (const Position position : firing)
        fired.push_back(rules[position]);
    return fired;
}

AlertRule AlertEngine::applying(AlertRule trigger, Date at) {
    trigger.lastTriggeredAt = at;
    if (trigger.repeatMode.isOnce())
        trigger.isEnabled = false;
    return trigger;
}

} // namespace quorvel
