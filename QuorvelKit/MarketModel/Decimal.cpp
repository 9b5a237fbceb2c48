// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketModel/Decimal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <charconv>
#include <utility>

namespace quorvel {

namespace {

using Mantissa = Decimal::Mantissa;

/// 10^0 to 10^38; the next power does not fit.
constexpr auto powersOfTen = [] {
    std::array<Mantissa, Decimal::maximumDigits + 1> powers{};
    Mantissa power = 1;
    for (Mantissa& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

Mantissa powerOfTen(int exponent) {
    return powersOfTen[static_cast<std::size_t>(exponent)];
}

std::uint64_t highHalf(Mantissa value) {
    return static_cast<std::uint64_t>(value >> 64);
}
std::uint64_t lowHalf(Mantissa value) {
    return static_cast<std::uint64_t>(value);
}

int bitCount(Mantissa value) {
    const int leadingZeros = highHalf(value) != 0 ? std::countl_zero(highHalf(value))
                                                  : 64 + std::countl_zero(lowHalf(value));
    return 128 - leadingZeros;
}

/// Decimal digits of a value; 0 has none.
int countDigits(Mantissa value) {
    // 1233 / 4096 approximates log10(2) closely enough for 128 bits.
    const int estimate = bitCount(value) * 1233 / 4096;
    return estimate + (value >= powerOfTen(estimate) ? 1 : 0);
}

/// Whether to go up, with `rest` of `divisor` cut off and, if `hasMore`, something behind that too.
bool roundsUp(Mantissa kept, Mantissa rest, Mantissa divisor, bool hasMore, RoundingMode mode) {
    const Mantissa half = divisor / 2;
    if (rest != half || hasMore)
        return rest >= half;
    return mode == RoundingMode::halfAwayFromZero || kept % 2 != 0;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

/// A number's text taken apart. The digits in front of and behind the point, sign and exponent.
struct NumberText {
    std::string_view whole;
    std::string_view fraction;
    std::int64_t exponent = 0;
    bool isNegative = false;
};

/// Takes the digits at the front off `text`.
std::string_view takeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count]))
        ++count;
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

bool take(std::string_view& text, char c) {
    if (!text.starts_with(c))
        return false;
    text.remove_prefix(1);
    return true;
}

/// Reads `[-+]?\d+` to the end of `text`. Values are cut off where no text is long enough for its
/// digits to make up for the exponent.
std::optional<std::int64_t> exponentValue(std::string_view text) {
    constexpr std::int64_t cutOff = 1'000'000'000'000'000;
    const bool isNegative = take(text, '-');
    if (!isNegative)
        take(text, '+');
    if (text.empty())
        return std::nullopt;
    std::int64_t value = 0;
    for (const char c : text) {
        if (!isDigit(c))
            return std::nullopt;
        value = std::min(value * 10 + (c - '0'), cutOff);
    }
    return isNegative ? -value : value;
}

std::optional<NumberText> takeApart(std::string_view text) {
    NumberText number;
    number.isNegative = take(text, '-');
    number.whole = takeDigits(text);
    if (number.whole.empty())
        return std::nullopt;
    if (take(text, '.')) {
        number.fraction = takeDigits(text);
        if (number.fraction.empty())
            return std::nullopt;
    }
    if (text.empty())
        return number;
    if (!take(text, 'e') && !take(text, 'E'))
        return std::nullopt;
    const auto exponent = exponentValue(text);
    if (!exponent)
        return std::nullopt;
    number.exponent = *exponent;
    return number;
}

void dropLeadingZeros(std::string_view& digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
}

/// @returns how many there were
std::int64_t dropTrailingZeros(std::string_view& digits) {
    const std::size_t count = digits.size() - (digits.find_last_not_of('0') + 1);
    digits.remove_suffix(count);
    return static_cast<std::int64_t>(count);
}

template <typename Unsigned>
Unsigned appended(Unsigned value, std::string_view digits) {
    for (const char c : digits)
        value = value * 10 + static_cast<unsigned>(c - '0');
    return value;
}

/// The value of at most 38 digits that stand in two pieces.
Mantissa valueOf(std::string_view first, std::string_view second) {
    constexpr std::size_t digitsOf64Bits = 19;
    if (first.size() + second.size() <= digitsOf64Bits)
        return appended(appended(std::uint64_t{0}, first), second);
    return appended(appended(Mantissa{0}, first), second);
}

/// The first 38 digits rounded by those behind them.
Mantissa roundedValueOf(std::string_view first, std::string_view second) {
    constexpr std::size_t kept = Decimal::maximumDigits;
    const std::size_t fromFirst = std::min(first.size(), kept);
    const std::string_view secondKept = second.substr(0, kept - fromFirst);
    const Mantissa value = valueOf(first.substr(0, fromFirst), secondKept);
    first.remove_prefix(fromFirst);
    second.remove_prefix(secondKept.size());
    std::string_view& next = first.empty() ? second : first;
    const auto digit = static_cast<unsigned>(next.front() - '0');
    next.remove_prefix(1);
    const auto isPositive = [](std::string_view digits) {
        return digits.find_first_not_of('0') != std::string_view::npos;
    };
    const bool hasMore = isPositive(first) || isPositive(second);
    return value + (roundsUp(value, digit, 10, hasMore, RoundingMode::halfToEven) ? 1 : 0);
}

/// A value's digits; none for 0.
std::string digitsOf(Mantissa value) {
    std::array<char, Decimal::maximumDigits + 1> buffer{};
    char* begin = buffer.data() + buffer.size();
    for (; value != 0; value /= 10)
        *--begin = static_cast<char>('0' + static_cast<int>(value % 10));
    return {begin, buffer.data() + buffer.size()};
}

/// The value's digits from the place 10^`top` - 1 down to the place 10^`bottom`.
std::string digitRow(Mantissa mantissa, int exponent, int top, int bottom) {
    std::string row = digitsOf(mantissa);
    row.append(static_cast<std::size_t>(exponent - bottom), '0');
    row.insert(0, static_cast<std::size_t>(top - bottom) - row.size(), '0');
    return row;
}

/// Adds, or with `sign` -1 subtracts, the second row of digits to the first, both of one length.
std::string combineRows(std::string first, const std::string& second, int sign) {
    int carry = 0;
    for (std::size_t at = first.size(); at-- > 0;) {
        const int sum = (first[at] - '0') + sign * (second[at] - '0') + carry;
        carry = sum < 0 ? -1 : sum / 10;
        first[at] = static_cast<char>('0' + (sum - carry * 10));
    }
    return first;
}

} // namespace

Decimal::Decimal(std::int64_t value)
    : Decimal(value < 0 ? -static_cast<Mantissa>(value) : static_cast<Mantissa>(value), 0,
              value < 0) {}

Decimal::Decimal(Mantissa mantissa, int exponent, bool isNegative) {
    if (mantissa == 0)
        return;
    while (highHalf(mantissa) != 0 && mantissa % 10 == 0) {
        mantissa /= 10;
        ++exponent;
    }
    if (highHalf(mantissa) == 0) {
        std::uint64_t small = lowHalf(mantissa);
        for (; small % 10 == 0; small /= 10)
            ++exponent;
        mantissa = small;
    }
    mantissa_ = mantissa;
    exponent_ = static_cast<std::int16_t>(exponent);
    isNegative_ = isNegative;
}

std::optional<Decimal> Decimal::fromAPIString(std::string_view text) {
    return fromJSONNumber(trimmed(text));
}

std::optional<Decimal> Decimal::fromJSONNumber(std::string_view digits) {
    const auto number = takeApart(digits);
    if (!number)
        return std::nullopt;
    return fromDigits(number->whole, number->fraction, number->exponent, number->isNegative);
}

std::optional<Decimal> Decimal::fromDigits(std::string_view whole, std::string_view fraction,
                                           std::int64_t exponent, bool isNegative) {
    exponent -= std::ssize(fraction);
    dropLeadingZeros(whole);
    if (whole.empty())
        dropLeadingZeros(fraction);
    const auto excess = [&] { return std::ssize(whole) + std::ssize(fraction) - maximumDigits; };
    if (whole.empty() && fraction.empty())
        return Decimal();
    if (exponent + std::max<std::int64_t>(excess(), 0) > maximumExponent)
        return std::nullopt;

    exponent += dropTrailingZeros(fraction);
    if (fraction.empty())
        exponent += dropTrailingZeros(whole);
    const std::int64_t dropped = std::max<std::int64_t>(excess(), 0);
    exponent += dropped;
    if (exponent < minimumExponent)
        return std::nullopt;
    const Decimal result(dropped > 0 ? roundedValueOf(whole, fraction) : valueOf(whole, fraction),
                         static_cast<int>(exponent), isNegative);
    // Rounding up to the next power of ten may have left the range.
    if (result.adjustedExponent() > maximumExponent + maximumDigits)
        return std::nullopt;
    return result;
}

Decimal Decimal::magnitude() const {
    Decimal result = *this;
    result.isNegative_ = false;
    return result;
}

Decimal operator-(const Decimal& left, const Decimal& right) {
    if (left.isNegative_ != right.isNegative_)
        return Decimal::combined(left, right, 1,
                                 left.isZero() ? !right.isNegative_ : left.isNegative_);
    if (Decimal::compareMagnitudes(left, right) >= 0)
        return Decimal::combined(left, right, -1, left.isNegative_);
    return Decimal::combined(right, left, -1, !left.isNegative_);
}

/// |first| + sign * |second|, of which the result is not negative, given the sign `isNegative`.
Decimal Decimal::combined(const Decimal& first, const Decimal& second, int sign, bool isNegative) {
    if (second.isZero())
        return Decimal(first.mantissa_, first.exponent_, isNegative);
    if (first.isZero())
        return Decimal(second.mantissa_, second.exponent_, isNegative);
    const int bottom = std::min(first.exponent_, second.exponent_);
    const int top = std::max(first.adjustedExponent(), second.adjustedExponent());
    if (top - bottom <= maximumDigits) {
        const Mantissa large = first.mantissa_ * powerOfTen(first.exponent_ - bottom);
        const Mantissa small = second.mantissa_ * powerOfTen(second.exponent_ - bottom);
        return Decimal(sign > 0 ? large + small : large - small, bottom, isNegative)
            .roundedToSignificantDigits(maximumDigits);
    }
    // Too far apart for 128 bits: digit by digit, with room for a carry.
    const std::string row =
        combineRows(digitRow(first.mantissa_, first.exponent_, top + 1, bottom),
                    digitRow(second.mantissa_, second.exponent_, top + 1, bottom), sign);
    std::string_view digits = row;
    dropLeadingZeros(digits);
    const int dropped = std::max(static_cast<int>(digits.size()) - maximumDigits, 0);
    return Decimal(dropped > 0 ? roundedValueOf(digits, {}) : valueOf(digits, {}), bottom + dropped,
                   isNegative);
}

std::strong_ordering operator<=>(const Decimal& left, const Decimal& right) {
    if (left.isNegative_ != right.isNegative_)
        return left.isNegative_ ? std::strong_ordering::less : std::strong_ordering::greater;
    return left.isNegative_ ? Decimal::compareMagnitudes(right, left)
                            : Decimal::compareMagnitudes(left, right);
}

/// Aligning the mantissas outright would overflow, so the place of the first digit decides first;
/// where that is the same, the shorter mantissa is filled up to the length of the longer.
std::strong_ordering Decimal::compareMagnitudes(const Decimal& left, const Decimal& right) {
    if (left.isZero() || right.isZero())
        return !left.isZero() <=> !right.isZero();
    if (const auto order = left.adjustedExponent() <=> right.adjustedExponent(); order != 0)
        return order;
    const int difference = left.exponent_ - right.exponent_;
    if (difference >= 0)
        return left.mantissa_ * powerOfTen(difference) <=> right.mantissa_;
    return left.mantissa_ <=> right.mantissa_ * powerOfTen(-difference);
}

int Decimal::digitCount() const {
    return countDigits(mantissa_);
}

Decimal Decimal::rounded(int decimals, RoundingMode mode) const {
    return withoutLastDigits(-exponent_ - decimals, mode);
}

Decimal Decimal::roundedToSignificantDigits(int digits) const {
    return withoutLastDigits(digitCount() - digits, RoundingMode::halfToEven);
}

Decimal Decimal::withoutLastDigits(int count, RoundingMode mode) const {
    if (count <= 0)
        return *this;
    if (count > digitCount())
        return Decimal();
    const Mantissa divisor = powerOfTen(count);
    const Mantissa kept = mantissa_ / divisor;
    const bool up = roundsUp(kept, mantissa_ % divisor, divisor, false, mode);
    return Decimal(kept + (up ? 1 : 0), exponent_ + count, isNegative_);
}

double Decimal::nearestDouble() const {
    constexpr Mantissa firstInexact = Mantissa{1} << 53;
    constexpr int lastExactPower = 22;
    const int scale = std::abs(static_cast<int>(exponent_));
    double value = 0;
    if (mantissa_ <= firstInexact && scale <= lastExactPower) {
        // Both numbers are exact in binary, so one division or multiplication rounds correctly.
        const auto power = static_cast<double>(powerOfTen(scale));
        value = static_cast<double>(lowHalf(mantissa_));
        value = exponent_ < 0 ? value / power : value * power;
    } else {
        const std::string text = digitsOf(mantissa_) + 'e' + std::to_string(exponent_);
        std::from_chars(text.data(), text.data() + text.size(), value);
    }
    return isNegative_ ? -value : value;
}

double Decimal::quotient(const Decimal& dividend, const Decimal& divisor) {
    return dividend.nearestDouble() / divisor.nearestDouble();
}

std::string Decimal::plainText(int decimals) const {
    const int places = std::max(-exponent_, 0);
    const int wholeDigits = std::max(adjustedExponent(), 1);
    std::string text = digitRow(mantissa_, exponent_, wholeDigits, -places);
    if (const int shown = std::max(places, decimals); shown > 0) {
        text.insert(static_cast<std::size_t>(wholeDigits), 1, '.');
        text.append(static_cast<std::size_t>(shown - places), '0');
    }
    if (isNegative_)
        text.insert(0, 1, '-');
    return text;
}

} // namespace quorvel
