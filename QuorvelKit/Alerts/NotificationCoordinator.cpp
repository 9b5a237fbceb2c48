// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/NotificationCoordinator.h"

#include "Platform/Foundation/PlatformError.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/MarketModel/PriceFormatter.h"

#include <utility>

namespace quorvel {

using platform::Task;

Task<> NotificationCoordinator::requestAuthorizationIfNeeded() {
    if (hasRequestedAuthorization_)
        co_return;
    hasRequestedAuthorization_ = true;
    isAuthorized_ = co_await delivering_->requestAuthorization();
}

Task<> NotificationCoordinator::notify(AlertRule rule, Quote quote, std::vector<Symbol> inSight) {
    co_await requestAuthorizationIfNeeded();
    if (!isAuthorized_)
        co_return;
    QString title = rule.title(inSight);
    QString body = platform::localized("QuorvelKit", "Now %1  %2")
                       .arg(PriceFormatter::price(quote.lastPrice),
                            PriceFormatter::changePercent(quote.changePercent24h));
    try {
        co_await delivering_->deliver(std::move(title), std::move(body));
        lastDeliveryError_ = std::nullopt;
    } catch (const std::exception& error) {
        lastDeliveryError_ = platform::localized("QuorvelKit", "Couldn't deliver notification: %1")
                                 .arg(platform::localizedDescription(error));
    }
}

} // namespace quorvel
