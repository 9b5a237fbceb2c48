// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/PriceColors.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(PriceColors, FollowDirectionSchemeAndAppearance) {
    using enum PriceDirection;
    using enum PriceColorScheme;
    using enum platform::Appearance;
    const QColor darkGreen(42, 199, 75);
    const QColor darkRed(255, 107, 108);
    const QColor lightGreen(21, 122, 49);
    const QColor lightRed(196, 30, 32);
    EXPECT_EQ(directionColor(up, redUpGreenDown, light), lightRed);
    EXPECT_EQ(directionColor(up, redUpGreenDown, dark), darkRed);
    EXPECT_EQ(directionColor(down, redUpGreenDown, light), lightGreen);
    EXPECT_EQ(directionColor(down, redUpGreenDown, dark), darkGreen);
    EXPECT_EQ(directionColor(up, greenUpRedDown, light), lightGreen);
    EXPECT_EQ(directionColor(down, greenUpRedDown, dark), darkRed);
    EXPECT_EQ(directionColor(flat, redUpGreenDown, light), std::nullopt);
    EXPECT_EQ(directionColor(flat, greenUpRedDown), std::nullopt);
}
