// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"

#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

using namespace test;
using quorvel::SubscriptionCommand;
using quorvel::Symbol;
using quorvel::SymbolSet;
using Method = SubscriptionCommand::Method;

namespace {

std::string onTheWire(const SymbolSet& symbols) {
    const auto url = SubscriptionCommand::connectURL(
        symbols, QUrl(QStringLiteral("ws://127.0.0.1:8080/stream")));
    return url ? url->toEncoded().toStdString() : "none";
}

TEST(SubscriptionCommand, ConnectsToTheExchangeUnlessToldOtherwise) {
    EXPECT_EQ(onTheWire({}), "none");
    EXPECT_EQ(SubscriptionCommand::connectURL({btc}).value().toEncoded(),
              QByteArray("wss://stream.binance.com:9443/stream?streams=btcusdt@ticker"));
    EXPECT_EQ(SubscriptionCommand::connectURL({btc}, QUrl()), std::nullopt);
}

TEST(SubscriptionCommand, KeepsUnusualNamesInsideTheQuery) {
    EXPECT_EQ(onTheWire({{"\u00c4\uff11", "USDT"}}),
              "ws://127.0.0.1:8080/stream?streams=%C3%A4%EF%BC%91usdt@ticker");
    EXPECT_EQ(onTheWire({{"A#B&C%41 D", "USDT"}}),
              "ws://127.0.0.1:8080/stream?streams=a%23b%26c%2541%20dusdt@ticker");
}

TEST(SubscriptionCommand, WritesCommandsInAFixedForm) {
    // Sorted by stream name: by its base AB would come first.
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::subscribe,
                                                  {{"AB", "USDT"}, {"ABC", "USDT"}}, 3),
              R"({"method":"SUBSCRIBE","params":["abcusdt@ticker","abusdt@ticker"],"id":3})");
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::subscribe, {{"A\"],\\", "\u00c4"}}, 1),
              "{\"method\":\"SUBSCRIBE\",\"params\":[\"a\\\"],\\\\\u00e4@ticker\"],\"id\":1}");
}

} // namespace
