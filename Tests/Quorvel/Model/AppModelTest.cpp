// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Model/ModelFixture.h"

#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using testing::ElementsAre;

using test::btc;
using Model = test::ModelFixture;

TEST_F(Model, SubscribesOnceTheListOfPairsIsThere) {
    make();
    start(false);
    EXPECT_THAT(provider_->calls, ElementsAre("pairs", "quotes"));
    provider_->pairs.addResult(std::vector{btc});
    provider_->pairs.finish();
    test::drainEvents();
    EXPECT_THAT(provider_->calls,
                ElementsAre("pairs", "quotes", "subscribe BTC ETH", "snapshot BTC ETH"));
    EXPECT_THAT(model_->availableSymbols(), ElementsAre(btc));
    EXPECT_EQ(model_->loadError(), std::nullopt);
    test::runTask(model_->start());
    EXPECT_EQ(provider_->calls.size(), 4u) << "started twice";
}

TEST_F(Model, SubscribesAndSaysSoWhenTheListCannotBeLoaded) {
    make();
    provider_->snapshotQuotes.reset();
    start(false);
    provider_->pairs.setException(std::make_exception_ptr(std::runtime_error("offline")));
    provider_->pairs.finish();
    test::drainEvents();
    EXPECT_EQ(model_->loadError(),
              QStringLiteral("Couldn't load coin list — search is unavailable"));
    EXPECT_EQ(provider_->calls.back(), "snapshot BTC ETH");
    push(5);
    EXPECT_NE(model_->quotes().quote(btc), nullptr) << "the stream goes on without a snapshot";
}

