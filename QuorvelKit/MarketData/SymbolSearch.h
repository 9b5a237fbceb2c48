// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Symbol.h"

#include <QStringView>

#include <cstddef>
#include <span>
#include <vector>

namespace quorvel {

/// Finds pairs by what a user types of their base's name. Pure; for any thread.
struct SymbolSearch {
    /// The pairs whose base contains the query, at most `limit` of them: first those whose base
    /// begins with it, then the others, and in either group short bases first, those of equal
    /// length by their text, those of the same base in the order given.
    ///
    /// @param query in any letter case; spaces and tabs around it do not count; a blank one finds
    ///        nothing
    static std::vector<Symbol> match(QStringView query, std::span<const Symbol> symbols,
                                     std::size_t limit);
};

} // namespace quorvel
