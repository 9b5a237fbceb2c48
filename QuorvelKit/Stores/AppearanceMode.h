// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"

#include <QString>

namespace quorvel {

/// Whether windows are light or dark.
enum class AppearanceMode { system, light, dark };

template <>
inline constexpr auto rawValues<AppearanceMode> =
    std::to_array<std::string_view>({"system", "light", "dark"});

/// The name shown for the choice, in the interface language.
QString label(AppearanceMode mode);

} // namespace quorvel
