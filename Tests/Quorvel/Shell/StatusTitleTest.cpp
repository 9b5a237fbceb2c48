// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusTitle.h"

#include "Quorvel/Model/PriceColors.h"
#include "Tests/Support/Cases.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quorvel;

namespace {

using Segments = std::vector<StatusBarSegment>;
using enum PriceDirection;
using enum PriceColorScheme;

const Segments bothWays{{QStringLiteral("BTC 1"), up}, {QStringLiteral("ETH 2"), down}};
const Segments flatFirst{{QStringLiteral("A"), flat}, {QStringLiteral("B"), up}};

TEST(StatusTitle, JoinsSegmentsAndArrows) {
    struct Case {
        Segments segments;
        bool showsArrow;
        const char16_t* text;
    };
    for (const auto& [segments, showsArrow, text] : test::cases(
             Case{{}, true, u""}, Case{bothWays, true, u"BTC 1 \u25B2  ETH 2 \u25BC"},
             Case{bothWays, false, u"BTC 1  ETH 2"}, Case{flatFirst, true, u"A  B \u25B2"})) {
        DisplaySettings settings;
        settings.showsDirectionArrow = showsArrow;
        EXPECT_EQ(statusTitle(segments, settings).plainText(), QString::fromUtf16(text));
    }
}

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
