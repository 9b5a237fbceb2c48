// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/DisplaySettings.h"

#include "QuorvelKit/Stores/AppLanguage.h"
#include "QuorvelKit/Stores/AppearanceMode.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quorvel;
using platform::TimeInterval;

namespace {

TEST(DisplaySettings, ClampsTheRotationInterval) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, double> cases[] = {
        {0.5, 1},      {1, 1},         {7.25, 7.25},
        {60, 60},      {120, 60},      {-3, 1},
        {infinity, 5}, {-infinity, 5}, {std::numeric_limits<double>::quiet_NaN(), 5}};
    for (const auto& [assigned, stored] : cases) {
        DisplaySettings settings;
        settings.setRotationInterval(TimeInterval(9));
        settings.setRotationInterval(TimeInterval(assigned));
        EXPECT_EQ(settings.rotationInterval().count(), stored) << assigned;
    }
}

TEST(DisplaySettings, ClampsTheSideBySideLimit) {
    const std::pair<std::int64_t, std::int64_t> cases[] = {{-3, 1}, {0, 1}, {1, 1},
                                                           {4, 4},  {5, 5}, {9, 5}};
    for (const auto& [assigned, stored] : cases) {
        DisplaySettings settings;
        settings.setSideBySideLimit(assigned);
        EXPECT_EQ(settings.sideBySideLimit(), stored) << assigned;
    }
}

TEST(DisplaySettings, StartsWithTheDefaultsAndClampsAtConstructionToo) {
    const auto make = [](double interval, std::int64_t limit) {
        return DisplaySettings(StatusBarDisplayMode::rotating, StatusBarContent::both,
                               PriceColorScheme::redUpGreenDown, TimeInterval(interval), limit,
                               ChartPeriod::day, true, true);
    };
    EXPECT_EQ(DisplaySettings(), make(5, 3));
    EXPECT_EQ(make(0, 100).rotationInterval().count(), 1);
    EXPECT_EQ(make(0, 100).sideBySideLimit(), 5);
}

template <typename Enum>
std::string joinedRawValues() {
    std::string joined;
    for (const Enum value : allCases<Enum>())
        joined += std::string(rawValue(value)) + ' ';
    return joined;
}

TEST(RawValues, AreTheNamesOfTheCasesInOrder) {
    static_assert(rawValue(StatusBarDisplayMode::sideBySide) == "sideBySide");
    EXPECT_EQ(joinedRawValues<StatusBarDisplayMode>(), "rotating sideBySide fixed ");
    EXPECT_EQ(joinedRawValues<StatusBarContent>(), "priceOnly changeOnly both ");
    EXPECT_EQ(joinedRawValues<PriceColorScheme>(), "redUpGreenDown greenUpRedDown ");
    EXPECT_EQ(joinedRawValues<ChartPeriod>(), "day week ");
    EXPECT_EQ(joinedRawValues<AppLanguage>(), "system english simplifiedChinese ");
    EXPECT_EQ(joinedRawValues<AppearanceMode>(), "system light dark ");
}

TEST(PriceColorScheme, ColoursOnlyMoves) {
    using enum PriceColorScheme;
    EXPECT_EQ(color(redUpGreenDown, PriceDirection::up), PriceColor::red);
    EXPECT_EQ(color(redUpGreenDown, PriceDirection::down), PriceColor::green);
    EXPECT_EQ(color(greenUpRedDown, PriceDirection::up), PriceColor::green);
    EXPECT_EQ(color(greenUpRedDown, PriceDirection::flat), std::nullopt);
}

} // namespace
