#include "Quorvel/Model/PriceColors.h"

#include <gtest/gtest.h>

using namespace quorvel;
using platform::Appearance;

namespace {

const QColor darkGreen(42, 199, 75);
const QColor darkRed(255, 107, 108);
const QColor lightGreen(21, 122, 49);
const QColor lightRed(196, 30, 32);

struct Case {
    PriceDirection direction;
    PriceColorScheme scheme;
    std::optional<QColor> light;
    std::optional<QColor> dark;
};

class PriceColors : public testing::TestWithParam<Case> {};

TEST_P(PriceColors, FollowDirectionSchemeAndAppearance) {
    const Case& c = GetParam();
    EXPECT_EQ(directionColor(c.direction, c.scheme, Appearance::light), c.light);
    EXPECT_EQ(directionColor(c.direction, c.scheme, Appearance::dark), c.dark);
    EXPECT_EQ(directionColor(c.direction, c.scheme).has_value(), c.light.has_value());
}

using enum PriceDirection;
using enum PriceColorScheme;

INSTANTIATE_TEST_SUITE_P(Directions, PriceColors,
                         testing::Values(Case{up, redUpGreenDown, lightRed, darkRed},
                                         Case{down, redUpGreenDown, lightGreen, darkGreen},
                                         Case{up, greenUpRedDown, lightGreen, darkGreen},
                                         Case{down, greenUpRedDown, lightRed, darkRed},
                                         Case{flat, redUpGreenDown, {}, {}},
                                         Case{flat, greenUpRedDown, {}, {}}));

} // namespace
