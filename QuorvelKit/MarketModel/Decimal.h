// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// What becomes of a value that lies exactly between two neighbours.
enum class RoundingMode { halfToEven, halfAwayFromZero };

/// An exact base-10 number: up to 38 decimal digits times a power of ten. Prices, changes and
/// thresholds are held in it.
///
/// A plain value without heap. Every value has one representation (no zeros at the end of the
/// mantissa, zero has no sign), so equality is numeric: 1.10 equals 1.1, and -0 is 0.
class Decimal {
public:
    /// The widest unsigned integer of the compilers this is built with; holds every 38-digit
    /// number.
    __extension__ using Mantissa = unsigned __int128;

    static constexpr int maximumDigits = 38;
    static constexpr int minimumExponent = -128;
    static constexpr int maximumExponent = 127;

    /// Zero.
    constexpr Decimal() = default;
    Decimal(std::int64_t value); // NOLINT(google-explicit-constructor): a whole number is a decimal

    /// Parses a number received as text: blanks and tabs around it are trimmed, the rest must match
    /// `-?\d+(\.\d+)?([eE][-+]?\d+)?` as a whole, in ASCII digits.
    ///
    /// More than 38 significant digits are rounded half to even. Absent when the text does not
    /// match, and when the power of ten that scales the digits lies outside -128...127.
    static std::optional<Decimal> fromAPIString(std::string_view text);

    /// Parses a number as JSON writes it, by the same rules; nothing is trimmed.
    static std::optional<Decimal> fromJSONNumber(std::string_view digits);

    bool isZero() const { return mantissa_ == 0; }
    bool isNegative() const { return isNegative_; }

    Decimal magnitude() const;

    /// The difference, rounded half to even to 38 digits.
    friend Decimal operator-(const Decimal& left, const Decimal& right);

    /// Numeric; exact over the whole range.
    friend bool operator==(const Decimal&, const Decimal&) = default;
    friend std::strong_ordering operator<=>(const Decimal& left, const Decimal& right);

    /// The value with at most `decimals` digits after the point; `decimals` is not negative.
    Decimal rounded(int decimals, RoundingMode mode) const;

    /// The value with at most `digits` significant digits, rounded half to even; `digits` is at
    /// least 1.
    Decimal roundedToSignificantDigits(int digits) const;

    /// The quotient of the nearest doubles, good to about 16 digits. A divisor of zero gives what
    /// binary floating point gives: an infinity, or not-a-number for zero by zero.
    static double quotient(const Decimal& dividend, const Decimal& divisor);

    /// All digits, "-" in front of a negative value, never an exponent or grouping.
    /// @param decimals at least so many digits after the point, filled up with zeros
    std::string plainText(int decimals = 0) const;

    std::size_t hash() const { return std::hash<double>()(nearestDouble()); }

private:
    Decimal(Mantissa mantissa, int exponent, bool isNegative);

    static std::optional<Decimal> fromDigits(std::string_view whole, std::string_view fraction,
                                             std::int64_t exponent, bool isNegative);
    static Decimal combined(const Decimal& first, const Decimal& second, int sign, bool isNegative);
    static std::strong_ordering compareMagnitudes(const Decimal& left, const Decimal& right);

    int digitCount() const;
    /// The place in front of the first digit, as a power of ten: 3 for 123.4. Not for zero.
    int adjustedExponent() const { return digitCount() + exponent_; }
    Decimal withoutLastDigits(int count, RoundingMode mode) const;
    double nearestDouble() const;

    Mantissa mantissa_ = 0;
    std::int16_t exponent_ = 0;
    bool isNegative_ = false;
};

} // namespace quorvel
