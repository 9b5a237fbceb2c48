// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/NotificationCoordinator.h"

#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/ScriptedDelivering.h"

#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using testing::ElementsAre;

namespace {

const auto decimal = [](const char* text) { return Decimal::fromAPIString(text).value(); };

class Coordinator : public testing::Test {
protected:
    /// Tells of a rule on BTC above 70,000 with the price 70,012.35, up 2.412 %.
    platform::Task<> notifyOfBitcoin() {
        return notify("BTC", AlertConditionKind::priceRisesAbove, "70000", "70012.35", "2.412");
    }

    platform::Task<> notify(const char* base, AlertConditionKind kind, const char* threshold,
                            const char* price, const char* change) {
        const Symbol symbol{base, "USDT"};
        return coordinator_.notify({.id = QUuid::createUuid(),
                                    .symbol = symbol,
                                    .condition = {kind, decimal(threshold)},
                                    .repeatMode = AlertRule::RepeatMode::once(),
                                    .isEnabled = true,
                                    .lastTriggeredAt = std::nullopt},
                                   {symbol, decimal(price), decimal(change), {}});
    }

    test::ScriptedDelivering* delivering_ = new test::ScriptedDelivering;
    NotificationCoordinator coordinator_{std::unique_ptr<NotificationDelivering>(delivering_)};
};

const std::string bitcoin = "BTC Rises above 70,000.00 | Now 70,012.35  +2.41%";

} // namespace

TEST_F(Coordinator, AsksOncePerRunAndWordsEachNotification) {
    test::runTask(notifyOfBitcoin());
    test::runTask(notify("ETH", AlertConditionKind::changeFallsBelow, "-5", "0.5", "-5.125"));
    test::runTask(coordinator_.requestAuthorizationIfNeeded());
    EXPECT_THAT(delivering_->calls,
                ElementsAre("ask", bitcoin, "ETH Loss exceeds -5.00% | Now 0.5  -5.13%"));
    EXPECT_TRUE(coordinator_.isAuthorized());
}

TEST_F(Coordinator, NamesThePairAsItIsToldApartFromOthersInSight) {
    const Symbol inEuros{"BTC", "EUR"};
    const AlertRule rule{.id = QUuid::createUuid(),
                         .symbol = inEuros,
                         .condition = {AlertConditionKind::priceRisesAbove, 60000},
                         .repeatMode = AlertRule::RepeatMode::once(),
                         .isEnabled = true,
                         .lastTriggeredAt = std::nullopt};
    test::runTask(coordinator_.notify(rule, {inEuros, 60001, 0, {}}, {{"BTC", "USDT"}, inEuros}));
    EXPECT_THAT(delivering_->calls,
                ElementsAre("ask", "BTCEUR Rises above 60,000.00 | Now 60,001.00  0.00%"));
}

TEST_F(Coordinator, DropsWhatComesWhileThePermissionIsBeingAskedFor) {
    delivering_->hold();
    test::Running first(notifyOfBitcoin());
    test::drainEvents();
    EXPECT_TRUE(coordinator_.hasRequestedAuthorization());
    test::runTask(notify("ETH", AlertConditionKind::priceRisesAbove, "1", "2", "0"));
    test::runTask(coordinator_.requestAuthorizationIfNeeded());
    delivering_->release();
    first.result();
    EXPECT_THAT(delivering_->calls, ElementsAre("ask", bitcoin));
}

TEST_F(Coordinator, StaysSilentForTheWholeRunOnceRefused) {
    delivering_->grants = false;
    test::runTask(notifyOfBitcoin());
    delivering_->grants = true;
    test::runTask(notifyOfBitcoin());
    EXPECT_THAT(delivering_->calls, ElementsAre("ask"));
    EXPECT_TRUE(coordinator_.hasRequestedAuthorization());
    EXPECT_FALSE(coordinator_.isAuthorized());
    EXPECT_EQ(coordinator_.lastDeliveryError(), std::nullopt);
}

TEST_F(Coordinator, TellsOfAFailedDeliveryUntilOneSucceeds) {
    QSignalSpy spy(&coordinator_, &NotificationCoordinator::lastDeliveryErrorChanged);
    delivering_->failure = QStringLiteral("The service said 100 %1.");
    test::runTask(notifyOfBitcoin());
    test::runTask(notifyOfBitcoin());
    EXPECT_EQ(coordinator_.lastDeliveryError(),
              QStringLiteral("Couldn't deliver notification: The service said 100 %1."));
    EXPECT_EQ(spy.count(), 1);
    delivering_->failure.reset();
    test::runTask(notifyOfBitcoin());
    EXPECT_EQ(coordinator_.lastDeliveryError(), std::nullopt);
    EXPECT_EQ(delivering_->calls.size(), 4u) << "something was tried again";
}
