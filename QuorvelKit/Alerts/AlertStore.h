// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/Alerts/AlertPersistence.h"
#include "QuorvelKit/Alerts/AlertRule.h"
#include "QuorvelKit/Alerts/AlertRuleList.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QObject>
#include <QProperty>
#include <QString>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// The user's alert rules of all pairs, saved after every change. Owned by the application model;
/// main thread.
///
/// A change stands whether or not it could be saved; a failed save shows in `lastPersistError`.
/// Operations that name a rule act on the first with that id, and do nothing without one.
class AlertStore : public QObject {
    Q_OBJECT

public:
    /// Loads the rules. Those that cannot be loaded are not there, without a message. Saves
    /// nothing.
    explicit AlertStore(std::unique_ptr<AlertPersistence> persistence);

    /// In the order in which they were added. Valid until the next change.
    const AlertRuleList& rules() const { return rules_; }

    /// The pair's rules in the same order.
    std::vector<AlertRule> rules(const Symbol& symbol) const;

    /// Why the last save failed, for the user; absent after one that did not.
    const std::optional<QString>& lastPersistError() const { return lastPersistError_; }

    void add(AlertRule rule);
    void remove(const QUuid& id);

    /// Switches a rule on or off. Switching on one that fires once arms it anew; a repeating one
    /// keeps its cooldown running.
    void setEnabled(bool enabled, const QUuid& id);

    /// Notes that rules have fired, in what is stored under their ids now: they may have been
    /// changed since. Saves once, even where none of them is left; not for an empty list.
    void markTriggered(const std::vector<AlertRule>& fired, platform::Date at);

    /// Drops the rules of all pairs but these.
    /// @param isKeepingComplete false where the set may lack pairs of the user's, because the
    /// watchlist was damaged: what is stored is then kept aside before any rule is dropped
    void removeOrphans(const SymbolSet& keeping, bool isKeepingComplete);

    /// Drops the pair's rules.
    void removeAll(const Symbol& symbol);

Q_SIGNALS:
    void rulesChanged();
    void lastPersistErrorChanged();

private:
    /// Takes the rules over and saves them; tells observers where they differ.
    void replace(std::vector<AlertRule> rules);

    AlertRuleList rules_;
    Q_OBJECT_BINDABLE_PROPERTY(AlertStore, std::optional<QString>, lastPersistError_,
                               &AlertStore::lastPersistErrorChanged)
    std::unique_ptr<AlertPersistence> persistence_;
};

} // namespace quorvel
