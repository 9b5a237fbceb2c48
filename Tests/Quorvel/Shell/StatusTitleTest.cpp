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

struct Case {
    Segments segments;
    bool showsArrow;
    const char16_t* text;
};

class StatusTitleText : public testing::TestWithParam<Case> {};

TEST_P(StatusTitleText, JoinsSegmentsAndArrows) {
    const Case& c = GetParam();
    DisplaySettings settings;
    settings.showsDirectionArrow = c.showsArrow;
    EXPECT_EQ(statusTitle(c.segments, settings).plainText(), QString::fromUtf16(c.text));
}

INSTANTIATE_TEST_SUITE_P(
    StatusTitle, StatusTitleText,
    testing::Values(
        Case{{}, true, u""}, Case{bothWays, true, u"BTC 1 \u25B2  ETH 2 \u25BC"},
        Case{bothWays, false, u"BTC 1  ETH 2"},
        Case{{{QStringLiteral("BTC --"), flat}}, true, u"BTC --"},
        Case{{{QStringLiteral("A"), flat}, {QStringLiteral("B"), up}}, true, u"A  B \u25B2"}));

TEST(StatusTitle, ColorsAndShrinksNothingButArrows) {
    for (const auto scheme : {redUpGreenDown, greenUpRedDown}) {
        std::vector<PriceDirection> arrows;
        DisplaySettings settings;
        settings.colorScheme = scheme;
        const auto title = statusTitle(bothWays, settings);
        for (const auto& run : title.runs) {
            const bool isArrow =
                run.text == QStringLiteral("\u25B2") || run.text == QStringLiteral("\u25BC");
            EXPECT_EQ(run.sizeDifference, isArrow ? -2 : 0);
            EXPECT_EQ(run.color.has_value(), isArrow);
            if (!isArrow)
                continue;
            arrows.push_back(run.text == QStringLiteral("\u25B2") ? up : down);
            EXPECT_EQ(run.color, directionColor(arrows.back(), scheme));
        }
        EXPECT_EQ(arrows, (std::vector{up, down}));
    }
}

} // namespace
