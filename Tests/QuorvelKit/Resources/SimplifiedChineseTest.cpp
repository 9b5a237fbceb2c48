// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/InstalledTables.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/Alerts/AlertRule.h"
#include "QuorvelKit/Stores/AppearanceMode.h"

#include <gtest/gtest.h>

using namespace quorvel;
using platform::localized;

namespace {

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

TEST(SimplifiedChinese, LeavesNumbersAsTheyAre) {
    const platform::InstalledTables tables({QStringLiteral("zh-Hans")});
    const auto description = [](AlertConditionKind kind, int threshold) {
        return AlertRule::Condition{kind, threshold}.description();
    };
    EXPECT_EQ(description(AlertConditionKind::priceRisesAbove, 70000),
              QStringLiteral("涨破 70,000.00"));
    EXPECT_EQ(description(AlertConditionKind::changeFallsBelow, -5),
              QStringLiteral("跌幅超过 -5.00%"));
}

} // namespace
