#include "QuorvelKit/MarketModel/Symbol.h"

#include "Platform/Foundation/JSONReader.h"
#include "QuorvelKit/MarketModel/ChartPeriod.h"
#include "QuorvelKit/MarketModel/PriceDirection.h"
#include "QuorvelKit/MarketModel/Quote.h"
#include "QuorvelKit/MarketModel/WatchlistItem.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using platform::decodeJSON;
using platform::DecodingError;
using platform::JSONWriter;
using quorvel::ChartPeriod;
using quorvel::Symbol;
using quorvel::WatchlistItem;

namespace {

struct PairID {
    const char* text;
    std::optional<Symbol> symbol;
};

class SymbolFromPairID : public testing::TestWithParam<PairID> {};

TEST_P(SymbolFromPairID, KnowsOnlyPairsInUSDT) {
    EXPECT_EQ(Symbol::fromPairID(GetParam().text), GetParam().symbol) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Symbol, SymbolFromPairID,
                         testing::Values(PairID{"BTCUSDT", Symbol{"BTC", "USDT"}},
                                         PairID{"ethusdt", Symbol{"ETH", "USDT"}},
                                         PairID{"1000satsUsdt", Symbol{"1000SATS", "USDT"}},
                                         PairID{"USDT", std::nullopt}, PairID{"", std::nullopt},
                                         PairID{"ETHBTC", std::nullopt},
                                         PairID{"USDTUSDT", Symbol{"USDT", "USDT"}},
                                         PairID{"USDTBTC", std::nullopt},
                                         PairID{"a-b usdt", Symbol{"A-B ", "USDT"}},
                                         PairID{"\u00e4usdt", Symbol{"\u00c4", "USDT"}},
                                         PairID{"stra\u00dfeusdt", Symbol{"STRASSE", "USDT"}},
                                         PairID{"\uff11\uff12USDT", Symbol{"\uff11\uff12", "USDT"}},
                                         PairID{"\U00010428usdt", Symbol{"\U00010400", "USDT"}},
                                         PairID{"\u5e01\u5b89USDT", Symbol{"\u5e01\u5b89", "USDT"}},
                                         PairID{"BTC\uff35\uff33\uff24\uff34", std::nullopt}));

struct Stored {
    std::string json;
    std::optional<Symbol> symbol;
};

class StoredSymbol : public testing::TestWithParam<Stored> {};

TEST_P(StoredSymbol, IsValidated) {
    std::optional<Symbol> symbol;
    try {
        symbol = decodeJSON(GetParam().json, &Symbol::decode);
    } catch (const DecodingError&) {
    }
    EXPECT_EQ(symbol, GetParam().symbol) << GetParam().json;
}

INSTANTIATE_TEST_SUITE_P(
    Symbol, StoredSymbol,
    testing::Values(
        Stored{R"({"base":"BTC","quote":"USDT"})", Symbol{"BTC", "USDT"}},
        Stored{R"({"quote":"EUR","x":[1],"base":"1000SATS"})", Symbol{"1000SATS", "EUR"}},
        Stored{R"({"base":"\u00c4","quote":"USDT"})", Symbol{"\u00c4", "USDT"}},
        Stored{R"({"base":"\uff11","quote":"USDT"})", Symbol{"\uff11", "USDT"}},
        Stored{"{\"base\":\"\U00010400\",\"quote\":\"USDT\"}", Symbol{"\U00010400", "USDT"}},
        Stored{R"({"base":"btc","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"\u00e4","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"BTC","quote":""})", std::nullopt},
        Stored{R"({"base":"BTC","quote":"usdt"})", std::nullopt},
        Stored{R"({"base":"B T","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"B/T","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"B_T","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"B\u0000","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"\u5e01","quote":"USDT"})", std::nullopt},
        Stored{R"({"base":"BTC"})", std::nullopt},
        Stored{R"({"base":"BTC","quote":1})", std::nullopt},
        Stored{R"({"base":null,"quote":"USDT"})", std::nullopt},
        Stored{R"(["BTC","USDT"])", std::nullopt}, Stored{R"("BTCUSDT")", std::nullopt}));

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
    const Symbol one{"AB", "CUSDT"};
    const Symbol other{"ABC", "USDT"};
    EXPECT_EQ(one.id(), other.id());
    EXPECT_NE(one, other);
    EXPECT_NE(std::hash<Symbol>()(one), std::hash<Symbol>()(other));
    EXPECT_NE(std::hash<Symbol>()(Symbol{"A", "B"}), std::hash<Symbol>()(Symbol{"B", "A"}));
}

TEST(WatchlistItem, ReadsBackWhatItWrites) {
    const WatchlistItem item{{"ETH", "USDT"}, true};
    JSONWriter writer;
    item.encode(writer);
    EXPECT_EQ(writer.text(),
              R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":true})");
    EXPECT_EQ(decodeJSON(writer.text(), &WatchlistItem::decode), item);
}

TEST(WatchlistItem, NeedsBothKeys) {
    for (const char* json :
         {R"({"symbol":{"base":"ETH","quote":"USDT"}})", R"({"isPinnedToStatusBar":true})",
          R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":1})",
          R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":"true"})",
          R"({"symbol":"ETHUSDT","isPinnedToStatusBar":true})"})
        EXPECT_THROW(decodeJSON(std::string_view(json), &WatchlistItem::decode), DecodingError)
            << json;
}

TEST(Quote, DiffersByItsTimestampAlone) {
    const quorvel::Quote quote{{"BTC", "USDT"}, quorvel::Decimal(1), quorvel::Decimal(2), {}};
    quorvel::Quote later = quote;
    later.timestamp += std::chrono::milliseconds(1);
    EXPECT_EQ(quote, quote);
    EXPECT_NE(quote, later);
}

TEST(ChartPeriod, MatchesRawValuesExactly) {
    EXPECT_EQ(quorvel::fromRawValue<ChartPeriod>("week"), ChartPeriod::week);
    EXPECT_EQ(quorvel::fromRawValue<ChartPeriod>("Day"), std::nullopt);
    EXPECT_EQ(quorvel::fromRawValue<ChartPeriod>(""), std::nullopt);
    EXPECT_EQ(limit(ChartPeriod::week), 42);
    EXPECT_EQ(interval(ChartPeriod::week), "4h");
    EXPECT_EQ(limit(ChartPeriod::day), 24);
    EXPECT_EQ(interval(ChartPeriod::day), "1h");
    EXPECT_EQ(label(ChartPeriod::day), QStringLiteral("24 hours"));
}

} // namespace
