// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/AlertStore.h"

#include "Platform/Foundation/PlatformError.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/Alerts/AlertEngine.h"

#include <QThread>

#include <algorithm>
#include <cassert>
#include <iterator>
#include <set>
#include <utility>

namespace quorvel {

AlertStore::AlertStore(std::unique_ptr<AlertPersistence> persistence)
    : persistence_(std::move(persistence)) {
    try {
        rules_ = AlertRuleList(persistence_->load());
    } catch (const std::exception&) {
        // Starts empty; what cannot be loaded is told nowhere.
    }
}

std::vector<AlertRule> AlertStore::rules(const Symbol& symbol) const {
    std::vector<AlertRule> rules;
    std::ranges::copy_if(rules_, std::back_inserter(rules),
                         [&symbol](const AlertRule& rule) { return rule.symbol == symbol; });
    return rules;
}

void AlertStore::add(AlertRule rule) {
    std::vector<AlertRule> rules = rules_.all();
    rules.push_back(std::move(rule));
    replace(std::move(rules));
}

void AlertStore::remove(const QUuid& id) {
    std::vector<AlertRule> rules = rules_.all();
    const auto found = std::ranges::find(rules, id, &AlertRule::id);
    if (found == rules.end())
        return;
    rules.erase(found);
    replace(std::move(rules));
}

void AlertStore::setEnabled(bool enabled, const QUuid& id) {
    std::vector<AlertRule> rules = rules_.all();
    const auto found = std::ranges::find(rules, id, &AlertRule::id);
    if (found == rules.end() || found->isEnabled == enabled)
        return;
    found->isEnabled = enabled;
    if (enabled && found->repeatMode.isOnce())
        found->lastTriggeredAt.reset();
    replace(std::move(rules));
}

void AlertStore::markTriggered(const std::vector<AlertRule>& fired, platform::Date at) {
    if (fired.empty())
        return;
    std::set<QUuid> ids;
    std::ranges::transform(fired, std::inserter(ids, ids.end()), &AlertRule::id);
    std::vector<AlertRule> rules = rules_.all();
    for (AlertRule& rule : rules) {
        if (ids.contains(rule.id))
            rule = AlertEngine::applying(std::move(rule), at);
    }
    replace(std::move(rules));
}

void AlertStore::removeOrphans(const SymbolSet& keeping, bool isKeepingComplete) {
    std::vector<AlertRule> rules = rules_.all();
    std::erase_if(rules, [&](const AlertRule& rule) { return !keeping.contains(rule.symbol); });
    if (rules.size() == rules_.size())
        return;
    if (!isKeepingComplete)
        persistence_->keepStoredOnNextSave();
    replace(std::move(rules));
}

void AlertStore::removeAll(const Symbol& symbol) {
    std::vector<AlertRule> rules = rules_.all();
    if (std::erase_if(rules, [&](const AlertRule& rule) { return rule.symbol == symbol; }) > 0)
        replace(std::move(rules));
}

void AlertStore::replace(std::vector<AlertRule> rules) {
    assert(QThread::currentThread() == thread());
    const bool isChange = rules != rules_.all();
    rules_ = AlertRuleList(std::move(rules));
    lastPersistError_ =
        platform::failureOf([this] { persistence_->save(rules_.all()); },
                            platform::localized("QuorvelKit", "Couldn't save alerts: %1"));
    if (isChange)
        Q_EMIT rulesChanged();
}

} // namespace quorvel
