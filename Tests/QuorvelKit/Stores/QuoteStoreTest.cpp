// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/QuoteStore.h"

#include "Tests/Support/ManualClock.h"
#include "Tests/Support/MarketSamples.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using test::btc;

namespace {

Quote quoteAt(double seconds, std::int64_t price) {
    return {btc, Decimal(price), Decimal(1), platform::Date(platform::TimeInterval(seconds))};
}

class Quotes : public testing::Test {
protected:
    test::ManualClock clock_;
    QuoteStore store_{clock_};
    QSignalSpy quotesSpy_{&store_, &QuoteStore::quotesChanged};
    QSignalSpy staleSpy_{&store_, &QuoteStore::isStaleChanged};
    QSignalSpy updateSpy_{&store_, &QuoteStore::lastUpdateAtChanged};
};

} // namespace

TEST_F(Quotes, IgnoresAnOlderQuoteAndTakesOneOfTheSameInstant) {
    store_.apply(quoteAt(5, 100));
    const auto updatedAt = store_.lastUpdateAt();
    EXPECT_EQ(updatedAt, clock_.now());
    clock_.advance(1s);
    store_.markStale(true);
    store_.apply(quoteAt(3, 90));
    EXPECT_EQ(store_.quote(btc)->lastPrice, Decimal(100));
    EXPECT_EQ(store_.lastUpdateAt(), updatedAt);
    EXPECT_TRUE(store_.isStale()) << "a rejected quote is no sign of life";
    EXPECT_EQ(quotesSpy_.count(), 1);
    store_.apply(quoteAt(5, 110));
    EXPECT_EQ(store_.quote(btc)->lastPrice, Decimal(110));
    EXPECT_EQ(store_.lastUpdateAt(), clock_.now());
    EXPECT_FALSE(store_.isStale());
}

TEST_F(Quotes, GivesWhatAQuoteReplaced) {
    EXPECT_EQ(store_.applyReturningPrevious(quoteAt(5, 100)), std::nullopt);
    EXPECT_EQ(store_.applyReturningPrevious(quoteAt(6, 101)), quoteAt(5, 100));
    EXPECT_EQ(store_.applyReturningPrevious(quoteAt(6, 101)), std::nullopt) << "the same again";
    EXPECT_EQ(store_.applyReturningPrevious(quoteAt(2, 90)), std::nullopt) << "rejected";
    EXPECT_EQ(store_.applyReturningPrevious(quoteAt(7, 101)), quoteAt(6, 101)) << "a later instant";
}

TEST_F(Quotes, TellsOfEachPropertyOnlyWhenItChanges) {
    store_.applySnapshot({});
    EXPECT_EQ(quotesSpy_.count() + updateSpy_.count() + staleSpy_.count(), 0);
    store_.applySnapshot({quoteAt(1, 1), quoteAt(2, 2)});
    EXPECT_EQ(quotesSpy_.count(), 2);
    EXPECT_EQ(updateSpy_.count(), 1) << "the clock stood still";
    store_.markStale(false);
    store_.markStale(true);
    store_.markStale(true);
    EXPECT_EQ(staleSpy_.count(), 1);
    store_.remove(btc);
    EXPECT_EQ(store_.quote(btc), nullptr);
    EXPECT_TRUE(store_.isStale());
    EXPECT_EQ(quotesSpy_.count(), 3);
}
