// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Feed/ResilientProvider.h"

#include "Platform/Services/Workspace.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/MarketSamples.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/ScriptedProvider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Kind = ConnectionEvent::Kind;
using Pair = FeedStatus::Pair;

namespace {

class Resilient : public testing::Test {
protected:
    Resilient() {
        auto scripted = std::make_unique<ScriptedProvider>();
        exchange_ = scripted.get();
        auto [events, writer] = platform::AsyncStream<ConnectionEvent>::make();
        reports_.events = std::move(writer);
        provider_ = std::make_unique<ResilientProvider>(
            ResilientProvider::Collaborators{.provider = std::move(scripted),
                                             .renew = [this] { ++renewals_; },
                                             .events = std::move(events),
                                             .lastHeard = reports_.lastHeard,
                                             .sleepCenter = center_,
                                             .clock = clock_,
                                             .status = status_});
        QObject::connect(&status_, &FeedStatus::recovered, [this] { ++recoveries_; });
        drainEvents();
    }

    /// As the model does at each change of the watchlist.
    void watch(const std::vector<Symbol>& symbols) {
        runTask(provider_->updateSubscriptions({symbols.begin(), symbols.end()}));
        asking_.push_back(
            std::make_unique<Running<std::vector<Quote>>>(provider_->snapshot(symbols)));
        drainEvents();
    }

    void report(const ConnectionEvent& event) {
        if (event.kind == Kind::opened)
            reports_.lastHeard->store(clock_.uptime().count());
        reports_.events.push(event);
        drainEvents();
    }

    std::vector<std::string> takeCalls() { return std::exchange(exchange_->calls, {}); }

    static std::vector<Quote> quotes(const std::vector<Symbol>& symbols) {
        std::vector<Quote> result;
        for (const Symbol& symbol : symbols)
            result.push_back({symbol, decimal("1"), decimal("0"), platform::Date()});
        return result;
    }

