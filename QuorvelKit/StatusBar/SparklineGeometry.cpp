// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/StatusBar/SparklineGeometry.h"

#include <algorithm>
#include <iterator>

namespace quorvel {

std::vector<double> SparklineGeometry::normalizedHeights(std::span<const Decimal> values) {
    if (values.empty())
        return {};
    const auto [lowest, highest] = std::ranges::minmax(values);
    const Decimal range = highest - lowest;
    if (range.isZero())
        return std::vector<double>(values.size(), 0.5);
    std::vector<double> heights;
    heights.reserve(values.size());
    // Exact until the division: prices that differ in their last digits alone keep their shape.
    std::ranges::transform(values, std::back_inserter(heights), [&](const Decimal& value) {
        return Decimal::quotient(value - lowest, range);
    });
    return heights;
}

PriceDirection SparklineGeometry::trend(std::span<const Decimal> values) {
    if (values.size() < 2 || values.front() == values.back())
        return PriceDirection::flat;
    return values.front() < values.back() ? PriceDirection::up : PriceDirection::down;
}

} // namespace quorvel
