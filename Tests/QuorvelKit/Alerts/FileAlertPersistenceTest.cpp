#include "QuorvelKit/Alerts/FileAlertPersistence.h"

#include "Tests/Support/FullDisk.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

using namespace quorvel;
using platform::Date;
using platform::FileManager;
using platform::TimeInterval;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QByteArray repeatingBTCText =
    R"({"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","symbol":{"base":"BTC","quote":"USDT"},)"
    R"("condition":{"priceRisesAbove":{"_0":70000}},)"
    R"("repeatMode":{"repeating":{"cooldown":900}},"isEnabled":true,)"
    R"("lastTriggeredAt":785000000.25})";
const QByteArray onceETHText =
    R"({"id":"9B1DEB4D-3B7D-4BAD-9BDD-2B0D7B3DCB6D","symbol":{"base":"ETH","quote":"USDT"},)"
    R"("condition":{"changeFallsBelow":{"_0":-5}},"repeatMode":{"once":{}},"isEnabled":true})";

const AlertRule repeatingBTC{QUuid(u"3f2504e0-4f89-41d3-9a0c-0305e82c3301"),
                             {"BTC", "USDT"},
                             {AlertConditionKind::priceRisesAbove, 70000},
                             AlertRule::RepeatMode::repeating(TimeInterval(900)),
                             true,
                             Date(TimeInterval(785000000.25))};
const AlertRule onceETH{QUuid(u"9b1deb4d-3b7d-4bad-9bdd-2b0d7b3dcb6d"),
                        {"ETH", "USDT"},
                        {AlertConditionKind::changeFallsBelow, -5},
                        AlertRule::RepeatMode::once(),
                        true,
                        std::nullopt};

class AlertFile : public testing::Test {
protected:
    QTemporaryDir directory_;
    FileManager files_{directory_.filePath(QStringLiteral("share")), directory_.path()};
    QString path_ = FileAlertPersistence::standardLocation(files_);
    FileAlertPersistence persistence_{path_};
};

} // namespace

TEST_F(AlertFile, HasItsPlaces) {
    EXPECT_EQ(path_, directory_.filePath(QStringLiteral("share/Quorvel/alerts.json")));
    EXPECT_EQ(FileAlertPersistence::temporaryLocation(files_),
              directory_.filePath(QStringLiteral("quorvel-alerts.json")));
    const FileManager nowhere(QStringLiteral("/dev/null/share"), directory_.path());
    EXPECT_THROW(FileAlertPersistence::standardLocation(nowhere), platform::FileError);
}

TEST_F(AlertFile, HoldsTheRulesInOrderWithoutWhiteSpace) {
    EXPECT_THAT(persistence_.load(), IsEmpty());
    persistence_.save({repeatingBTC, onceETH});
    EXPECT_EQ(FileManager::contents(path_), "[" + repeatingBTCText + "," + onceETHText + "]");
    EXPECT_THAT(persistence_.load(), ElementsAre(repeatingBTC, onceETH));
    persistence_.save({});
    EXPECT_EQ(FileManager::contents(path_), QByteArray("[]"));
    EXPECT_THAT(persistence_.load(), IsEmpty());
}

TEST_F(AlertFile, SkipsDamagedRulesAndKeepsTheRest) {
    QByteArray lowerCase = onceETHText;
    lowerCase.replace("ETH", "eth");
    FileManager::writeAtomically("[" + repeatingBTCText + "," + lowerCase +
                                     R"(,null,7,"x",{},[],)" + onceETHText + "]",
                                 path_);
    EXPECT_THAT(persistence_.load(), ElementsAre(repeatingBTC, onceETH));
    for (const QByteArray& content : {QByteArray("{}"), QByteArray("rubbish"), QByteArray(),
                                      repeatingBTCText, "[" + repeatingBTCText + ","}) {
        FileManager::writeAtomically(content, path_);
        EXPECT_THAT(persistence_.load(), IsEmpty()) << content.toStdString();
        EXPECT_EQ(FileManager::contents(path_), content) << "loading rewrote the file";
    }
}

TEST_F(AlertFile, IsLeftWholeByASaveThatFails) {
    persistence_.save({onceETH});
    AlertRule endless = repeatingBTC;
    endless.repeatMode.cooldown = TimeInterval(std::numeric_limits<double>::infinity());
    EXPECT_THROW(persistence_.save({endless}), std::invalid_argument);
    {
        const test::FullDisk full(100);
        EXPECT_THROW(persistence_.save({repeatingBTC}), platform::FileError);
    }
    EXPECT_THAT(persistence_.load(), ElementsAre(onceETH));
}
