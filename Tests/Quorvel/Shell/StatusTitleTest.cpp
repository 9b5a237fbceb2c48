// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusTitle.h"

#include "Quorvel/Model/PriceColors.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quorvel;

namespace {

using Segments = std::vector<StatusBarSegment>;
using enum PriceDirection;
using enum PriceColorScheme;

const Segments bothWays{{QStringLiteral("BTC 1"), up}, {QStringLiteral("ETH 2"), down}};

TEST(StatusTitle, ColorsAndShrinksNothingButArrows) {
    for (const auto scheme : {redUpGreenDown, greenUpRedDown}) {
        DisplaySettings settings;
        settings.colorScheme = scheme;
        std::vector<PriceDirection> arrows;
        for (const auto& run : statusTitle(bothWays, settings).runs) {
            const bool isUp = run.text == QStringLiteral("\u25B2");
            const bool isArrow = isUp || run.text == QStringLiteral("\u25BC");
            EXPECT_EQ(run.sizeDifference, isArrow ? -2 : 0);
            EXPECT_EQ(run.color, directionColor(isArrow ? isUp ? up : down : flat, scheme));
            if (isArrow)
                arrows.push_back(isUp ? up : down);
        }
        EXPECT_EQ(arrows, (std::vector{up, down}));
    }
}

} // namespace
