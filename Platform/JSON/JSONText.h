// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The parts of JSON's grammar that lie inside one token.
namespace platform::jsontext {

/// Whether all of `text` is a number as RFC 8259 writes one.
bool isNumber(std::string_view text);

/// The text of a string without its quotes, escapes resolved; absent for an unknown escape and for
/// one half of a surrogate pair without the other.
std::optional<std::string> unescape(std::string_view text);

/// The value of a number that is written without a fraction and is whole: `12`, `12e2`, `1200e-2`,
/// but not `12.0`. Absent for any other number and for one beyond 64 bits.
std::optional<std::int64_t> integer(std::string_view number);

/// The nearest double; absent for a number that overflows or underflows.
std::optional<double> nearestDouble(std::string_view number);

} // namespace platform::jsontext
