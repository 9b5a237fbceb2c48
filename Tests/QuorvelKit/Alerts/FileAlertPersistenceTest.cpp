// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/FileAlertPersistence.h"

#include "Tests/QuorvelKit/Alerts/AlertSamples.h"
#include "Tests/Support/FullDisk.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

using namespace quorvel;
using namespace test;
using platform::FileManager;
using platform::TimeInterval;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AlertFile : public testing::Test {
protected:
    QTemporaryDir directory_;
    FileManager files_{directory_.filePath(QStringLiteral("share")), directory_.path()};
    QString path_ = FileAlertPersistence::standardLocation(files_);
    FileAlertPersistence persistence_{path_};
};

} // namespace

TEST_F(AlertFile, HoldsTheRulesInOrderWithoutWhiteSpace) {
    EXPECT_THAT(persistence_.load(), IsEmpty());
    persistence_.save({repeatingBTC, onceETH});
    EXPECT_EQ(FileManager::contents(path_)->toStdString(),
              "[" + repeatingBTCText + "," + onceETHText + "]");
    EXPECT_THAT(persistence_.load(), ElementsAre(repeatingBTC, onceETH));
}

TEST_F(AlertFile, SkipsDamagedRulesAndKeepsTheRest) {
    const auto load = [this](const std::string& content) {
        FileManager::writeAtomically(QByteArray::fromStdString(content), path_);
        return persistence_.load();
    };
    std::string lowerCase = onceETHText;
    lowerCase.replace(lowerCase.find("ETH"), 3, "eth");
    EXPECT_THAT(load("[" + repeatingBTCText + "," + lowerCase + R"(,null,7,"x",{},[],)" +
                     onceETHText + "]"),
                ElementsAre(repeatingBTC, onceETH));
    for (const std::string& content :
         {std::string("{}"), std::string(), repeatingBTCText, "[" + repeatingBTCText + ","})
        EXPECT_THAT(load(content), IsEmpty()) << content;
}

TEST_F(AlertFile, IsLeftWholeByASaveThatFails) {
    persistence_.save({onceETH});
    AlertRule endless = repeatingBTC;
    endless.repeatMode.cooldown = TimeInterval(std::numeric_limits<double>::infinity());
    EXPECT_THROW(persistence_.save({endless}), std::invalid_argument);
    {
        const FullDisk full(100);
        EXPECT_THROW(persistence_.save({repeatingBTC}), platform::FileError);
    }
    EXPECT_THAT(persistence_.load(), ElementsAre(onceETH));
}
