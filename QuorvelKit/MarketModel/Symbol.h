// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/JSON/JSONValue.h"
#include "Platform/JSON/JSONWriter.h"

#include <array>
#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace quorvel {

/// A trading pair. Both texts are UTF-8 and taken as they are; only decoding judges them.
struct Symbol {
    std::string base;  ///< the asset being priced, such as BTC
    std::string quote; ///< the asset that the price is expressed in, such as USDT

    /// The exchange's identifier of the pair: base and quote without a separator.
    std::string id() const { return base + quote; }

    /// The assets that pairs may be quoted in. Pairs in any other are never asked for nor shown, so
    /// a further currency is a further text here. Upper case, UTF-8.
    static constexpr auto quoteAssets = std::to_array<std::string_view>({"USDT"});

    /// Whether `decode` reads what `encode` writes of it: the exchange has pairs whose names it
    /// refuses.
    bool isStorable() const;

    /// The pair behind an identifier of the exchange in any letter case; absent unless it ends in
    /// one of the assets, the longest that fits counting, and has a base. The base is not judged.
    static std::optional<Symbol> fromPairID(std::string_view pairID,
                                            std::span<const std::string_view> assets = quoteAssets);

    /// Reads `{"base":...,"quote":...}`.
    /// @throws platform::DecodingError for a missing or mistyped key, and (dataCorrupted) unless
    /// both assets are non-empty and consist of upper-case letters and numeric characters
    static Symbol decode(platform::JSONValue value);

    /// Writes what `decode` reads.
    void encode(platform::JSONWriter& writer) const;

    friend bool operator==(const Symbol&, const Symbol&) = default;
    /// By the bytes of the base, then of the quote.
    friend std::strong_ordering operator<=>(const Symbol&, const Symbol&) = default;
};

/// A set of pairs.
using SymbolSet = std::set<Symbol>;

} // namespace quorvel

template <>
struct std::hash<quorvel::Symbol> {
    std::size_t operator()(const quorvel::Symbol& symbol) const noexcept;
};
