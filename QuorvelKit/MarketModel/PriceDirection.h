// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace quorvel {

/// The sign of a move.
enum class PriceDirection { up, down, flat };

/// The arrow that stands for the direction in the status bar; absent for `flat`.
inline std::optional<QString> statusBarSymbol(PriceDirection direction) {
    switch (direction) {
    case PriceDirection::up:
        return QStringLiteral("\u25B2");
    case PriceDirection::down:
        return QStringLiteral("\u25BC");
    case PriceDirection::flat:
        break;
    }
    return std::nullopt;
}

} // namespace quorvel
