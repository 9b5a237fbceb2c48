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

/// The length of one candle, as the exchange writes it.
std::string_view interval(ChartPeriod period);

/// How many candles cover the period.
int limit(ChartPeriod period);

} // namespace quorvel
