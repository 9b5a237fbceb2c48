// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <utility>

namespace test {

/// A table of cases to loop over.
template <typename Case, typename... More>
constexpr std::array<Case, 1 + sizeof...(More)> cases(Case first, More... more) {
    return {std::move(first), std::move(more)...};
}

} // namespace test
