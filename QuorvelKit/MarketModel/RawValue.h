// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace quorvel {

/// The texts under which an enumeration's cases are stored or sent, in the order of the cases,
/// which count up from 0. Specialised beside each enumeration that has such texts.
template <typename Enum>
inline constexpr std::array<std::string_view, 0> rawValues{};

/// An enumeration with raw values.
template <typename Enum>
concept RawRepresentable = std::is_enum_v<Enum> && (std::size(rawValues<Enum>) > 0);

/// The text that stands for the case.
template <RawRepresentable Enum>
constexpr std::string_view rawValue(Enum value) {
    return rawValues<Enum>[static_cast<std::size_t>(value)];
}

/// The case that the text stands for, letter case and all; absent for any other text.
template <RawRepresentable Enum>
constexpr std::optional<Enum> fromRawValue(std::string_view text) {
    for (std::size_t i = 0; i < std::size(rawValues<Enum>); ++i) {
        if (rawValues<Enum>[i] == text)
            return static_cast<Enum>(i);
    }
    return std::nullopt;
}

/// Every case in order.
template <RawRepresentable Enum>
constexpr auto allCases() {
    std::array<Enum, std::size(rawValues<Enum>)> cases{};
    for (std::size_t i = 0; i < cases.size(); ++i)
        cases[i] = static_cast<Enum>(i);
    return cases;
}

} // namespace quorvel
