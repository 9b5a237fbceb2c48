// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/StatusBar/SparklineGeometry.h"

#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

#include <string>

using namespace quorvel;

namespace {

struct Line {
    std::vector<std::string> values;
    std::vector<double> heights;
    PriceDirection trend;
};

// Fifteen digits in front of what differs: as binary numbers these values would be equal.
const std::string long1 = "123456789012345.000001";
const std::string long2 = "123456789012345.000002";
const std::string long3 = "123456789012345.000003";

TEST(SparklineGeometry, HasHeightsBetweenTheExtremesAndATrend) {
    for (const auto& [texts, heights, trend] : test::cases(
             Line{{}, {}, PriceDirection::flat}, Line{{"7"}, {0.5}, PriceDirection::flat},
             Line{{"1.10", "1.1"}, {0.5, 0.5}, PriceDirection::flat},
             Line{{"1", "2", "3"}, {0, 0.5, 1}, PriceDirection::up},
             Line{{"0.00001000", "0.00001002", "0.00001001"}, {0, 1, 0.5}, PriceDirection::up},
             Line{{"5", "9", "5"}, {0, 1, 0}, PriceDirection::flat},
             Line{{"3", "9", "-3"}, {0.5, 1, 0}, PriceDirection::down},
             Line{{long3, long1, long2}, {1, 0, 0.5}, PriceDirection::down},
             Line{{"-1e120", "1e-100", "1e120"}, {0, 0.5, 1}, PriceDirection::up})) {
        std::vector<Decimal> values;
        for (const std::string& text : texts)
            values.push_back(test::decimal(text));
        EXPECT_EQ(SparklineGeometry::normalizedHeights(values), heights)
            << testing::PrintToString(texts);
        EXPECT_EQ(SparklineGeometry::trend(values), trend) << testing::PrintToString(texts);
    }
}

} // namespace
