// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/StatusBar/RotationDriver.h"

#include "Tests/Support/Cases.h"

#include <gtest/gtest.h>

#include <limits>

TEST(RotationDriver, GivesThePosition) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        double elapsed;
        double interval;
        int itemCount;
        int index;
    };
    for (const auto& [elapsed, interval, itemCount, index] : test::cases(
             Case{0, 5, 3, 0}, Case{4.999, 5, 3, 0}, Case{5, 5, 3, 1}, Case{14.9, 5, 3, 2},
             Case{15, 5, 3, 0}, Case{7.9, 0, 5, 2}, Case{7.9, -1, 5, 2}, Case{7.9, nan, 5, 2},
             Case{-3, 5, 3, 0}, Case{nan, 5, 3, 0}, Case{42, 5, 1, 0}, Case{42, 5, 0, 0},
             Case{42, 5, -1, 0}, Case{infinity, 5, 3, 0}, Case{1e300, 1, 7, 0}))
        EXPECT_EQ(quorvel::RotationDriver::index(elapsed, interval, itemCount), index)
            << elapsed << " s, " << interval << " s each, " << itemCount << " items";
}
