#include "QuorvelKit/StatusBar/RotationDriver.h"

#include <gtest/gtest.h>

#include <limits>

using quorvel::RotationDriver;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct Case {
    double elapsed;
    double interval;
    int itemCount;
    int index;
};

class RotationDriverTable : public testing::TestWithParam<Case> {};

TEST_P(RotationDriverTable, GivesThePosition) {
    const Case& c = GetParam();
    EXPECT_EQ(RotationDriver::index(c.elapsed, c.interval, c.itemCount), c.index)
        << c.elapsed << " s, " << c.interval << " s each, " << c.itemCount << " items";
}

INSTANTIATE_TEST_SUITE_P(RotationDriver, RotationDriverTable,
                         testing::Values(Case{0, 5, 3, 0}, Case{4.999, 5, 3, 0}, Case{5, 5, 3, 1},
                                         Case{14.9, 5, 3, 2}, Case{15, 5, 3, 0}, Case{7.9, 0, 5, 2},
                                         Case{7.9, -1, 5, 2}, Case{7.9, nan, 5, 2},
                                         Case{-3, 5, 3, 0}, Case{nan, 5, 3, 0}, Case{42, 5, 1, 0},
                                         Case{42, 5, 0, 0}, Case{42, 5, -1, 0},
                                         Case{infinity, 5, 3, 0}, Case{1e300, 1, 7, 0},
                                         Case{5, infinity, 3, 0}));

} // namespace
