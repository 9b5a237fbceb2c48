// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/ChartPeriod.h"

#include "Platform/Foundation/StringTable.h"

namespace quorvel {

QString label(ChartPeriod period) {
    return period == ChartPeriod::day ? platform::localized("QuorvelKit", "24 hours")
                                      : platform::localized("QuorvelKit", "7 days");
}

} // namespace quorvel
