// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/InstalledTables.h"

#include <gtest/gtest.h>

namespace {

struct Choice {
    const char* name;
    QStringList preferred; ///< as Qt lists them for the session that `name` tells of
    const char* language;
};

class EachSession : public testing::TestWithParam<Choice> {};

TEST_P(EachSession, GetsTheTableOfItsLanguageAndScriptElseEnglish) {
    const QStringList available{QStringLiteral("de"), QStringLiteral("zh-Hans")};
    EXPECT_EQ(platform::InstalledTables::choice(available, GetParam().preferred),
              QString::fromLatin1(GetParam().language));
}

QStringList list(const char* identifiers) {
    return QString::fromLatin1(identifiers).split(u' ', Qt::SkipEmptyParts);
}

INSTANTIATE_TEST_SUITE_P(
    InstalledTables, EachSession,
    testing::Values(Choice{"NoLanguage", {}, "en"}, Choice{"C", list("C"), "en"},
                    Choice{"Simplified", list("zh-Hans"), "zh-Hans"},
                    Choice{"Chinese", list("zh zh-Hans-CN zh-CN"), "zh-Hans"},
                    Choice{"China", list("zh-CN zh-Hans-CN zh"), "zh-Hans"},
                    Choice{"Singapore", list("zh-SG zh-Hans-SG"), "zh-Hans"},
                    Choice{"SimplifiedInHongKong", list("zh-Hans-HK"), "zh-Hans"},
                    Choice{"Traditional", list("zh-Hant zh-Hant-TW zh-TW"), "en"},
                    Choice{"Taiwan", list("zh-TW zh-Hant-TW"), "en"},
                    Choice{"HongKong", list("zh-HK zh-Hant-HK"), "en"},
                    Choice{"TaiwanCutOff", list("zh-TW zh-Hant-TW zh zh-Hans-CN zh-CN en"), "en"},
                    Choice{"TaiwanThenChina", list("zh-TW zh-Hant-TW zh-CN zh-Hans-CN"), "zh-Hans"},
                    Choice{"EnglishFirst", list("en-GB en-Latn-GB zh-CN"), "en"},
                    Choice{"AnotherRegion", list("de-AT de-Latn-AT de zh-CN"), "de"},
                    Choice{"JapaneseThenChinese", list("ja-JP ja-Jpan-JP ja zh-CN"), "zh-Hans"},
                    Choice{"Unknown", list("xx-YY C"), "en"}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
