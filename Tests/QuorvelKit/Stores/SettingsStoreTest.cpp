#include "QuorvelKit/Stores/SettingsStore.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

using namespace quorvel;
using platform::TimeInterval;

namespace {

struct Loaded {
    const char* key;
    const char* stored;
    std::function<void(DisplaySettings&)> change; ///< what differs from the defaults
};

class SettingsLoading : public testing::TestWithParam<Loaded> {};

class Settings : public testing::Test {
protected:
    QTemporaryDir directory_;
    platform::UserDefaults defaults_{directory_.filePath(QStringLiteral("Quorvel.conf"))};
};

auto interval(double seconds) {
    return [seconds](DisplaySettings& s) { s.setRotationInterval(TimeInterval(seconds)); };
}

auto limit(int count) {
    return [count](DisplaySettings& s) { s.setSideBySideLimit(count); };
}

void nothing(DisplaySettings&) {}

} // namespace

TEST_P(SettingsLoading, FallsBackKeyByKey) {
    const QTemporaryDir directory;
    platform::UserDefaults defaults(directory.filePath(QStringLiteral("Quorvel.conf")));
    defaults.setString(QString::fromLatin1(GetParam().key), QString::fromLatin1(GetParam().stored));
    DisplaySettings expected;
    GetParam().change(expected);
    EXPECT_EQ(SettingsStore(defaults).display(), expected)
        << GetParam().key << "=" << GetParam().stored;
}

INSTANTIATE_TEST_SUITE_P(
    SettingsStore, SettingsLoading,
    testing::Values(
        Loaded{"display.mode", "fixed", [](auto& s) { s.mode = StatusBarDisplayMode::fixed; }},
        Loaded{"display.mode", "Rotating", nothing}, Loaded{"display.mode", "sideBySide ", nothing},
        Loaded{"display.content", "changeOnly",
               [](auto& s) { s.content = StatusBarContent::changeOnly; }},
        Loaded{"display.content", "x", nothing},
        Loaded{"display.colorScheme", "greenUpRedDown",
               [](auto& s) { s.colorScheme = PriceColorScheme::greenUpRedDown; }},
        Loaded{"display.rotationInterval", "0.5", interval(1)},
        Loaded{"display.rotationInterval", "120", interval(60)},
        Loaded{"display.rotationInterval", "12.5", interval(12.5)},
        Loaded{"display.rotationInterval", "nan", interval(5)},
        Loaded{"display.rotationInterval", "inf", interval(5)},
        Loaded{"display.rotationInterval", "soon", interval(1)},
        Loaded{"display.sideBySideLimit", "0", limit(1)},
        Loaded{"display.sideBySideLimit", "9", limit(5)},
        Loaded{"display.sideBySideLimit", "2.9", limit(2)},
        Loaded{"display.sideBySideLimit", "many", limit(1)},
        Loaded{"display.sideBySideLimit", "99999999999999999999", limit(5)},
        Loaded{"display.chartPeriod", "week", [](auto& s) { s.chartPeriod = ChartPeriod::week; }},
        Loaded{"display.showsIcon", "0", [](auto& s) { s.showsIcon = false; }},
        Loaded{"display.showsIcon", "yes", nothing},
        Loaded{"display.showsDirectionArrow", "maybe",
               [](auto& s) { s.showsDirectionArrow = false; }}));

TEST_F(Settings, LoadsDefaultsAndWritesNothing) {
    const SettingsStore store(defaults_);
    EXPECT_EQ(store.display(), DisplaySettings());
    EXPECT_EQ(store.language(), AppLanguage::system);
    EXPECT_EQ(store.appearance(), AppearanceMode::system);
    EXPECT_FALSE(defaults_.hasObject(QStringLiteral("display.mode")));
    EXPECT_FALSE(defaults_.hasObject(QStringLiteral("interfaceLanguage")));
}

TEST_F(Settings, FollowsTheSystemWhereLanguageOrAppearanceIsUnknown) {
    const auto language = QStringLiteral("interfaceLanguage");
    const auto appearance = QStringLiteral("interfaceAppearance");
    for (const char* unknown : {"", "English", "dark ", "zh-Hans", "1"}) {
        defaults_.setString(language, QString::fromLatin1(unknown));
        defaults_.setString(appearance, QString::fromLatin1(unknown));
        const SettingsStore store(defaults_);
        EXPECT_EQ(store.language(), AppLanguage::system) << unknown;
        EXPECT_EQ(store.appearance(), AppearanceMode::system) << unknown;
    }
    // Each falls back on its own.
    defaults_.setString(language, QStringLiteral("english"));
    EXPECT_EQ(SettingsStore(defaults_).language(), AppLanguage::english);
    EXPECT_EQ(SettingsStore(defaults_).appearance(), AppearanceMode::system);
    defaults_.setString(language, QStringLiteral("light"));
    defaults_.setString(appearance, QStringLiteral("light"));
    EXPECT_EQ(SettingsStore(defaults_).language(), AppLanguage::system);
    EXPECT_EQ(SettingsStore(defaults_).appearance(), AppearanceMode::light);
}

TEST_F(Settings, WritesEveryAssignmentAndTellsOfChanges) {
    SettingsStore store(defaults_);
    QSignalSpy spy(&store, &SettingsStore::displayChanged);
    store.setDisplay(store.display());
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(defaults_.string(QStringLiteral("display.mode")), QStringLiteral("rotating"));
    const DisplaySettings changed(StatusBarDisplayMode::sideBySide, StatusBarContent::priceOnly,
                                  PriceColorScheme::greenUpRedDown, TimeInterval(7.5), 4,
                                  ChartPeriod::week, false, false);
    store.setDisplay(changed);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(SettingsStore(defaults_).display(), changed);
}

TEST_F(Settings, WritesThePreferredLanguagesForTheNextLaunch) {
    SettingsStore store(defaults_);
    const auto languages = QStringLiteral("AppleLanguages");
    store.setLanguage(AppLanguage::simplifiedChinese);
    EXPECT_EQ(defaults_.stringArray(languages), QStringList{QStringLiteral("zh-Hans")});
    EXPECT_EQ(SettingsStore(defaults_).language(), AppLanguage::simplifiedChinese);
    store.setLanguage(AppLanguage::system);
    EXPECT_FALSE(defaults_.hasObject(languages));
    store.setAppearance(AppearanceMode::dark);
    EXPECT_EQ(SettingsStore(defaults_).appearance(), AppearanceMode::dark);
}
