// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/Symbol.h"

#include "Platform/JSON/JSONReader.h"
#include "QuorvelKit/MarketModel/ChartPeriod.h"
#include "QuorvelKit/MarketModel/WatchlistItem.h"
#include "Tests/Support/Cases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using platform::decodeJSON;
using platform::DecodingError;
using quorvel::ChartPeriod;
using quorvel::Symbol;
using quorvel::WatchlistItem;
using test::cases;

namespace {

TEST(Symbol, IsMadeOfAPairInUSDTOnly) {
    struct PairID {
        const char* text;
        const char* base;
    };
    for (const auto& [text, base] : cases(
             PairID{"BTCUSDT", "BTC"}, PairID{"1000satsUsdt", "1000SATS"},
             PairID{"USDTUSDT", "USDT"}, PairID{"a-b usdt", "A-B "}, PairID{"\u00e4usdt", "\u00c4"},
             PairID{"stra\u00dfeusdt", "STRASSE"}, PairID{"\uff11\uff12USDT", "\uff11\uff12"},
             PairID{"\U00010428usdt", "\U00010400"}, PairID{"\u5e01\u5b89USDT", "\u5e01\u5b89"}))
        EXPECT_EQ(Symbol::fromPairID(text), Symbol(base, "USDT")) << text;
    for (const char* text : {"", "USDT", "ETHBTC", "USDTBTC", "BTC\uff35\uff33\uff24\uff34"})
        EXPECT_EQ(Symbol::fromPairID(text), std::nullopt) << text;
}

std::string stored(const std::string& base, const std::string& quote) {
    return R"({"base":")" + base + R"(","quote":")" + quote + R"("})";
}

TEST(Symbol, IsReadBackWithCapitalsAndDigitsOfAnyScript) {
    for (const char* base : {"BTC", "1000SATS", "\u00c4", "\uff11", "\U00010400"})
        EXPECT_EQ(decodeJSON(stored(base, "EUR"), &Symbol::decode), Symbol(base, "EUR"));
    for (const auto& json :
         cases(stored("btc", "USDT"), stored("\u00e4", "USDT"), stored("", "USDT"),
               stored("BTC", ""), stored("BTC", "usdt"), stored("B T", "USDT"),
               stored("B/T", "USDT"), stored("B_T", "USDT"), stored("B\\u0000", "USDT"),
               stored("\u5e01", "USDT"), std::string(R"({"base":"BTC"})"),
               std::string(R"({"base":null,"quote":"USDT"})"), std::string(R"(["BTC","USDT"])")))
        EXPECT_THROW(decodeJSON(json, &Symbol::decode), DecodingError) << json;
}

TEST(Symbol, SaysWhichAssetCodesAreWrong) {
    try {
        decodeJSON(R"([{"symbol":{"base":"btc","quote":"USDT"}}])", [](platform::JSONValue root) {
            root.forEachElement(
                [](platform::JSONValue item) { item.required("symbol", &Symbol::decode); });
            return 0;
        });
        FAIL() << "nothing was thrown";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), DecodingError::Kind::dataCorrupted);
        EXPECT_EQ(error.codingPath(), std::vector<std::string>{"symbol"});
        EXPECT_EQ(error.description(), "资产代码只允许大写字母与数字，实际为 base=btc quote=USDT");
    }
}

TEST(Symbol, TellsPairsWithTheSameIdApart) {
    const std::hash<Symbol> hash;
    EXPECT_NE(Symbol("AB", "CUSDT"), Symbol("ABC", "USDT"));
    EXPECT_NE(hash({"AB", "CUSDT"}), hash({"ABC", "USDT"}));
    EXPECT_NE(hash({"A", "B"}), hash({"B", "A"}));
}

TEST(WatchlistItem, NeedsBothKeysInTheirTypes) {
    for (const std::string_view json :
         {R"({"symbol":{"base":"ETH","quote":"USDT"}})", R"({"isPinnedToStatusBar":true})",
          R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":1})",
          R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":"true"})",
          R"({"symbol":"ETHUSDT","isPinnedToStatusBar":true})"})
        EXPECT_THROW(decodeJSON(json, &WatchlistItem::decode), DecodingError) << json;
}

} // namespace
