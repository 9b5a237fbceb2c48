// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/SymbolSearch.h"

#include "Tests/Support/Cases.h"

#include <gtest/gtest.h>

#include <string>

using namespace quorvel;

namespace {

struct Search {
    const char16_t* query;
    std::size_t limit;
    std::vector<std::string> bases; ///< those found, in order
};

const std::vector<Symbol> tradeable = [] {
    std::vector<Symbol> symbols;
    for (const char* const base : {"WBTC", "BTCUP", "BTC", "BTTC", "BTCDOWN", "ETHFI", "ETH", "ETC",
                                   "METIS", "BETH", "币安人生", "币安", "AB币安"})
        symbols.push_back({base, "USDT"});
    return symbols;
}();

TEST(SymbolSearch, FindsTheBestFirst) {
    for (const auto& [query, limit, expected] :
         test::cases(Search{u"BTC", 20, {"BTC", "BTCUP", "BTCDOWN", "WBTC"}},
                     Search{u" \t\u00A0\u3000btc ", 20, {"BTC", "BTCUP", "BTCDOWN", "WBTC"}},
                     Search{u"\nBTC", 20, {}}, Search{u"", 20, {}}, Search{u" \t", 20, {}},
                     Search{u"ET", 4, {"ETC", "ETH", "ETHFI", "BETH"}}, Search{u"BTC", 1, {"BTC"}},
                     Search{u"TTC", 1, {"BTTC"}}, Search{u"BTC", 0, {}}, Search{u"USDT", 20, {}},
                     // Three bytes a character: length is counted in characters.
                     Search{u"币安", 20, {"币安", "币安人生", "AB币安"}})) {
        std::vector<std::string> bases;
        for (const Symbol& symbol : SymbolSearch::match(query, tradeable, limit))
            bases.push_back(symbol.base);
        EXPECT_EQ(bases, expected) << QString::fromUtf16(query).toStdString() << ", " << limit;
    }
}

TEST(SymbolSearch, KeepsTheOrderOfPairsWithTheSameBase) {
    const std::vector<Symbol> symbols{{"BTC", "USDT"}, {"BTC", "EUR"}, {"BTC", "TRY"}};
    EXPECT_EQ(SymbolSearch::match(u"b", symbols, 20), symbols);
}

} // namespace
