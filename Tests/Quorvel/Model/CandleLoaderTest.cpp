// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/CandleLoader.h"

#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/ScriptedProvider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Symbol pair(const char* base) {
    return {base, "USDT"};
}

class Loader : public testing::Test {
protected:
    std::vector<std::string> takeCalls() {
        test::drainEvents();
        return std::exchange(provider_.calls, {});
    }

    void answer(const char* base) {
        auto& request = provider_.candleRequests.at(base);
        request.addResult(std::vector{Candle{clock_.now(), Decimal(7)}});
        request.finish();
    }

    void fail(const char* base) {
        auto& request = provider_.candleRequests.at(base);
        request.setException(std::make_exception_ptr(std::runtime_error("offline")));
        request.finish();
    }

    test::ManualClock clock_;
    test::ScriptedProvider provider_;
    CandleCache cache_;
    CandleLoader loader_{cache_, provider_, clock_};
};

} // namespace

TEST_F(Loader, KeepsFourRequestsUnderWayAndBeginsTheNextAsOneEnds) {
    test::Running all(loader_.loadAll(
        {pair("A"), pair("B"), pair("C"), pair("D"), pair("E"), pair("F")}, ChartPeriod::day));
    EXPECT_THAT(takeCalls(), ElementsAre("candles A", "candles B", "candles C", "candles D"));
    test::Running one(loader_.load(pair("G"), ChartPeriod::day));
    EXPECT_THAT(takeCalls(), IsEmpty()) << "whoever asks, four are enough";
    fail("C");
    EXPECT_THAT(takeCalls(), ElementsAre("candles E"));
    for (const char* const base : {"A", "B", "D"})
        answer(base);
    EXPECT_THAT(takeCalls(), ElementsAre("candles F", "candles G"));
    answer("E");
    EXPECT_THAT(takeCalls(), IsEmpty());
    EXPECT_TRUE(all.isRunning());
    answer("F");
    all.result();
    EXPECT_TRUE(one.isRunning());
    EXPECT_EQ(cache_.entries().size(), 5u);
}

TEST_F(Loader, AsksForASeriesOnceWhileItIsOnItsWayOrFresh) {
    test::Running first(loader_.load(pair("A"), ChartPeriod::day));
    test::Running second(loader_.load(pair("A"), ChartPeriod::day));
    EXPECT_THAT(takeCalls(), ElementsAre("candles A"));
    first.cancel();
    answer("A");
    second.result();
    clock_.advance(300s);
    test::runTask(loader_.load(pair("A"), ChartPeriod::day));
    test::runTask(loader_.loadAll({pair("A")}, ChartPeriod::day));
    EXPECT_THAT(takeCalls(), IsEmpty());
    test::Running week(loader_.load(pair("A"), ChartPeriod::week));
    EXPECT_THAT(takeCalls(), ElementsAre("candles A"));
    clock_.advance(1s);
    test::Running stale(loader_.load(pair("A"), ChartPeriod::day));
    EXPECT_THAT(takeCalls(), ElementsAre("candles A"));
}

TEST_F(Loader, ForgetsTheLoadsOfAPairThatIsGone) {
    test::Running all(loader_.loadAll(
        {pair("A"), pair("B"), pair("C"), pair("D"), pair("E"), pair("F")}, ChartPeriod::day));
    takeCalls();
    loader_.cancel(pair("E"));
    loader_.cancel(pair("A"));
    EXPECT_THAT(takeCalls(), ElementsAre("candles F"));
    loader_.cancelAll();
    all.result();
    EXPECT_THAT(takeCalls(), IsEmpty());
    EXPECT_THAT(cache_.entries(), IsEmpty());
}
