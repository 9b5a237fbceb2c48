// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONReader.h"
#include "QuorvelKit/MarketData/Binance/BinanceMessageDecoder.h"
#include "QuorvelKit/MarketModel/Decimal.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QByteArray>

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

using platform::JSONValue;

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

// A ticker event with all the keys that the exchange sends.

const std::string tickerFrame =
    R"({"stream":"btcusdt@ticker","data":{"e":"24hrTicker","E":1700000000123,"s":"BTCUSDT",)"
    R"("p":"-473.96000000","P":"-1.250","w":"37211.23456789","x":"37480.01000000",)"
    R"("c":"37012.50000000","Q":"0.00123000","b":"37012.49000000","B":"4.12345000",)"
    R"("a":"37012.50000000","A":"3.98765000","o":"37480.00000000","h":"37999.99000000",)"
    R"("l":"36500.00000000","v":"12345.67890000","q":"459876543.12345678","O":1699913600123,)"
    R"("C":1700000000123,"F":3211234567,"L":3212345678,"n":1111112}})";

void tickerDOMParse(benchmark::State& state) {
    const simdjson::padded_string frame(tickerFrame);
    simdjson::dom::parser parser;
    for (auto _ : state) {
        auto document = parser.parse(frame);
        require(document.error() == simdjson::SUCCESS);
        benchmark::DoNotOptimize(document);
    }
}
BENCHMARK(tickerDOMParse)->Name("tickerToQuote/reference");

void tickerToQuote(benchmark::State& state) {
    const QByteArray frame = QByteArray::fromStdString(tickerFrame);
    const quorvel::BinanceMessageDecoder decoder;
    for (auto _ : state) {
        auto message = decoder.decode(frame);
        require(std::holds_alternative<quorvel::Quote>(message));
        benchmark::DoNotOptimize(message);
    }
}
BENCHMARK(tickerToQuote)->Name("tickerToQuote/subject");

void tickerStrictPass(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::decodeJSON(
            std::string_view(tickerFrame), [](JSONValue root) { return root.isObject(); }));
}
BENCHMARK(tickerStrictPass);

void decimalParse(benchmark::State& state) {
    constexpr std::array<std::string_view, 4> prices{"37012.50000000", "-1.250", "0.00001234",
                                                     "459876543.12345678"};
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(quorvel::Decimal::fromAPIString(prices[next++ % prices.size()]));
}
BENCHMARK(decimalParse);

/// An exchange-information document of about 10 MB, shaped like the exchange's.
std::string exchangeInformation() {
    constexpr std::size_t wantedSize = 10'000'000;
    std::string document = R"({"timezone":"UTC","serverTime":1700000000123,"symbols":[)";
    for (int i = 0; document.size() < wantedSize; ++i) {
        const std::string base = "COIN" + std::to_string(i);
        const std::string quote = i % 3 == 0 ? "USDT" : "BTC";
        document += std::string(i == 0 ? "" : ",") + R"({"symbol":")" + base + quote +
                    R"(","status":"TRADING","baseAsset":")" + base +
                    R"(","baseAssetPrecision":8,"quoteAsset":")" + quote +
                    R"(","quotePrecision":8,"quoteAssetPrecision":8,"orderTypes":["LIMIT",)"
                    R"("LIMIT_MAKER","MARKET","STOP_LOSS","STOP_LOSS_LIMIT","TAKE_PROFIT"],)"
                    R"("icebergAllowed":true,"ocoAllowed":true,"isSpotTradingAllowed":true,)"
                    R"("filters":[{"filterType":"PRICE_FILTER","minPrice":"0.00000100",)"
                    R"("maxPrice":"922327.00000000","tickSize":"0.00000100"},)"
                    R"({"filterType":"LOT_SIZE","minQty":"0.00010000","maxQty":"100000.0",)"
                    R"("stepSize":"0.00010000"},{"filterType":"ICEBERG_PARTS","limit":10},)"
                    R"({"filterType":"NOTIONAL","minNotional":"0.00010000","avgPriceMins":5}],)"
                    R"("permissions":[],"permissionSets":[["SPOT","MARGIN","TRD_GRP_004",)"
                    R"("TRD_GRP_005","TRD_GRP_006","TRD_GRP_009","TRD_GRP_010"]],)"
                    R"("allowedSelfTradePreventionModes":["NONE","EXPIRE_TAKER"]})";
    }
    return document + "]}";
}

