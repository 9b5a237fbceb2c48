// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/Symbol.h"

#include "Platform/JSON/JSONReader.h"
#include "QuorvelKit/MarketModel/DisplayName.h"
#include "QuorvelKit/MarketModel/WatchlistItem.h"
#include "Tests/Support/Cases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using platform::decodeJSON;
using platform::DecodingError;
using quorvel::Symbol;
using quorvel::WatchlistItem;
using test::cases;

namespace {

TEST(Symbol, IsMadeOfAPairInUSDTOnly) {
    struct PairID {
        const char* text;
        const char* base;
    };
    for (const auto& [text, base] :
         cases(PairID{"BTCUSDT", "BTC"}, PairID{"1000satsUsdt", "1000SATS"},
               PairID{"USDTUSDT", "USDT"}, PairID{"a-b usdt", "A-B "},
               PairID{"stra\u00dfeusdt", "STRASSE"}, PairID{"\U00010428usdt", "\U00010400"},
               PairID{"\u5e01\u5b89USDT", "\u5e01\u5b89"}))
        EXPECT_EQ(Symbol::fromPairID(text), Symbol(base, "USDT")) << text;
    for (const char* text : {"", "USDT", "ETHBTC", "USDTBTC", "BTC\uff35\uff33\uff24\uff34"})
        EXPECT_EQ(Symbol::fromPairID(text), std::nullopt) << text;
}

TEST(Symbol, IsQuotedInTheLongestCurrencyThatFits) {
    constexpr auto assets = std::to_array<std::string_view>({"BTC", "USDT", "WBTC"});
    EXPECT_EQ(Symbol::fromPairID("ethwbtc", assets), Symbol("ETH", "WBTC"));
    EXPECT_EQ(Symbol::fromPairID("ETHBTC", assets), Symbol("ETH", "BTC"));
    EXPECT_EQ(Symbol::fromPairID("WBTC", assets), Symbol("W", "BTC"));
    EXPECT_EQ(Symbol::fromPairID("ETHEUR", assets), std::nullopt);
}

TEST(Symbol, IsCalledByItsBaseUnlessTheCurrencyMustTellItApart) {
    const std::vector<Symbol> inDollars{{"BTC", "USDT"}, {"ETH", "USDT"}, {"BTC", "USDT"}};
    const std::vector<Symbol> inTwo{{"BTC", "USDT"}, {"ETH", "USDT"}, {"BTC", "EUR"}};
    const auto name = [](const Symbol& symbol, const std::vector<Symbol>& inSight) {
        return quorvel::displayName(symbol, inSight).toStdString();
    };
    EXPECT_EQ(name({"BTC", "USDT"}, inDollars), "BTC");
    EXPECT_EQ(name({"BTC", "USDT"}, {}), "BTC");
    EXPECT_EQ(name({"BTC", "USDT"}, inTwo), "BTCUSDT");
    EXPECT_EQ(name({"BTC", "EUR"}, inTwo), "BTCEUR");
    EXPECT_EQ(name({"BTC", "EUR"}, inDollars), "BTCEUR") << "need not be among them itself";
    EXPECT_EQ(name({"ETH", "USDT"}, inTwo), "ETH");
}

std::string stored(const std::string& base, const std::string& quote) {
    return R"({"base":")" + base + R"(","quote":")" + quote + R"("})";
}

TEST(Symbol, IsReadBackWithCapitalsAndDigitsOfAnyScript) {
    for (const char* base : {"BTC", "1000SATS", "\u00c4", "\uff11", "\U00010400"})
        EXPECT_EQ(decodeJSON(stored(base, "EUR"), &Symbol::decode), Symbol(base, "EUR"));
    for (const auto& json :
         cases(stored("btc", "USDT"), stored("", "USDT"), stored("BTC", ""), stored("BTC", "usdt"),
               stored("B T", "USDT"), stored("B/T", "USDT"), stored("\u5e01", "USDT"),
               std::string(R"({"base":"BTC"})"), std::string(R"({"base":null,"quote":"USDT"})"),
               std::string(R"(["BTC","USDT"])")))
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

TEST(WatchlistItem, NeedsBothKeysInTheirTypes) {
    for (const std::string_view json :
         {R"({"symbol":{"base":"ETH","quote":"USDT"}})", R"({"isPinnedToStatusBar":true})",
          R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":1})",
          R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":"true"})",
          R"({"symbol":"ETHUSDT","isPinnedToStatusBar":true})"})
        EXPECT_THROW(decodeJSON(json, &WatchlistItem::decode), DecodingError) << json;
}

} // namespace
