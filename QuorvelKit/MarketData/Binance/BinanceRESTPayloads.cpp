// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceRESTPayloads.h"

#include "Platform/JSON/JSONReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

using platform::DecodingError;
using platform::JSONValue;

namespace {

/// The string members with these keys, all required, in one pass over the object.
template <std::size_t Count>
std::array<std::string_view, Count>
requiredStrings(JSONValue object, const std::array<std::string_view, Count>& keys) {
    std::array<std::optional<std::string_view>, Count> found;
    const bool isObject = object.forEachMember([&](std::string_view key, JSONValue value) {
        if (const auto at = std::ranges::find(keys, key); at != keys.end())
            found[static_cast<std::size_t>(at - keys.begin())] = value.string();
    });
    if (!isObject)
        throw DecodingError(DecodingError::Kind::typeMismatch, "Expected an object.");
    std::array<std::string_view, Count> strings;
    for (std::size_t i = 0; i < Count; ++i) {
        if (!found[i])
            throw DecodingError(DecodingError::Kind::keyNotFound,
                                "There is no \"" + std::string(keys[i]) + "\".");
        strings[i] = *found[i];
    }
    return strings;
}

/// When the values of a ticker row were produced: an answer may have been under way, or in a cache,
/// while events overtook it.
platform::Date producedAt(JSONValue row, platform::Date arrival) {
    std::optional<double> closeTime;
    row.forEachMember([&](std::string_view key, JSONValue value) {
        if (key == "closeTime")
            closeTime = value.asDouble();
    });
    if (!closeTime)
        return arrival;
    return std::min(arrival, platform::dateSince1970(platform::TimeInterval(*closeTime / 1000.0)));
}

void forEachElement(JSONValue array, auto visit) {
    if (!array.forEachElement(visit))
        throw DecodingError(DecodingError::Kind::typeMismatch, "Expected an array.");
}

/// One cell of a candle row: a number or a text, nothing else.
struct KlineField {
    std::optional<double> number;
    std::optional<std::string_view> text;

    static KlineField decode(JSONValue cell) {
        if (const auto number = cell.asDouble())
            return {number, std::nullopt};
        return {std::nullopt, cell.string()};
    }
};

/// Absent for a row that is too short or has the wrong kinds of cells; a cell of no kind throws.
std::optional<Candle> decodeRow(JSONValue row) {
    constexpr std::size_t openTime = 0;
    constexpr std::size_t close = 4;
    std::array<KlineField, close + 1> cells;
    std::size_t count = 0;
    forEachElement(row, [&](JSONValue cell) {
        const auto field = KlineField::decode(cell);
        if (count < cells.size())
            cells[count] = field;
        ++count;
    });
    if (count < cells.size() || !cells[openTime].number || !cells[close].text)
        return std::nullopt;
    const auto price = Decimal::fromAPIString(*cells[close].text);
    if (!price)
        return std::nullopt;
    const platform::TimeInterval since1970(*cells[openTime].number / 1000.0);
    return Candle{platform::dateSince1970(since1970), *price};
}

} // namespace

std::vector<Quote> decodeSnapshot(QByteArrayView body, platform::Date arrival) {
    constexpr auto keys =
        std::to_array<std::string_view>({"symbol", "lastPrice", "priceChangePercent"});
    return platform::decodeJSON(body, [&](JSONValue root) {
        std::vector<Quote> quotes;
        forEachElement(root, [&](JSONValue element) {
            const auto [pairID, lastPrice, changePercent] = requiredStrings(element, keys);
            auto symbol = Symbol::fromPairID(pairID);
            const auto price = Decimal::fromAPIString(lastPrice);
            const auto change = Decimal::fromAPIString(changePercent);
            if (symbol && price && change)
                quotes.push_back(
                    {std::move(*symbol), *price, *change, producedAt(element, arrival)});
        });
        return quotes;
    });
}

std::vector<Symbol> decodeAvailableSymbols(QByteArrayView body) {
    constexpr auto keys = std::to_array<std::string_view>({"symbol", "status", "quoteAsset"});
    return platform::decodeJSON(body, [&](JSONValue root) {
        std::vector<Symbol> symbols;
        const auto keep = [&](JSONValue entry) {
            const auto [pairID, status, quoteAsset] = requiredStrings(entry, keys);
            if (status != "TRADING")
                return;
            if (auto symbol = Symbol::fromPairID(pairID); symbol && symbol->quote == quoteAsset)
                symbols.push_back(std::move(*symbol));
        };
        root.required("symbols", [&](JSONValue entries) {
            forEachElement(entries, keep);
            return true;
        });
        return symbols;
    });
}

std::vector<Candle> decodeCandles(QByteArrayView body) {
    return platform::decodeJSON(body, [](JSONValue root) {
        std::vector<Candle> candles;
        forEachElement(root, [&](JSONValue row) {
            if (const auto candle = decodeRow(row))
                candles.push_back(*candle);
        });
        return candles;
    });
}

} // namespace quorvel