    ManualClock clock_;
    platform::NotificationCenter center_;
    FeedStatus status_{clock_};
    ConnectionReports reports_;
    ScriptedProvider* exchange_ = nullptr;
    int renewals_ = 0;
    int recoveries_ = 0;
    std::unique_ptr<ResilientProvider> provider_;
    std::vector<std::unique_ptr<Running<std::vector<Quote>>>> asking_;
};

TEST_F(Resilient, MakesOneOfChangesInQuickSuccession) {
    exchange_->snapshotQuotes = quotes({btc});
    watch({btc});
    EXPECT_THAT(takeCalls(), ElementsAre("subscribe BTC", "snapshot BTC")) << "the first at once";
    watch({btc, eth});
    watch({btc, eth, sol});
    EXPECT_THAT(takeCalls(), IsEmpty());
    exchange_->snapshotQuotes = quotes({eth, sol});
    clock_.advance(300ms);
    EXPECT_THAT(takeCalls(), ElementsAre("subscribe BTC ETH SOL", "snapshot ETH SOL"));
    clock_.advance(1s);
    for (const auto& remaining : {std::vector{btc, sol}, {btc}})
        watch(remaining);
    clock_.advance(1s);
    EXPECT_THAT(takeCalls(), ElementsAre("subscribe BTC SOL", "subscribe BTC"))
        << "nothing new to ask for";
}

TEST_F(Resilient, HasOneSnapshotUnderWayAndOneWaiting) {
    exchange_->heldSnapshot.emplace().start();
    watch({btc});
    watch({btc, eth});
    watch({btc, eth, sol});
    clock_.advance(1s);
    EXPECT_THAT(takeCalls(), ElementsAre("subscribe BTC", "snapshot BTC", "subscribe BTC ETH SOL"));
    exchange_->snapshotQuotes = quotes({btc});
    std::exchange(exchange_->heldSnapshot, std::nullopt)->finish();
    clock_.advance(1s);
    EXPECT_THAT(takeCalls(), ElementsAre("snapshot ETH SOL"));
    EXPECT_THAT(asking_[1]->result(), SizeIs(1)) << "of what is asked, what there is";
    EXPECT_THAT(asking_[2]->result(), IsEmpty()) << "the one before brings it";
}

TEST_F(Resilient, FindsThePairsThatTheExchangeRefuses) {
    exchange_->refusedBase = "ETH";
    watch({btc, eth, sol});
    EXPECT_THAT(takeCalls(),
                ElementsAre("subscribe BTC ETH SOL", "snapshot BTC ETH SOL", "snapshot BTC",
                            "snapshot ETH SOL", "snapshot ETH", "snapshot SOL"));
    EXPECT_EQ(status_.of(eth), Pair::untraded);
    EXPECT_EQ(status_.of(btc), Pair::live);
    status_.notePrice(eth);
    EXPECT_EQ(status_.of(eth), Pair::live) << "it is traded after all";
    status_.setListed({btc, eth});
    EXPECT_EQ(status_.of(sol), Pair::untraded);
    report({.kind = Kind::untraded, .pairs = {btc}});
    EXPECT_EQ(status_.of(btc), Pair::untraded);
}

TEST_F(Resilient, LeavesOutWhatTheListLacks) {
    exchange_->pairs.addResult(std::vector{btc});
    exchange_->pairs.finish();
    EXPECT_THAT(runTask(provider_->availableSymbols()), ElementsAre(btc));
    watch({btc, eth});
    EXPECT_EQ(takeCalls().back(), "snapshot BTC");
}

TEST_F(Resilient, GivesUpTheListAfterAWhileAndTakesItWhenItComes) {
    Running<std::vector<Symbol>> asking(provider_->availableSymbols());
    drainEvents();
    clock_.advance(15s);
    EXPECT_ANY_THROW(asking.result());
    EXPECT_EQ(recoveries_, 0);
    exchange_->pairs.addResult(std::vector{btc});
    exchange_->pairs.finish();
    drainEvents();
    EXPECT_EQ(recoveries_, 1);
    EXPECT_THAT(runTask(provider_->availableSymbols()), ElementsAre(btc));
    EXPECT_THAT(takeCalls(), ElementsAre("pairs")) << "asked once";
}

TEST_F(Resilient, AsksAgainForWhatFailedEachTimeLater) {
    exchange_->snapshotQuotes.reset();
    watch({btc});
    EXPECT_ANY_THROW(asking_.back()->result());
    clock_.advance(9s);
    EXPECT_EQ(recoveries_, 0);
    clock_.advance(1s);
    EXPECT_EQ(recoveries_, 1);
    watch({btc});
    clock_.advance(19s);
    EXPECT_EQ(recoveries_, 1);
    clock_.advance(1s);
    EXPECT_EQ(recoveries_, 2);
}

TEST_F(Resilient, AsksForEverythingOnceTheConnectionIsBack) {
    exchange_->snapshotQuotes = quotes({btc, eth});
    report({.kind = Kind::opened});
    EXPECT_EQ(recoveries_, 0) << "nothing was missed";
    watch({btc, eth});
    report({.kind = Kind::lost});
    report({.kind = Kind::opened});
    EXPECT_EQ(recoveries_, 1);
    takeCalls();
    clock_.advance(1s);
    watch({btc, eth});
    EXPECT_THAT(takeCalls(), ElementsAre("snapshot BTC ETH")) << "quiet pairs too";
}

TEST_F(Resilient, TellsWhatIsLive) {
    watch({btc, eth});
    report({.kind = Kind::lost});
    clock_.advance(5s);
    EXPECT_TRUE(status_.outage()) << "there was no network from the start";
    status_.notePrice(btc);
    report({.kind = Kind::opened});
    clock_.advance(16s);
    report({.kind = Kind::opened});
    EXPECT_EQ(status_.of(btc), Pair::quiet);
    EXPECT_FALSE(status_.outage());
    const auto lastSign = clock_.now();
    clock_.advance(20s);
    EXPECT_FALSE(status_.outage());
    clock_.advance(1s);
    ASSERT_TRUE(status_.outage());
    EXPECT_EQ(status_.outage()->since, lastSign);
    EXPECT_EQ(status_.of(btc), Pair::notLive);
    report({.kind = Kind::lost, .reason = QStringLiteral("x")});
    report({.kind = Kind::refused, .status = 429, .until = clock_.bootTime() + 60s});
    EXPECT_EQ(status_.outage()->status, 429) << "at once, it will not pass quickly";
    EXPECT_EQ(status_.outage()->until, clock_.now() + 60s);
    clock_.advance(60s);
    report({.kind = Kind::lost});
    EXPECT_FALSE(status_.outage()->until) << "which is over";
    watch({});
    EXPECT_FALSE(status_.outage()) << "nothing is wanted";
}

TEST_F(Resilient, ConnectsNothingWhileAsleepAndStartsAnewOnWaking) {
    exchange_->snapshotQuotes = quotes({btc, eth});
    watch({btc, eth});
    takeCalls();
    center_.post(platform::Workspace::willSleepNotification);
    runTask(provider_->updateSubscriptions({}));
    watch({btc, eth}); // a change that was under way
    EXPECT_ANY_THROW(runTask(provider_->availableSymbols()));
    EXPECT_ANY_THROW(runTask(provider_->candles(btc, ChartPeriod::day)));
    clock_.advance(10s);
    EXPECT_THAT(takeCalls(), ElementsAre("subscribe"));
    center_.post(platform::Workspace::didWakeNotification);
    watch({btc, eth});
    clock_.advance(1s);
    EXPECT_THAT(takeCalls(), testing::Contains("snapshot BTC ETH"));
    EXPECT_EQ(renewals_, 1);
}

TEST_F(Resilient, NoticesASleepOfWhichNobodyTold) {
    for (const bool isAnnounced : {false, true}) {
        watch({btc});
        takeCalls();
        renewals_ = 0;
        if (isAnnounced)
            center_.post(platform::Workspace::willSleepNotification);
        clock_.suspend(8h);
        clock_.advance(1s);
        EXPECT_THAT(takeCalls(), ElementsAre("subscribe", "subscribe BTC")) << isAnnounced;
        EXPECT_EQ(renewals_, 1);
        clock_.advance(5s);
        EXPECT_EQ(renewals_, 1) << "once a sleep";
    }
}

} // namespace
