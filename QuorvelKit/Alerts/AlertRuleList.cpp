// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertRuleList.h"

#include <algorithm>
#include <utility>

namespace quorvel {

AlertRuleList::AlertRuleList(std::vector<AlertRule> rules) : rules_(std::move(rules)) {
    for (Position position = 0; position < rules_.size(); ++position) {
        const AlertRule& rule = rules_[position];
        const auto kind = static_cast<std::size_t>(rule.condition.kind);
        index_[rule.symbol].positions_[kind].push_back(position);
    }
    const auto threshold = [this](Position position) -> const Decimal& {
        return rules_[position].condition.threshold;
    };
    for (auto& [symbol, pair] : index_) {
        for (auto& positions : pair.positions_)
            std::ranges::sort(positions, {}, threshold);
    }
}

const AlertRuleList::PairRules* AlertRuleList::rules(const Symbol& symbol) const {
    const auto found = index_.find(symbol);
    return found == index_.end() ? nullptr : &found->second;
}

} // namespace quorvel
