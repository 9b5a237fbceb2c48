// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"

namespace quorvel {

/// Which pairs the status bar shows.
enum class StatusBarDisplayMode {
    rotating,   ///< one after the other
    sideBySide, ///< several at once
    fixed,      ///< always the first
};

template <>
inline constexpr auto rawValues<StatusBarDisplayMode> =
    std::to_array<std::string_view>({"rotating", "sideBySide", "fixed"});

} // namespace quorvel
