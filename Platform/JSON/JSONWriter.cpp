// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONWriter.h"

#include "Platform/JSON/JSONText.h"

#include <QString>
#include <QUtf8StringView>

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace platform {

namespace {

/// The letter behind the backslash where JSON has a short escape; NUL where it has none.
char shortEscape(char c) {
    switch (c) {
    case '"':
    case '\\':
        return c;
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    default:
        return '\0';
    }
}

bool needsEscape(char c) {
    return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20;
}

void appendEscape(std::string& out, char c) {
    if (const char letter = shortEscape(c)) {
        out += '\\';
        out += letter;
        return;
    }
    constexpr std::string_view hexDigits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    out += "\\u00";
    out += hexDigits[code >> 4];
    out += hexDigits[code & 15];
}

} // namespace

JSONWriter& JSONWriter::key(std::string_view key) {
    separate();
    quote(key);
    text_ += ':';
    needsComma_ = false;
    return *this;
}

JSONWriter& JSONWriter::string(std::string_view text) {
    separate();
    quote(text);
    needsComma_ = true;
    return *this;
}

JSONWriter& JSONWriter::integer(std::int64_t value) {
    return raw(std::to_string(value));
}

JSONWriter& JSONWriter::number(double value) {
    if (!std::isfinite(value))
        throw std::invalid_argument("A number that is not finite has no JSON form.");
    // The longest are the smallest denormals: 1074 places and what stands before them.
    std::array<char, 1100> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed);
    return raw({buffer.data(), result.ptr});
}

JSONWriter& JSONWriter::digits(std::string_view digits) {
    assert(jsontext::isNumber(digits));
    return raw(digits);
}

JSONWriter& JSONWriter::boolean(bool value) {
    return raw(value ? "true" : "false");
}

JSONWriter& JSONWriter::null() {
    return raw("null");
}

JSONWriter& JSONWriter::open(char bracket) {
    separate();
    text_ += bracket;
    needsComma_ = false;
    return *this;
}

JSONWriter& JSONWriter::close(char bracket) {
    text_ += bracket;
    needsComma_ = true;
    return *this;
}

JSONWriter& JSONWriter::raw(std::string_view token) {
    separate();
    text_ += token;
    needsComma_ = true;
    return *this;
}

void JSONWriter::separate() {
    if (needsComma_)
        text_ += ',';
}

void JSONWriter::quote(std::string_view text) {
    const QUtf8StringView utf8(text.data(), static_cast<qsizetype>(text.size()));
    if (!utf8.isValidUtf8())
        return quote(QString::fromUtf8(text.data(), utf8.size()).toStdString());
    text_ += '"';
    for (const char c : text) {
        if (needsEscape(c))
            appendEscape(text_, c);
        else
            text_ += c;
    }
    text_ += '"';
}

} // namespace platform
