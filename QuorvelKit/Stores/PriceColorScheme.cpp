// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/PriceColorScheme.h"

namespace quorvel {

std::optional<PriceColor> color(PriceColorScheme scheme, PriceDirection direction) {
    if (direction == PriceDirection::flat)
        return std::nullopt;
    const bool isUp = direction == PriceDirection::up;
    const bool isRedUp = scheme == PriceColorScheme::redUpGreenDown;
    return isUp == isRedUp ? PriceColor::red : PriceColor::green;
}

} // namespace quorvel
