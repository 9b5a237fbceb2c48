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

void append(std::string& out, char c) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20) {
        constexpr std::string_view hexDigits = "0123456789abcdef";
        out += {'\\', 'u', '0', '0', hexDigits[code >> 4], hexDigits[code & 15]};
        return;
    }
    if (c == '"' || c == '\\')
        out += '\\';
    out += c;
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
    for (const char c : text)
        append(text_, c);
    text_ += '"';
}

} // namespace platform
