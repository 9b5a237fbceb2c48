// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"

#include <QString>

#include <optional>
#include <string_view>

namespace quorvel {

/// The interface language that the user chose.
enum class AppLanguage { system, english, simplifiedChinese };

template <>
inline constexpr auto rawValues<AppLanguage> =
    std::to_array<std::string_view>({"system", "english", "simplifiedChinese"});

/// The name shown for the choice: each language in itself, `system` in the interface language.
QString label(AppLanguage language);

/// The language's identifier, such as "zh-Hans"; absent for `system`.
std::optional<std::string_view> localeIdentifier(AppLanguage language);

} // namespace quorvel
