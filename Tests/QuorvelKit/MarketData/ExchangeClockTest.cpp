// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/ExchangeClock.h"

#include "QuorvelKit/MarketData/HTTPDate.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using platform::Date;
using platform::TimeInterval;

namespace {

/// An exchange whose time this machine does not know.
class OrderedQuotes : public testing::Test {
protected:
    Date exchangeTime() const { return Date(ahead_ + TimeInterval(machine_.bootTime())); }

    /// An event that is a tenth of a second on its way. The instant that it was given; absent where
    /// it was dropped.
    std::optional<Date> event(TimeInterval wrongBy = TimeInterval(0)) {
        machine_.advance(100ms);
        Quote quote{test::btc, test::decimal("1"), test::decimal("0"),
                    exchangeTime() - 100ms + wrongBy};
        return clock_.admit(quote) ? std::optional(quote.timestamp) : std::nullopt;
    }

    void answer() { clock_.learn(exchangeTime() - 500ms, 0s, machine_.bootTime()); }

    /// How far the clock is from the exchange's.
    double error() const { return std::abs((clock_.now() - exchangeTime()).count()); }

    test::ManualClock machine_;
    ExchangeClock clock_{machine_};
    TimeInterval ahead_{500'000'000.0};
};

TEST_F(OrderedQuotes, KnowTheTimeFromAnAnswerToTheSecondAndFromEventsBetter) {
    clock_.learn(exchangeTime() - 30s - 500ms, 30s, machine_.bootTime());
    EXPECT_LT(error(), 0.001) << "half a second is what a header leaves out, the age a cache's";
    ahead_ -= 400ms;
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(event());
    EXPECT_LT(error(), 0.2);
}

TEST_F(OrderedQuotes, AllCountUntilTheTimeIsKnownAndNoneFallsBehind) {
    auto latest = event(8h); // poisoned, which nobody can know
    ASSERT_TRUE(latest);
    EXPECT_LT(*latest, exchangeTime()) << "or the true ones were older";
    for (int i = 0; i < 10; ++i) {
        const auto next = event();
        ASSERT_TRUE(next);
        EXPECT_GE(*next, *latest);
        latest = next;
    }
    EXPECT_LT(error(), 0.2) << "from events alone, one of them wrong";
}

TEST_F(OrderedQuotes, FromTheFutureAreDroppedUnlessTheyGoOn) {
    answer();
    EXPECT_EQ(event(), exchangeTime() - 100ms) << "its own instant";
    EXPECT_TRUE(event(59s));
    for (int pair = 0; pair < 20; ++pair) {
        EXPECT_FALSE(event(61s)) << "one wrong among many";
        EXPECT_TRUE(event());
    }
    for (int i = 0; i < 4; ++i)
        EXPECT_FALSE(event(90s));
    EXPECT_TRUE(event(90s)) << "it was the clock that was wrong";
    EXPECT_TRUE(event(90s));
}

TEST_F(OrderedQuotes, GoOnAfterHoursOfSleep) {
    answer();
    machine_.suspend(8h);
    EXPECT_LT(error(), 0.001);
    EXPECT_TRUE(event());
    EXPECT_FALSE(event(61s)) << "still known";
}

TEST_F(OrderedQuotes, GoOnWhenTheMachinesClockIsSet) {
    for (const auto step : {-8h, +16h}) {
        answer();
        machine_.setNow(machine_.now() + step);
        EXPECT_TRUE(event(90s)) << "what was known may be as wrong as the clock was";
        const auto before = event();
        ASSERT_TRUE(before);
        for (int i = 0; i < 10; ++i) {
            const auto next = event();
            ASSERT_TRUE(next);
            EXPECT_GE(*next, *before);
        }
        EXPECT_LT(error(), 0.2);
    }
}

TEST_F(OrderedQuotes, AreNotOlderThanASnapshotThatWasSeen) {
    clock_.note(exchangeTime() + 5s);
    EXPECT_EQ(event(), exchangeTime() + 5s - 100ms);
}

TEST(HTTPDate, IsReadInTheOneFormThatServersSend) {
    EXPECT_EQ(dateOfHeader("Thu, 01 Jan 1970 00:00:10 GMT"),
              platform::dateSince1970(TimeInterval(10)));
    EXPECT_EQ(dateOfHeader("Mon, 23 Nov 2026 14:31:07 GMT"),
              platform::dateSince1970(TimeInterval(1'795'444'267)));
    for (const char* other : {"", "0", "Mon, 23 Nov 2026 14:31:07 +0100", "yesterday"})
        EXPECT_FALSE(dateOfHeader(other)) << other;
}

} // namespace
