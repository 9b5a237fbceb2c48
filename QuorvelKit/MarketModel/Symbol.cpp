// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/Symbol.h"

#include "Platform/Foundation/LetterCase.h"

#include <QList>
#include <QString>

#include <algorithm>

namespace quorvel {

namespace {

using platform::DecodingError;

std::string stringOf(platform::JSONValue value) {
    return std::string(value.string());
}

bool isAssetCharacter(char32_t c) {
    return QChar::isUpper(c) || QChar::isNumber(c);
}

bool isAssetCode(const std::string& asset) {
    return !asset.empty() &&
           std::ranges::all_of(QString::fromStdString(asset).toUcs4(), isAssetCharacter);
}

} // namespace

std::optional<Symbol> Symbol::fromPairID(std::string_view pairID,
                                         std::span<const std::string_view> assets) {
    std::string base = platform::uppercased(pairID);
    std::string_view quote;
    for (const std::string_view asset : assets) {
        if (base.size() > asset.size() && base.ends_with(asset) && asset.size() > quote.size())
            quote = asset;
    }
    if (quote.empty())
        return std::nullopt;
    base.resize(base.size() - quote.size());
    return Symbol{std::move(base), std::string(quote)};
}

bool Symbol::isStorable() const {
    return isAssetCode(base) && isAssetCode(quote);
}

Symbol Symbol::decode(platform::JSONValue value) {
    Symbol symbol{value.required("base", stringOf), value.required("quote", stringOf)};
    if (!symbol.isStorable())
        throw DecodingError(DecodingError::Kind::dataCorrupted,
                            "资产代码只允许大写字母与数字，实际为 base=" + symbol.base +
                                " quote=" + symbol.quote);
    return symbol;
}

void Symbol::encode(platform::JSONWriter& writer) const {
    writer.beginObject().key("base").string(base).key("quote").string(quote).endObject();
}

} // namespace quorvel

std::size_t std::hash<quorvel::Symbol>::operator()(const quorvel::Symbol& symbol) const noexcept {
    constexpr std::size_t multiplier = 0x9E3779B97F4A7C15; // 2^64 over the golden ratio
    const std::hash<std::string> hash;
    return hash(symbol.base) * multiplier ^ hash(symbol.quote);
}
