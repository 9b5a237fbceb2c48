// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONText.h"

#include <charconv>
#include <cstring>

namespace platform::jsontext {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Whether all eight bytes are digits: their upper halves are 3, and still are with 6 added.
bool areDigits(std::uint64_t bytes) {
    constexpr std::uint64_t upperHalves = 0xF0F0F0F0F0F0F0F0;
    constexpr std::uint64_t sixes = 0x0606060606060606;
    constexpr std::uint64_t threes = 0x3030303030303030;
    return (bytes & upperHalves) == threes && ((bytes + sixes) & upperHalves) == threes;
}

const char* skipDigits(const char* at, const char* end) {
    for (std::uint64_t bytes = 0; end - at >= 8; at += 8) {
        std::memcpy(&bytes, at, sizeof bytes);
        if (!areDigits(bytes))
            break;
    }
    while (at != end && isDigit(*at))
        ++at;
    return at;
}

/// Four hexadecimal digits at `at`; absent when they are not all there.
std::optional<char32_t> hexUnit(std::string_view text, std::size_t at) {
    if (text.size() < at + 4)
        return std::nullopt;
    std::uint32_t unit = 0;
    const char* begin = text.data() + at;
    const auto [end, error] = std::from_chars(begin, begin + 4, unit, 16);
    // from_chars would take a minus sign, but not for an unsigned type.
    if (error != std::errc() || end != begin + 4)
        return std::nullopt;
    return char32_t{unit};
}

void appendUtf8(std::string& out, char32_t c) {
    const auto byte = [&out](char32_t bits) {
        out.push_back(static_cast<char>(static_cast<unsigned char>(bits)));
    };
    if (c < 0x80) {
        byte(c);
        return;
    }
    if (c < 0x800) {
        byte(0xC0 | (c >> 6));
    } else {
        if (c < 0x10000) {
            byte(0xE0 | (c >> 12));
        } else {
            byte(0xF0 | (c >> 18));
            byte(0x80 | ((c >> 12) & 0x3F));
        }
        byte(0x80 | ((c >> 6) & 0x3F));
    }
    byte(0x80 | (c & 0x3F));
}

struct Escape {
    char32_t character;
    std::size_t length; ///< of its text, the backslash included
};

std::optional<Escape> unicodeEscape(std::string_view text, std::size_t at) {
    const auto unit = hexUnit(text, at + 2);
    if (!unit || (*unit >= 0xDC00 && *unit <= 0xDFFF))
        return std::nullopt;
    if (*unit < 0xD800 || *unit > 0xDBFF)
        return Escape{*unit, 6};
    if (text.substr(at + 6, 2) != "\\u")
        return std::nullopt;
    const auto low = hexUnit(text, at + 8);
    if (!low || *low < 0xDC00 || *low > 0xDFFF)
        return std::nullopt;
    return Escape{0x10000 + ((*unit - 0xD800) << 10) + (*low - 0xDC00), 12};
}

/// The escape whose backslash is at `at`.
std::optional<Escape> escapeAt(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size())
        return std::nullopt;
    switch (text[at + 1]) {
    case '"':
    case '\\':
    case '/':
        return Escape{static_cast<unsigned char>(text[at + 1]), 2};
    case 'b':
        return Escape{U'\b', 2};
    case 'f':
        return Escape{U'\f', 2};
    case 'n':
        return Escape{U'\n', 2};
    case 'r':
        return Escape{U'\r', 2};
    case 't':
        return Escape{U'\t', 2};
    case 'u':
        return unicodeEscape(text, at);
    default:
        return std::nullopt;
    }
}

} // namespace

bool isNumber(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    if (at != end && *at == '-')
        ++at;
    const char* const whole = at;
    at = skipDigits(at, end);
    if (at == whole || (*whole == '0' && at != whole + 1))
        return false;
    if (at == end)
        return true;
    if (*at == '.') {
        const char* const fraction = ++at;
        at = skipDigits(at, end);
        if (at == fraction)
            return false;
    }
    if (at == end)
        return true;
    if (*at != 'e' && *at != 'E')
        return false;
    ++at;
    if (at != end && (*at == '+' || *at == '-'))
        ++at;
    const char* const exponent = at;
    return exponent != end && skipDigits(exponent, end) == end;
}

std::optional<std::string> unescape(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0;;) {
        const std::size_t backslash = text.find('\\', at);
        result += text.substr(at, backslash - at);
        if (backslash == std::string_view::npos)
            return result;
        const auto escape = escapeAt(text, backslash);
        if (!escape)
            return std::nullopt;
        appendUtf8(result, escape->character);
        at = backslash + escape->length;
    }
}

std::optional<std::int64_t> integer(std::string_view number) {
    std::int64_t value = 0;
    const char* const end = number.data() + number.size();
    const auto mantissa = std::from_chars(number.data(), end, value);
    if (mantissa.ec != std::errc())
        return std::nullopt;
    if (mantissa.ptr == end || (value == 0 && *mantissa.ptr != '.'))
        return value;
    // What stops the digits is a point, or an "e" with a sign or none.
    const char* const sign = mantissa.ptr + 1;
    std::int64_t exponent = 0;
    const auto [rest, error] = std::from_chars(*sign == '+' ? sign + 1 : sign, end, exponent);
    if (*mantissa.ptr == '.' || error != std::errc())
        return std::nullopt;
    for (; exponent > 0; --exponent) {
        if (__builtin_mul_overflow(value, std::int64_t{10}, &value))
            return std::nullopt;
    }
    for (; exponent < 0; ++exponent) {
        if (value % 10 != 0)
            return std::nullopt;
        value /= 10;
    }
    return value;
}

std::optional<double> nearestDouble(std::string_view number) {
    double value = 0;
    const char* const end = number.data() + number.size();
    const auto [rest, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc() || rest != end)
        return std::nullopt;
    return value;
}

} // namespace platform::jsontext
