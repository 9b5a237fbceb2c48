// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"

namespace quorvel {

/// Which numbers follow the asset's name in the status bar.
enum class StatusBarContent { priceOnly, changeOnly, both };

template <>
inline constexpr auto rawValues<StatusBarContent> =
    std::to_array<std::string_view>({"priceOnly", "changeOnly", "both"});

} // namespace quorvel
