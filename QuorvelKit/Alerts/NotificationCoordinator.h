// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Alerts/AlertRule.h"
#include "QuorvelKit/Alerts/NotificationDelivering.h"
#include "QuorvelKit/MarketModel/Quote.h"

#include <QObject>
#include <QProperty>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// Tells the user of fired alerts: asks once per run whether notifications may be shown, words each
/// of them, and keeps what went wrong for the views. Owned by the application model; main thread.
class NotificationCoordinator : public QObject {
    Q_OBJECT

public:
    explicit NotificationCoordinator(std::unique_ptr<NotificationDelivering> delivering)
        : delivering_(std::move(delivering)) {}

    /// The answer to this run's request; false before there is one.
    bool isAuthorized() const { return isAuthorized_; }

    /// Whether this run's request has been made, answered or not.
    bool hasRequestedAuthorization() const { return hasRequestedAuthorization_; }

    /// Why the last delivery failed, for the user; absent after one that did not.
    const std::optional<QString>& lastDeliveryError() const { return lastDeliveryError_; }

    /// Asks for permission, unless this run has done so: then it returns at once, even while the
    /// answer is awaited. Never throws.
    platform::Task<> requestAuthorizationIfNeeded();

    /// Delivers the notification of a rule that fired, once permission is there; without it,
    /// nothing. A failure goes to `lastDeliveryError`; it is not tried again.
    /// @param quote   the one that made the rule fire
    /// @param inSight the pairs that the rule's must be told apart from
    platform::Task<> notify(AlertRule rule, Quote quote, std::vector<Symbol> inSight = {});

Q_SIGNALS:
    void isAuthorizedChanged();
    void hasRequestedAuthorizationChanged();
    void lastDeliveryErrorChanged();

private:
    std::unique_ptr<NotificationDelivering> delivering_;
    Q_OBJECT_BINDABLE_PROPERTY(NotificationCoordinator, bool, isAuthorized_,
                               &NotificationCoordinator::isAuthorizedChanged)
    Q_OBJECT_BINDABLE_PROPERTY(NotificationCoordinator, bool, hasRequestedAuthorization_,
                               &NotificationCoordinator::hasRequestedAuthorizationChanged)
    Q_OBJECT_BINDABLE_PROPERTY(NotificationCoordinator, std::optional<QString>, lastDeliveryError_,
                               &NotificationCoordinator::lastDeliveryErrorChanged)
};

} // namespace quorvel
