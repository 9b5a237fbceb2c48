// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Platform/StatusBar/StatusItemFixture.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using StatusItemTiming = StatusItemFixture;

TEST_F(StatusItemTiming, RoutineTitlesGoOutOncePerSecondAndOnlyTheLatest) {
    showItem();
    item_->setTitle(title(QStringLiteral("BTC 2.00")));
    clock_.advance(400ms);
    item_->setTitle(title(QStringLiteral("BTC 3.00")));
    clock_.advance(599ms);
    EXPECT_THAT(takeSignals(), IsEmpty());
    clock_.advance(1ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(BTC 3.00, BTC 8.88)"));

    clock_.advance(1s);
    item_->setTitle(title(QStringLiteral("BTC 4.00")));
    item_->setToolTip(QStringLiteral("BTC 4.00"));
    clock_.advance(0ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(BTC 4.00, BTC 8.88)", "NewToolTip()"))
        << "after a quiet second";

    // A steady flow of prices never makes two in a second.
    std::size_t labelCount = 0;
    for (int step = 0; step < 50; ++step) {
        item_->setTitle(title(QStringLiteral("BTC %1.50").arg(step)));
        clock_.advance(100ms);
        labelCount += takeSignals().size();
    }
    EXPECT_EQ(labelCount, 5U);
}

TEST_F(StatusItemTiming, AnImmediateTitleGoesOutAtOnceAndTheNextRoutineOneWaitsForIt) {
    showItem();
    clock_.advance(300ms);
    item_->setTitle(title(QStringLiteral("ETH 1.00")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(ETH 1.00, ETH 8.88)"));
    item_->setTitle(title(QStringLiteral("ETH 2.00")));
    clock_.advance(999ms);
    EXPECT_THAT(takeSignals(), IsEmpty());
    clock_.advance(1ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(ETH 2.00, ETH 8.88)"));
}

TEST_F(StatusItemTiming, AWaitingTitleGoesOutAtOnceWhenTheUserAsksForTheSame) {
    showItem();
    item_->setTitle(title(QStringLiteral("ETH 1.00")));
    item_->setTitle(title(QStringLiteral("ETH 1.00")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_THAT(takeSignals(), ElementsAre("XAyatanaNewLabel(ETH 1.00, ETH 8.88)"));
}

TEST_F(StatusItemTiming, NothingIsSentWhenNothingChangedInTheEnd) {
    showItem();
    const auto timers = clock_.timerCount();
    item_->setImage(image(Qt::red));
    item_->setToolTip(QStringLiteral("BTC 1.00"), Urgency::immediate);
    item_->setTitle(title(QStringLiteral("BTC 1.00")), Urgency::immediate);
    EXPECT_EQ(clock_.timerCount(), timers);
    item_->setTitle(title(QStringLiteral("BTC 2.00")));
    item_->setTitle(title(QStringLiteral("BTC 1.00")));
    clock_.advance(2s);
    EXPECT_THAT(takeSignals(), IsEmpty());
}

TEST_F(StatusItemTiming, OnlyWhatChangedIsTold) {
    showItem();
    const auto signalsAfter = [this](const auto& change) {
        change();
        clock_.advance(1s);
        return takeSignals();
    };
    EXPECT_THAT(signalsAfter([this] { item_->setImage(image(Qt::blue)); }),
                ElementsAre("NewIcon()"));
    EXPECT_THAT(signalsAfter([this] { item_->setImage(image(Qt::blue, false)); }),
                ElementsAre("NewIcon()"));
    EXPECT_THAT(signalsAfter([this] { item_->setToolTip(QStringLiteral("Quorvel")); }),
                ElementsAre("NewToolTip()"));
    // Hosts draw a label in one colour and size, so to them nothing changed.
    const AttributedTitle coloured{{{QStringLiteral("BTC "), std::nullopt, 0},
                                    {QStringLiteral("1.00"), DynamicColor{Qt::red, Qt::blue}, -2}}};
    EXPECT_THAT(signalsAfter([&] { item_->setTitle(coloured); }), IsEmpty());
    EXPECT_THAT(signalsAfter([this] { item_->setTitle({}); }), ElementsAre("XAyatanaNewLabel(, )"));
}

} // namespace