void exchangeDOMParse(benchmark::State& state) {
    const simdjson::padded_string document(exchangeInformation());
    simdjson::dom::parser parser;
    for (auto _ : state) {
        auto parsed = parser.parse(document);
        require(parsed.error() == simdjson::SUCCESS);
        benchmark::DoNotOptimize(parsed);
    }
}
BENCHMARK(exchangeDOMParse)->Unit(benchmark::kMillisecond);

/// Walks through every value below, as far as on-demand access lets one.
bool visitAll(simdjson::ondemand::value value) {
    using Type = simdjson::ondemand::json_type;
    Type type{};
    require(value.type().get(type) == simdjson::SUCCESS);
    if (type == Type::object) {
        simdjson::ondemand::object object;
        require(value.get_object().get(object) == simdjson::SUCCESS);
        for (auto member : object) {
            simdjson::ondemand::field field;
            require(std::move(member).get(field) == simdjson::SUCCESS && visitAll(field.value()));
        }
        return true;
    }
    if (type == Type::array) {
        simdjson::ondemand::array array;
        require(value.get_array().get(array) == simdjson::SUCCESS);
        for (auto element : array) {
            simdjson::ondemand::value child;
            require(std::move(element).get(child) == simdjson::SUCCESS && visitAll(child));
        }
        return true;
    }
    return !value.raw_json_token().empty();
}

void exchangeOnDemandParse(benchmark::State& state) {
    const simdjson::padded_string document(exchangeInformation());
    simdjson::ondemand::parser parser;
    for (auto _ : state) {
        simdjson::ondemand::document parsed;
        require(parser.iterate(document).get(parsed) == simdjson::SUCCESS);
        simdjson::ondemand::value root;
        require(parsed.get_value().get(root) == simdjson::SUCCESS);
        benchmark::DoNotOptimize(visitAll(root));
    }
}
BENCHMARK(exchangeOnDemandParse)->Name("exchangeToPairs/reference")->Unit(benchmark::kMillisecond);

struct Entry {
    std::optional<std::string_view> symbol;
    std::optional<std::string_view> status;
    std::optional<std::string_view> quoteAsset;
};

Entry entryOf(JSONValue value) {
    Entry entry;
    value.forEachMember([&entry](std::string_view key, JSONValue member) {
        if (key == "symbol")
            entry.symbol = member.asString();
        else if (key == "status")
            entry.status = member.asString();
        else if (key == "quoteAsset")
            entry.quoteAsset = member.asString();
    });
    return entry;
}

void exchangeToPairs(benchmark::State& state) {
    const std::string document = exchangeInformation();
    for (auto _ : state) {
        const auto pairs = platform::decodeJSON(std::string_view(document), [](JSONValue root) {
            std::vector<quorvel::Symbol> found;
            root.forEachMember([&](std::string_view key, JSONValue value) {
                if (key != "symbols")
                    return;
                value.forEachElement([&](JSONValue element) {
                    const Entry entry = entryOf(element);
                    if (entry.status != "TRADING" || entry.quoteAsset != "USDT")
                        return;
                    if (auto symbol = quorvel::Symbol::fromPairID(entry.symbol.value()))
                        found.push_back(std::move(*symbol));
                });
            });
            return found;
        });
        require(pairs.size() > 1000);
    }
}
BENCHMARK(exchangeToPairs)->Name("exchangeToPairs/subject")->Unit(benchmark::kMillisecond);

} // namespace
