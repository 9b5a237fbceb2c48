// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"

#include <QString>

#include <string_view>

namespace quorvel {

/// What a rule watches and the side to which it must move; a condition without its threshold.
enum class AlertConditionKind {
    priceRisesAbove,
    priceFallsBelow,
    changeRisesAbove, ///< the 24-hour change, in percent
    changeFallsBelow,
};

template <>
inline constexpr auto rawValues<AlertConditionKind> = std::to_array<std::string_view>(
    {"priceRisesAbove", "priceFallsBelow", "changeRisesAbove", "changeFallsBelow"});

/// The kind's name in the interface language.
QString label(AlertConditionKind kind);

/// Whether the threshold is a percentage of change rather than a price.
bool isPercentage(AlertConditionKind kind);

/// Whether the watched value must go up to meet the condition.
bool isRising(AlertConditionKind kind);

} // namespace quorvel
