// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/ExchangeGate.h"

#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"

#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;

namespace {

QUrl pairList() {
    return QUrl(QStringLiteral("https://x/api/v3/exchangeInfo"));
}

class Gate : public testing::Test {
protected:
    bool isOpen() {
        Running<void> passing(gate_.pass(pairList()));
        drainEvents();
        if (passing.isRunning())
            return false;
        try {
            passing.result();
            return true;
        } catch (const HTTPTransportError&) {
            return false;
        }
    }

    void answer(int status, QList<QPair<QByteArray, QByteArray>> headers = {}) {
        gate_.heard({.body = {}, .statusCode = status, .headers = std::move(headers)});
    }

    ManualClock clock_;
    ExchangeClock exchangeClock_{clock_};
    std::vector<ConnectionEvent> events_;
    ExchangeGate gate_{clock_, exchangeClock_,
                       [this](const ConnectionEvent& event) { events_.push_back(event); }};
};

TEST_F(Gate, LetsThroughWhatKeepsAMinuteWellBelowTheLimit) {
    int passed = 0;
    for (int second = 0; second < 120; ++second) {
        while (isOpen())
            ++passed;
        clock_.advance(1s);
        if (second == 59)
            EXPECT_LE(passed * 20, 4900);
    }
    EXPECT_LE(passed * 20, 2 * 4900);
    EXPECT_GE(passed * 20, 5900) << "but not much less, though what is given up counts as well";
}

TEST_F(Gate, WeighsAsTheExchangeDoes) {
    const auto snapshot = [](int pairs) {
        return QUrl(QStringLiteral("https://x/api/v3/ticker/24hr?symbols=[%22A%22") +
                    QString(QStringLiteral(",%22A%22")).repeated(pairs - 1) + u']');
    };
    for (const auto& [pairs, weight] : {std::pair(1, 2), {20, 2}, {21, 40}, {100, 40}, {101, 80}})
        EXPECT_EQ(ExchangeGate::weight(snapshot(pairs)), weight) << pairs;
    EXPECT_EQ(ExchangeGate::weight(pairList()), 20);
    EXPECT_EQ(ExchangeGate::weight(QUrl(QStringLiteral("https://x/api/v3/klines?symbol=A"))), 2);
}

TEST_F(Gate, IsShutForAsLongAsTheExchangeSays) {
    answer(429, {{"Retry-After", "75"}});
    EXPECT_EQ(errorOf<HTTPTransportError>(gate_.pass(pairList())),
              HTTPTransportError::requestFailed(429));
    EXPECT_EQ(events_.at(0).status, 429);
    EXPECT_EQ(events_.at(0).until, clock_.bootTime() + 75s);
    answer(418); // without a time, and not before the end of the first silence
    clock_.advance(74s);
    EXPECT_FALSE(isOpen());
    clock_.suspend(1s);
    EXPECT_TRUE(isOpen()) << "time goes on while the machine sleeps";
}

TEST_F(Gate, TellsOfRefusalsWithoutShutting) {
    for (const int status : {451, 403})
        answer(status);
    ASSERT_EQ(events_.size(), 2U);
    EXPECT_EQ(events_[0].status, 451);
    EXPECT_FALSE(events_[0].until);
    EXPECT_TRUE(isOpen());
    answer(500);
    EXPECT_EQ(events_.size(), 2U);
}

TEST_F(Gate, HeedsTheExchangesOwnCountUntilItsMinuteIsOver) {
    answer(200, {{"Date", "Mon, 23 Nov 2026 14:31:07 GMT"}, {"x-mbx-used-weight-1m", "4799"}});
    EXPECT_TRUE(isOpen());
    answer(200, {{"X-MBX-USED-WEIGHT-1M", "4800"}});
    clock_.advance(51s);
    EXPECT_FALSE(isOpen());
    clock_.advance(3s);
    EXPECT_TRUE(isOpen());
}

} // namespace
