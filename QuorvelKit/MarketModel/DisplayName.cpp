// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/DisplayName.h"

#include <algorithm>

namespace quorvel {

QString displayName(const Symbol& symbol, std::span<const Symbol> inSight) {
    const bool isAmbiguous = std::ranges::any_of(inSight, [&symbol](const Symbol& other) {
        return other.base == symbol.base && other.quote != symbol.quote;
    });
    return QString::fromStdString(isAmbiguous ? symbol.id() : symbol.base);
}

} // namespace quorvel
