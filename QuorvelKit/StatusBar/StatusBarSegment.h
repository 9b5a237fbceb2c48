// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/PriceDirection.h"

#include <QString>

namespace quorvel {

/// What the status bar says about one pair.
struct StatusBarSegment {
    QString text;             ///< such as "BTC 65,432.10 +1.23%"
    PriceDirection direction; ///< of the 24-hour change; `flat` without a quote

    friend bool operator==(const StatusBarSegment&, const StatusBarSegment&) = default;
};

} // namespace quorvel
