// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/UserDefaults.h"

#include "Platform/Foundation/FileManager.h"
#include "Tests/Support/Cases.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

using platform::UserDefaults;

namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();

class UserDefaultsFile : public testing::Test {
protected:
    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("Sub/Test.conf"));
    QString key_ = QStringLiteral("display.mode");
};

TEST_F(UserDefaultsFile, ReadsATextAsEachTypeHoweverAPersonWroteIt) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    struct Conversion {
        const char* stored;
        double number;
        std::int64_t integer;
        bool boolean;
    };
    for (const auto& [stored, number, integer, boolean] :
         test::cases(Conversion{"2.9", 2.9, 2, true}, Conversion{"-2.9", -2.9, -2, true},
                     Conversion{"0.4", 0.4, 0, true}, Conversion{"\" 7 \"", 7, 7, true},
                     Conversion{"1e3", 1000, 1000, true}, Conversion{"-0.0", 0, 0, false},
                     Conversion{"9223372036854775807", 9223372036854775807.0, largest, true},
                     Conversion{"1e300", 1e300, largest, true},
                     Conversion{"-1e300", -1e300, -largest - 1, true},
                     Conversion{"inf", infinity, largest, true}, Conversion{"true", 0, 0, true},
                     Conversion{"YES", 0, 0, true}, Conversion{"no", 0, 0, false},
                     Conversion{"3 pairs", 0, 0, false}, Conversion{"", 0, 0, false},
                     Conversion{"1,5", 0, 0, false}, Conversion{"\"1,5\"", 0, 0, false})) {
        platform::FileManager::writeAtomically("[General]\nkey=" + QByteArray(stored) + "\n",
                                               path_);
        const UserDefaults defaults(path_);
        const QString key = QStringLiteral("key");
        EXPECT_TRUE(defaults.hasObject(key));
        EXPECT_EQ(defaults.doubleValue(key), number) << stored;
        EXPECT_EQ(defaults.integer(key), integer) << stored;
        EXPECT_EQ(defaults.boolean(key), boolean) << stored;
    }
}

TEST_F(UserDefaultsFile, HasNothingWhereThereIsNoFileOrGarbage) {
    EXPECT_FALSE(UserDefaults(path_).hasObject(key_));
    EXPECT_FALSE(UserDefaults(path_).string(key_));
    platform::FileManager::writeAtomically(QByteArrayLiteral("\x00\xff\xfe[[[===\n\n]"), path_);
    EXPECT_FALSE(UserDefaults(path_).hasObject(key_));
}

TEST_F(UserDefaultsFile, IsWrittenWhenAnAssignmentReturns) {
    UserDefaults defaults(path_);
    defaults.set({{key_, QStringLiteral("a, b; c = \"d\" 简体")},
                  {QStringLiteral("interval"), 0.1},
                  {QStringLiteral("limit"), largest},
                  {QStringLiteral("shown"), false},
                  {QStringLiteral("languages"), QStringList(QStringLiteral("zh-Hans"))},
                  {QStringLiteral("gone"), QStringLiteral("x")}});
    defaults.set(QStringLiteral("gone"), {});

    const UserDefaults other(path_);
    EXPECT_EQ(other.string(key_), QStringLiteral("a, b; c = \"d\" 简体"));
    EXPECT_EQ(other.doubleValue(QStringLiteral("interval")), 0.1);
    EXPECT_EQ(other.integer(QStringLiteral("limit")), largest);
    EXPECT_FALSE(other.boolean(QStringLiteral("shown")));
    EXPECT_TRUE(other.hasObject(QStringLiteral("shown")));
    EXPECT_EQ(other.stringArray(QStringLiteral("languages")),
              QStringList{QStringLiteral("zh-Hans")});
    EXPECT_FALSE(other.hasObject(QStringLiteral("gone")));
}

TEST_F(UserDefaultsFile, KeepsWhatAnotherProcessWroteMeanwhile) {
    UserDefaults first(path_);
    UserDefaults second(path_);
    first.set(QStringLiteral("a"), QStringLiteral("1"));
    second.set(QStringLiteral("b"), QStringLiteral("2"));
    first.set(QStringLiteral("c"), QStringLiteral("3"));
    const UserDefaults reader(path_);
    EXPECT_EQ(reader.string(QStringLiteral("a")), QStringLiteral("1"));
    EXPECT_EQ(reader.string(QStringLiteral("b")), QStringLiteral("2"));
    EXPECT_EQ(reader.string(QStringLiteral("c")), QStringLiteral("3"));
}

} // namespace
