// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"

#include <QString>

#include <string_view>

namespace quorvel {

/// How far back a chart reaches.
enum class ChartPeriod {
    day,  ///< 24 candles of 1 hour
    week, ///< 42 candles of 4 hours
};

template <>
inline constexpr auto rawValues<ChartPeriod> = std::to_array<std::string_view>({"day", "week"});

/// The period's name in the interface language.
QString label(ChartPeriod period);

} // namespace quorvel
