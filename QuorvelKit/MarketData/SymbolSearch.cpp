// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/SymbolSearch.h"

#include "Platform/Foundation/LetterCase.h"

#include <QString>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace quorvel {

namespace {

bool isBlank(QChar c) {
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

/// A line break is none of the blanks, hence not `QStringView::trimmed`.
QStringView trimmed(QStringView text) {
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

/// How many characters UTF-8 text has: every byte but those that continue one.
std::ptrdiff_t characterCount(std::string_view text) {
    return std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
}

/// Both point into the same list, whose order decides last.
bool comesBefore(const Symbol* left, const Symbol* right) {
    const auto leftCount = characterCount(left->base);
    const auto rightCount = characterCount(right->base);
    if (leftCount != rightCount)
        return leftCount < rightCount;
    return left->base != right->base ? left->base < right->base : left < right;
}

} // namespace

std::vector<Symbol> SymbolSearch::match(QStringView query, std::span<const Symbol> symbols,
                                        std::size_t limit) {
    const std::string wanted = platform::uppercased(trimmed(query).toUtf8().toStdString());
    if (wanted.empty())
        return {};
    std::vector<const Symbol*> found;
    std::vector<const Symbol*> contained;
    for (const Symbol& symbol : symbols) {
        if (symbol.base.starts_with(wanted))
            found.push_back(&symbol);
        else if (symbol.base.contains(wanted))
            contained.push_back(&symbol);
    }
    std::ranges::sort(found, comesBefore);
    std::ranges::sort(contained, comesBefore);
    found.insert(found.end(), contained.begin(), contained.end());
    found.resize(std::min(found.size(), limit));

    std::vector<Symbol> matches;
    matches.reserve(found.size());
    for (const Symbol* const symbol : found)
        matches.push_back(*symbol);
    return matches;
}

} // namespace quorvel
