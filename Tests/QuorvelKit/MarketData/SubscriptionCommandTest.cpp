#include "QuorvelKit/MarketData/SubscriptionCommand.h"

#include <gtest/gtest.h>

using quorvel::SubscriptionCommand;
using quorvel::Symbol;
using quorvel::SymbolSet;
using Method = SubscriptionCommand::Method;

namespace {

const Symbol btc{"BTC", "USDT"};
const Symbol eth{"ETH", "USDT"};
const Symbol ada{"ADA", "USDT"};

std::string onTheWire(const SymbolSet& symbols) {
    const auto url = SubscriptionCommand::connectURL(
        symbols, QUrl(QStringLiteral("ws://127.0.0.1:8080/stream")));
    return url ? url->toEncoded().toStdString() : "none";
}

TEST(SubscriptionCommand, NamesStreamsInLowerCase) {
    EXPECT_EQ(SubscriptionCommand::streamName(btc), "btcusdt@ticker");
    EXPECT_EQ(SubscriptionCommand::streamName({"1INCH", "USDT"}), "1inchusdt@ticker");
    EXPECT_EQ(SubscriptionCommand::streamName({"\u00c4\uff11", "USDT"}), "\u00e4\uff11usdt@ticker");
}

TEST(SubscriptionCommand, ConnectsToAllStreamsAtOnce) {
    EXPECT_EQ(onTheWire({}), "none");
    EXPECT_EQ(onTheWire({btc}), "ws://127.0.0.1:8080/stream?streams=btcusdt@ticker");
    EXPECT_EQ(onTheWire({eth, btc, ada}),
              "ws://127.0.0.1:8080/stream?streams=adausdt@ticker/btcusdt@ticker/ethusdt@ticker");
    const auto live = SubscriptionCommand::connectURL({btc});
    ASSERT_TRUE(live.has_value());
    EXPECT_EQ(live->scheme(), QStringLiteral("wss"));
    EXPECT_EQ(live->port(), 9443);
    EXPECT_EQ(live->path(), QStringLiteral("/stream"));
    EXPECT_EQ(live->query(), QStringLiteral("streams=btcusdt@ticker"));
    EXPECT_EQ(SubscriptionCommand::connectURL({btc}, QUrl()), std::nullopt);
}

TEST(SubscriptionCommand, KeepsUnusualNamesInsideTheQuery) {
    EXPECT_EQ(onTheWire({{"\u00c4\uff11", "USDT"}}),
              "ws://127.0.0.1:8080/stream?streams=%C3%A4%EF%BC%91usdt@ticker");
    EXPECT_EQ(onTheWire({{"A#B&C%41 D", "USDT"}}),
              "ws://127.0.0.1:8080/stream?streams=a%23b%26c%2541%20dusdt@ticker");
}

TEST(SubscriptionCommand, WritesCommandsInAFixedForm) {
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::subscribe, {eth, btc}, 3),
              R"({"method":"SUBSCRIBE","params":["btcusdt@ticker","ethusdt@ticker"],"id":3})");
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::unsubscribe, {btc}, 12),
              R"({"method":"UNSUBSCRIBE","params":["btcusdt@ticker"],"id":12})");
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::subscribe, {}, -1),
              R"({"method":"SUBSCRIBE","params":[],"id":-1})");
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::subscribe, {{"A\"],\\", "\u00c4"}}, 1),
              "{\"method\":\"SUBSCRIBE\",\"params\":[\"a\\\"],\\\\\u00e4@ticker\"],\"id\":1}");
}

TEST(SubscriptionCommand, SortsStreamsByNameNotByPair) {
    // By its base AB comes first, by its stream name second.
    EXPECT_EQ(SubscriptionCommand::controlMessage(Method::subscribe,
                                                  {{"AB", "USDT"}, {"ABC", "USDT"}}, 1),
              R"({"method":"SUBSCRIBE","params":["abcusdt@ticker","abusdt@ticker"],"id":1})");
}

TEST(SubscriptionCommand, FindsWhatChanged) {
    EXPECT_EQ(SubscriptionCommand::diff({ada, btc}, {btc, eth}),
              (SubscriptionCommand::Difference{.toAdd = {eth}, .toRemove = {ada}}));
    EXPECT_EQ(SubscriptionCommand::diff({ada, btc}, {btc, ada}), SubscriptionCommand::Difference());
    EXPECT_EQ(SubscriptionCommand::diff({}, {btc}), (SubscriptionCommand::Difference{{btc}, {}}));
}

TEST(SubscriptionCommand, MatchesMethodTextsExactly) {
    EXPECT_EQ(quorvel::fromRawValue<Method>("UNSUBSCRIBE"), Method::unsubscribe);
    EXPECT_EQ(quorvel::fromRawValue<Method>("subscribe"), std::nullopt);
}

} // namespace
