#include "QuorvelKit/Stores/DisplaySettings.h"

#include "QuorvelKit/Stores/AppLanguage.h"
#include "QuorvelKit/Stores/AppearanceMode.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quorvel;
using platform::TimeInterval;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(DisplaySettings, ClampsTheRotationInterval) {
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
    const std::pair<std::int64_t, std::int64_t> cases[] = {
        {-3, 1},
        {0, 1},
        {1, 1},
        {4, 4},
        {5, 5},
        {9, 5},
        {std::numeric_limits<std::int64_t>::min(), 1}};
    for (const auto& [assigned, stored] : cases) {
        DisplaySettings settings;
        settings.setSideBySideLimit(assigned);
        EXPECT_EQ(settings.sideBySideLimit(), stored) << assigned;
    }
}

TEST(DisplaySettings, ClampsAtConstructionToo) {
    const DisplaySettings settings(StatusBarDisplayMode::fixed, StatusBarContent::priceOnly,
                                   PriceColorScheme::greenUpRedDown, TimeInterval(0), 100,
                                   ChartPeriod::week, false, false);
    EXPECT_EQ(settings.rotationInterval().count(), 1);
    EXPECT_EQ(settings.sideBySideLimit(), 5);
    EXPECT_EQ(settings.chartPeriod, ChartPeriod::week);
}

TEST(DisplaySettings, StartsWithTheDefaults) {
    EXPECT_EQ(DisplaySettings(),
              DisplaySettings(StatusBarDisplayMode::rotating, StatusBarContent::both,
                              PriceColorScheme::redUpGreenDown, TimeInterval(5), 3,
                              ChartPeriod::day, true, true));
}

TEST(DisplaySettings, DiffersByTheStoredFields) {
    DisplaySettings settings;
    settings.setRotationInterval(TimeInterval(5.5));
    EXPECT_NE(settings, DisplaySettings());
    settings = DisplaySettings();
    settings.setSideBySideLimit(4);
    EXPECT_NE(settings, DisplaySettings());
}

template <typename Enum>
std::string joinedRawValues() {
    std::string joined;
    for (const Enum value : allCases<Enum>()) {
        EXPECT_EQ(fromRawValue<Enum>(rawValue(value)), value);
        joined += std::string(rawValue(value)) + ' ';
    }
    return joined;
}

TEST(RawValues, AreTheNamesOfTheCasesInOrder) {
    static_assert(rawValue(StatusBarDisplayMode::sideBySide) == "sideBySide");
    static_assert(rawValue(AppLanguage::simplifiedChinese) == "simplifiedChinese");
    EXPECT_EQ(joinedRawValues<StatusBarDisplayMode>(), "rotating sideBySide fixed ");
    EXPECT_EQ(joinedRawValues<StatusBarContent>(), "priceOnly changeOnly both ");
    EXPECT_EQ(joinedRawValues<PriceColorScheme>(), "redUpGreenDown greenUpRedDown ");
    EXPECT_EQ(joinedRawValues<AppLanguage>(), "system english simplifiedChinese ");
    EXPECT_EQ(joinedRawValues<AppearanceMode>(), "system light dark ");
    EXPECT_EQ(fromRawValue<StatusBarDisplayMode>("Rotating"), std::nullopt);
    EXPECT_EQ(fromRawValue<StatusBarDisplayMode>("fixed "), std::nullopt);
}

TEST(PriceColorScheme, ColoursOnlyMoves) {
    using enum PriceColorScheme;
    EXPECT_EQ(color(redUpGreenDown, PriceDirection::up), PriceColor::red);
    EXPECT_EQ(color(redUpGreenDown, PriceDirection::down), PriceColor::green);
    EXPECT_EQ(color(greenUpRedDown, PriceDirection::up), PriceColor::green);
    EXPECT_EQ(color(greenUpRedDown, PriceDirection::down), PriceColor::red);
    EXPECT_EQ(color(redUpGreenDown, PriceDirection::flat), std::nullopt);
    EXPECT_EQ(color(greenUpRedDown, PriceDirection::flat), std::nullopt);
}

TEST(AppLanguage, NamesItselfAndItsLocale) {
    EXPECT_EQ(label(AppLanguage::simplifiedChinese), QString::fromUtf8("简体中文"));
    EXPECT_EQ(label(AppLanguage::system), label(AppearanceMode::system));
    EXPECT_EQ(localeIdentifier(AppLanguage::system), std::nullopt);
    EXPECT_EQ(localeIdentifier(AppLanguage::english), "en");
    EXPECT_EQ(localeIdentifier(AppLanguage::simplifiedChinese), "zh-Hans");
}

} // namespace
