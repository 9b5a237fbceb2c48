// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/PriceDirection.h"
#include "QuorvelKit/MarketModel/RawValue.h"
#include "QuorvelKit/Stores/PriceColor.h"

#include <optional>

namespace quorvel {

/// The convention by which rising and falling prices are coloured.
enum class PriceColorScheme { redUpGreenDown, greenUpRedDown };

template <>
inline constexpr auto rawValues<PriceColorScheme> =
    std::to_array<std::string_view>({"redUpGreenDown", "greenUpRedDown"});

/// The colour of a direction; absent for `flat`.
std::optional<PriceColor> color(PriceColorScheme scheme, PriceDirection direction);

} // namespace quorvel
