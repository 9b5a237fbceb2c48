// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/InstalledTables.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/Alerts/AlertStore.h"
#include "QuorvelKit/Stores/AppearanceMode.h"

#include <gtest/gtest.h>

using namespace quorvel;
using platform::localized;

namespace {

class FullDisk final : public AlertPersistence {
    std::vector<AlertRule> load() override { return {}; }
    void save(const std::vector<AlertRule>&) override {
        throw platform::FileError(QStringLiteral("%1 of 42 MB free"));
    }
};

QString description(AlertConditionKind kind, const char* threshold) {
    const AlertRule::Condition condition{kind, *Decimal::fromAPIString(threshold)};
    return condition.description();
}

TEST(SimplifiedChinese, IsInForceFromInstallingToRemoving) {
    {
        const platform::InstalledTables tables({QStringLiteral("zh-Hans")});
        EXPECT_EQ(tables.language(), QStringLiteral("zh-Hans"));
        EXPECT_EQ(label(AppearanceMode::dark), QStringLiteral("深色"));
        EXPECT_EQ(localized("Platform", "The request timed out."), QStringLiteral("请求超时。"));
        EXPECT_EQ(localized("QuorvelKit", "Nobody translated %1"),
                  QStringLiteral("Nobody translated %1"));
    }
    EXPECT_EQ(label(AppearanceMode::dark), QStringLiteral("Dark"));
}

TEST(SimplifiedChinese, IsNotInForceWhereEnglishIsPreferred) {
    const platform::InstalledTables tables({QStringLiteral("en"), QStringLiteral("zh-Hans")});
    EXPECT_EQ(tables.language(), QStringLiteral("en"));
    EXPECT_EQ(label(AppearanceMode::dark), QStringLiteral("Dark"));
}

TEST(SimplifiedChinese, LeavesNumbersAndErrorsOfTheSystemAsTheyAre) {
    const platform::InstalledTables tables({QStringLiteral("zh-Hans")});
    EXPECT_EQ(description(AlertConditionKind::priceRisesAbove, "70000"),
              QStringLiteral("涨破 70,000.00"));
    EXPECT_EQ(description(AlertConditionKind::changeFallsBelow, "-5"),
              QStringLiteral("跌幅超过 -5.00%"));
    AlertStore store(std::make_unique<FullDisk>());
    store.add({QUuid::createUuid(), Symbol{"BTC", "USDT"},
               AlertRule::Condition{AlertConditionKind::priceRisesAbove, 1},
               AlertRule::RepeatMode::once(), true, std::nullopt});
    EXPECT_EQ(store.lastPersistError(), QStringLiteral("无法保存提醒：%1 of 42 MB free"));
}

} // namespace