TEST_F(Model, ShowsQuotesOfSnapshotAndStreamWithinASecondAndTellsOnlyOfChanges) {
    make();
    provider_->snapshotQuotes = {quote(7)};
    start();
    QSignalSpy spy(model_.get(), &AppModel::statusBarSegmentsChanged);
    clock_.advance(1s);
    EXPECT_EQ(text(), "BTC 7.0000 +1.00%");
    clock_.advance(2s);
    EXPECT_EQ(spy.count(), 1);
    push(8);
    clock_.advance(500ms);
    push(9);
    clock_.advance(500ms);
    EXPECT_EQ(text(), "BTC 9.0000 +1.00%");
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(Model, RotatesByTimeAndBeginsAnewWithNewSettings) {
    make();
    start();
    EXPECT_EQ(text(), "BTC");
    clock_.advance(5s);
    EXPECT_EQ(text(), "ETH");
    DisplaySettings display;
    display.setRotationInterval(platform::TimeInterval(2));
    settings_.setDisplay(display);
    clock_.advance(1s);
    EXPECT_EQ(text(), "BTC");
    clock_.advance(2s);
    EXPECT_EQ(text(), "ETH");
    clock_.setNow(clock_.now() - 1h);
    clock_.advance(1s);
    EXPECT_EQ(text(), "BTC");
    clock_.advance(2s);
    EXPECT_EQ(text(), "ETH") << "a clock set back stopped the rotation";
}

TEST_F(Model, MarksQuotesStaleAfterFifteenSecondsOfSilence) {
    make();
    start();
    clock_.advance(1h);
    EXPECT_FALSE(model_->quotes().isStale()) << "there is no quote yet";
    push(1); // a pass of the watchdog is 0, 5, 10, 15, 20 seconds away
    clock_.advance(15s);
    EXPECT_FALSE(model_->quotes().isStale()) << "15 seconds are not more than 15";
    clock_.advance(4s);
    push(2); // 1, 6, 11, 16 seconds away
    clock_.advance(15s);
    EXPECT_FALSE(model_->quotes().isStale());
    clock_.advance(1s);
    EXPECT_TRUE(model_->quotes().isStale()) << "16 seconds are";
    push(3);
    EXPECT_FALSE(model_->quotes().isStale());
}

TEST_F(Model, TakesTheLongerSilenceWhereTheClockWasSet) {
    struct Case {
        std::chrono::seconds setBy;
        std::chrono::seconds silence;
        bool isStale;
    };
    for (const auto& [setBy, silence, isStale] :
         {Case{-1h, 15s, false}, Case{-1h, 16s, true}, Case{10s, 5s, false}, Case{10s, 6s, true}}) {
        make();
        start();
        clock_.advance(20s - silence);
        push(1);
        clock_.setNow(clock_.now() + setBy);
        clock_.advance(silence);
        EXPECT_EQ(model_->quotes().isStale(), isStale) << setBy.count() << " " << silence.count();
    }
}

TEST_F(Model, MarksNothingStaleWithoutPairs) {
    make("[]");
    start();
    push(1);
    clock_.advance(1h);
    EXPECT_FALSE(model_->quotes().isStale());
    EXPECT_THAT(provider_->calls, ElementsAre("pairs", "quotes", "subscribe"));
    EXPECT_TRUE(model_->statusBarSegments().empty());
}

TEST_F(Model, FollowsAChangedWatchlistAtOnceAndBeginsTheRotationAnew) {
    make();
    start();
    clock_.advance(5s);
    EXPECT_EQ(text(), "ETH");
    model_->setSearchQuery(QStringLiteral("sol"));
    model_->addSymbol({"SOL", "USDT"});
    EXPECT_EQ(text(), "BTC");
    EXPECT_EQ(model_->searchQuery(), QString());
    test::drainEvents();
    EXPECT_THAT(provider_->calls,
                testing::IsSupersetOf({"subscribe BTC ETH SOL", "snapshot BTC ETH SOL"}));
    clock_.advance(5s);
    model_->togglePinned({"SOL", "USDT"});
    EXPECT_EQ(text(), "SOL");
}

TEST_F(Model, StopsEverythingItStartedAndMayStartAgain) {
    make();
    start();
    test::runTask(model_->stop());
    EXPECT_EQ(provider_->calls.back(), "stop");
    EXPECT_EQ(clock_.timerCount(), 0u);
    EXPECT_FALSE(provider_->push(quote(1)));
    provider_->calls.clear();
    startTask_ = platform::startTask(model_->start());
    test::drainEvents();
    EXPECT_EQ(clock_.timerCount(), 2u);
    EXPECT_THAT(provider_->calls, testing::Contains("quotes"));
}

TEST_F(Model, BeginsNothingMoreWhenItIsStoppedDuringStartUp) {
    for (const bool hasPairs : {false, true}) {
        make();
        provider_->snapshotQuotes = {quote(7)};
        provider_->heldSnapshot.emplace().start();
        start(hasPairs);
        const std::string_view underWay = hasPairs ? "snapshot BTC ETH" : "pairs";
        EXPECT_THAT(provider_->calls, testing::Contains(underWay));
        test::runTask(model_->stop());
        if (!hasPairs)
            provider_->pairs.addResult(std::vector{btc});
        provider_->pairs.finish();
        provider_->heldSnapshot->finish();
        test::drainEvents();
        EXPECT_EQ(provider_->calls.back(), "stop") << "while waiting for " << underWay;
        EXPECT_EQ(model_->availableSymbols().empty(), !hasPairs);
        EXPECT_EQ(model_->quotes().quote(btc), nullptr);
        EXPECT_FALSE(startTask_.isRunning());
        EXPECT_EQ(clock_.timerCount(), 0u);
    }
}

TEST_F(Model, KeepsTheWatchlistInTheTemporaryDirectoryWhereItsPlaceCannotBeHad) {
    const QString folder = directory_.filePath(QStringLiteral("share/Quorvel"));
    const QString stored = directory_.filePath(QStringLiteral("tmp/quorvel-watchlist.json"));
    for (const QString& blocked : {QFileInfo(folder).path(), folder}) {
        platform::FileManager::writeAtomically("in the way", blocked);
        makeFromFiles();
        EXPECT_TRUE(model_->watchlist().items().empty());
        model_->watchlist().add(btc);
        EXPECT_EQ(model_->watchlist().lastPersistError(), std::nullopt);
        makeFromFiles();
        EXPECT_THAT(model_->watchlist().symbols(), ElementsAre(btc));
        EXPECT_TRUE(QFile::remove(stored));
        EXPECT_TRUE(QFile::remove(blocked));
    }
}
