// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/SettingsStore.h"

#include "Platform/Foundation/FileManager.h"
#include "Tests/Support/Cases.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace quorvel;
using platform::TimeInterval;

namespace {

class Settings : public testing::Test {
protected:
    /// The values in the file, sorted; what is only in memory is not there.
    QByteArray onDisk() const {
        QByteArrayList lines = platform::FileManager::contents(path_).value_or("").split('\n');
        lines.removeIf([](const QByteArray& line) { return !line.contains('='); });
        std::ranges::sort(lines);
        return lines.join(' ');
    }

    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("Quorvel.conf"));
    platform::UserDefaults defaults_{path_};
};

auto interval(double seconds) {
    return [seconds](DisplaySettings& s) { s.setRotationInterval(TimeInterval(seconds)); };
}

auto limit(int count) {
    return [count](DisplaySettings& s) { s.setSideBySideLimit(count); };
}

void nothing(DisplaySettings&) {}

TEST_F(Settings, FallBackKeyByKey) {
    struct Loaded {
        const char* key;
        const char* stored;
        std::function<void(DisplaySettings&)> change; ///< what differs from the defaults
    };
    for (const auto& [key, stored, change] : test::cases(
             Loaded{"mode", "fixed", [](auto& s) { s.mode = StatusBarDisplayMode::fixed; }},
             Loaded{"mode", "Rotating", nothing}, Loaded{"mode", "sideBySide ", nothing},
             Loaded{"content", "changeOnly",
                    [](auto& s) { s.content = StatusBarContent::changeOnly; }},
             Loaded{"content", "x", nothing},
             Loaded{"colorScheme", "greenUpRedDown",
                    [](auto& s) { s.colorScheme = PriceColorScheme::greenUpRedDown; }},
             Loaded{"rotationInterval", "0.5", interval(1)},
             Loaded{"rotationInterval", "12.5", interval(12.5)},
             Loaded{"rotationInterval", "inf", interval(5)},
             Loaded{"rotationInterval", "soon", interval(1)},
             Loaded{"sideBySideLimit", "9", limit(5)}, Loaded{"sideBySideLimit", "2.9", limit(2)},
             Loaded{"sideBySideLimit", "many", limit(1)},
             Loaded{"chartPeriod", "week", [](auto& s) { s.chartPeriod = ChartPeriod::week; }},
             Loaded{"chartPeriod", "Week", nothing},
             Loaded{"showsIcon", "0", [](auto& s) { s.showsIcon = false; }},
             Loaded{"showsIcon", "yes", nothing},
             Loaded{"showsDirectionArrow", "maybe",
                    [](auto& s) { s.showsDirectionArrow = false; }})) {
        const QString fullKey = QStringLiteral("display.") + QString::fromLatin1(key);
        defaults_.set(fullKey, QString::fromLatin1(stored));
        DisplaySettings expected;
        change(expected);
        EXPECT_EQ(SettingsStore(defaults_).display(), expected) << key << "=" << stored;
        defaults_.set(fullKey, {});
    }
}

TEST_F(Settings, FollowTheSystemWhereLanguageOrAppearanceIsUnknown) {
    struct Stored {
        const char* language;
        const char* appearance;
        AppLanguage expectedLanguage;
        AppearanceMode expectedAppearance;
    };
    for (const auto& [language, appearance, expectedLanguage, expectedAppearance] :
         {Stored{"", "", AppLanguage::system, AppearanceMode::system},
          Stored{"English", "dark ", AppLanguage::system, AppearanceMode::system},
          Stored{"zh-Hans", "1", AppLanguage::system, AppearanceMode::system},
          Stored{"english", "Light", AppLanguage::english, AppearanceMode::system},
          Stored{"light", "light", AppLanguage::system, AppearanceMode::light}}) {
        defaults_.set(QStringLiteral("interfaceLanguage"), QString::fromLatin1(language));
        defaults_.set(QStringLiteral("interfaceAppearance"), QString::fromLatin1(appearance));
        const SettingsStore store(defaults_);
        EXPECT_EQ(store.language(), expectedLanguage) << language;
        EXPECT_EQ(store.appearance(), expectedAppearance) << appearance;
    }
}

TEST_F(Settings, LoadDefaultsAndWriteNothing) {
    const SettingsStore store(defaults_);
    EXPECT_EQ(store.display(), DisplaySettings());
    EXPECT_EQ(store.language(), AppLanguage::system);
    EXPECT_EQ(store.appearance(), AppearanceMode::system);
    EXPECT_FALSE(defaults_.hasObject(QStringLiteral("display.mode")));
    EXPECT_FALSE(defaults_.hasObject(QStringLiteral("interfaceLanguage")));
}

TEST_F(Settings, WriteEveryAssignmentAndTellOfChanges) {
    SettingsStore store(defaults_);
    QSignalSpy spy(&store, &SettingsStore::displayChanged);
    store.setDisplay(store.display());
    EXPECT_EQ(spy.count(), 0);
    EXPECT_EQ(onDisk(), "display.chartPeriod=day display.colorScheme=redUpGreenDown "
                        "display.content=both display.mode=rotating display.rotationInterval=5 "
                        "display.showsDirectionArrow=true display.showsIcon=true "
                        "display.sideBySideLimit=3");
    const DisplaySettings changed(StatusBarDisplayMode::sideBySide, StatusBarContent::priceOnly,
                                  PriceColorScheme::greenUpRedDown, TimeInterval(7.5), 4,
                                  ChartPeriod::week, false, false);
    store.setDisplay(changed);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(SettingsStore(defaults_).display(), changed);
}

TEST_F(Settings, WriteThePreferredLanguagesForTheNextLaunch) {
    SettingsStore store(defaults_);
    const auto languages = QStringLiteral("AppleLanguages");
    store.setLanguage(AppLanguage::english);
    EXPECT_EQ(defaults_.stringArray(languages), QStringList{QStringLiteral("en")});
    store.setLanguage(AppLanguage::simplifiedChinese);
    EXPECT_EQ(defaults_.stringArray(languages), QStringList{QStringLiteral("zh-Hans")});
    EXPECT_EQ(SettingsStore(defaults_).language(), AppLanguage::simplifiedChinese);
    store.setLanguage(AppLanguage::system);
    EXPECT_FALSE(defaults_.hasObject(languages));
    store.setAppearance(AppearanceMode::dark);
    EXPECT_EQ(SettingsStore(defaults_).appearance(), AppearanceMode::dark);
}

} // namespace
