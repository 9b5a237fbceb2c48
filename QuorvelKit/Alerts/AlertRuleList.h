// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Alerts/AlertRule.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace quorvel {

/// Rules in the user's order, with an index by pair, kind and threshold. A quote arrives many times
/// a second and a rule changes seldom, so finding what a quote crosses must not look at every rule.
///
/// A value that does not change once made.
class AlertRuleList {
public:
    using value_type = AlertRule;
    using const_iterator = std::vector<AlertRule>::const_iterator;
    using iterator = const_iterator;
    /// A rule's place in the list.
    using Position = std::uint32_t;

    AlertRuleList() = default;

    /// Sorts: not for a list that serves a single quote.
    explicit AlertRuleList(std::vector<AlertRule> rules);

    /// In the user's order.
    const std::vector<AlertRule>& all() const { return rules_; }

    const_iterator begin() const { return rules_.begin(); }
    const_iterator end() const { return rules_.end(); }
    std::size_t size() const { return rules_.size(); }
    bool empty() const { return rules_.empty(); }
    const AlertRule& operator[](std::size_t position) const { return rules_[position]; }

    /// The rules of one pair, disabled ones included.
    class PairRules {
    public:
        /// The places of the rules with this kind of condition, lower thresholds first. Valid as
        /// long as the list.
        std::span<const Position> byThreshold(AlertConditionKind kind) const {
            return positions_[static_cast<std::size_t>(kind)];
        }

    private:
        friend class AlertRuleList;
        std::array<std::vector<Position>, allCases<AlertConditionKind>().size()> positions_;
    };

    /// Null for a pair without rules. Valid as long as the list.
    const PairRules* rules(const Symbol& symbol) const;

    friend bool operator==(const AlertRuleList& left, const AlertRuleList& right) {
        return left.rules_ == right.rules_;
    }

private:
    std::vector<AlertRule> rules_;
    std::unordered_map<Symbol, PairRules> index_;
};

} // namespace quorvel
