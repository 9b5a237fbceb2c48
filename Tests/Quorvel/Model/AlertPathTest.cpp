// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Model/ModelFixture.h"

using namespace quorvel;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using test::btc;

namespace {

class AlertPath : public test::ModelFixture {
protected:
    void addRule(std::int64_t threshold, AlertRule::RepeatMode mode = AlertRule::RepeatMode::once(),
                 const Symbol& symbol = btc) {
        model_->alerts().add(
            {.id = QUuid::createUuid(),
             .symbol = symbol,
             .condition = {AlertConditionKind::priceRisesAbove, Decimal(threshold)},
             .repeatMode = mode,
             .isEnabled = true,
             .lastTriggeredAt = std::nullopt});
    }

    QByteArray stored(const QString& name) const {
        return platform::FileManager::contents(
                   directory_.filePath(QStringLiteral("share/Quorvel/") + name))
            .value_or(QByteArray());
    }
};

const Symbol doge{"DOGE", "USDT"};

} // namespace

TEST_F(AlertPath, TellsOnceOfEachRuleThatAQuoteCrosses) {
    make();
    addRule(100);
    addRule(100, AlertRule::RepeatMode::repeating(900s));
    addRule(101);
    start();
    for (const std::int64_t price : {99, 101, 102, 100, 101})
        push(price);
    EXPECT_THAT(delivering_->calls,
                ElementsAre("ask", "BTC Rises above 100.0000 | Now 101.0000  +1.00%",
                            "BTC Rises above 100.0000 | Now 101.0000  +1.00%",
                            "BTC Rises above 101.0000 | Now 102.0000  +1.00%"));
    clock_.advance(900s);
    delivering_->calls.clear();
    push(100);
    push(101);
    EXPECT_THAT(delivering_->calls, ElementsAre("BTC Rises above 100.0000 | Now 101.0000  +1.00%"));
    makeFromFiles();
    EXPECT_THAT(model_->alerts().rules(), testing::Each(testing::Field(&AlertRule::lastTriggeredAt,
                                                                       testing::Ne(std::nullopt))));
}

TEST_F(AlertPath, FiresFromASnapshotToo) {
    make();
    addRule(100);
    model_->handleQuote(quote(99));
    provider_->snapshotQuotes = {quote(101)};
    start();
    EXPECT_THAT(delivering_->calls,
                ElementsAre("ask", "BTC Rises above 100.0000 | Now 101.0000  +1.00%"));
}

TEST_F(AlertPath, FiresOnceForWhatHappenedWhileTheMachineSlept) {
    make();
    addRule(100);
    start();
    push(99);
    provider_->calls.clear();
    workspace_.notificationCenter().post(platform::Workspace::willSleepNotification);
    test::drainEvents();
    EXPECT_THAT(provider_->calls, ElementsAre("subscribe"));
    EXPECT_TRUE(model_->quotes().isStale());
    clock_.advance(1h);
    provider_->snapshotQuotes = {quote(101)};
    workspace_.notificationCenter().post(platform::Workspace::didWakeNotification);
    test::drainEvents();
    push(102);
    EXPECT_THAT(provider_->calls,
                ElementsAre("subscribe", "subscribe BTC ETH", "snapshot BTC ETH"));
    EXPECT_THAT(delivering_->calls,
                ElementsAre("ask", "BTC Rises above 100.0000 | Now 101.0000  +1.00%"));
    EXPECT_FALSE(model_->quotes().isStale());
    test::runTask(model_->stop());
    provider_->calls.clear();
    workspace_.notificationCenter().post(platform::Workspace::didWakeNotification);
    test::drainEvents();
    EXPECT_THAT(provider_->calls, IsEmpty());
}

TEST_F(AlertPath, StoresThatARuleFiredBeforeAnybodyIsTold) {
    make();
    addRule(100);
    model_->handleQuote(quote(99));
    model_->handleQuote(quote(101));
    EXPECT_THAT(stored(QStringLiteral("alerts.json")).toStdString(),
                testing::HasSubstr("lastTriggeredAt"));
    EXPECT_THAT(delivering_->calls, IsEmpty());
    test::drainEvents();
    EXPECT_EQ(delivering_->calls.size(), 2u);
}

TEST_F(AlertPath, FinishesDeliveriesBeforeItTearsAnythingDown) {
    make();
    addRule(100);
    addRule(101);
    start();
    test::runTask(model_->notifications().requestAuthorizationIfNeeded());
    delivering_->hold();
    push(99);
    push(102);
    test::Running stopping(model_->stop());
    clock_.advance(1s);
    EXPECT_EQ(provider_->calls.back(), "snapshot BTC ETH") << "the provider was stopped early";
    delivering_->release();
    stopping.result();
    EXPECT_EQ(delivering_->calls.size(), 3u) << "the second notification was lost";
    EXPECT_EQ(provider_->calls.back(), "stop");
}

TEST_F(AlertPath, StopsWithoutANotificationServiceThatDoesNotAnswer) {
    make();
    addRule(100);
    addRule(101);
    start();
    delivering_->hold();
    push(99);
    push(101);
    push(102);
    test::Running stopping(model_->stop());
    clock_.advance(1900ms);
    EXPECT_TRUE(stopping.isRunning());
    clock_.advance(100ms);
    stopping.result();
    EXPECT_EQ(provider_->calls.back(), "stop");
}

TEST_F(AlertPath, DropsTheRulesOfPairsThatAreNotWatchedAtStart) {
    make();
    addRule(100);
    addRule(1, AlertRule::RepeatMode::once(), doge);
    start();
    EXPECT_EQ(model_->alerts().rules(doge).size(), 0u);
    EXPECT_EQ(model_->alerts().rules(btc).size(), 1u);
    EXPECT_EQ(stored(QStringLiteral("alerts.json.damaged")), QByteArray());
}

TEST_F(AlertPath, TakesEverythingOfARemovedPairAway) {
    make();
    addRule(100);
    start();
    push(99);
    model_->removeSymbol(btc);
    test::drainEvents();
    EXPECT_EQ(model_->quotes().quote(btc), nullptr);
    EXPECT_THAT(model_->alerts().rules(), IsEmpty());
    EXPECT_EQ(text(), "ETH");
    EXPECT_EQ(provider_->calls.back(), "snapshot ETH");
}
