// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONTokens.h"

#include "Platform/JSON/DecodingError.h"
#include "Platform/JSON/JSONText.h"

#include <bitset>
#include <cstring>
#include <utility>

namespace platform {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

/// The kinds of the containers that are open while a value is stepped over.
struct OpenContainers {
    std::bitset<JSONTokens::depthLimit> areObjects;
    std::size_t count = 0;

    bool topIsObject() const { return areObjects[count - 1]; }
};

} // namespace

[[gnu::cold]] void JSONTokens::fail(const char* what) {
    throw DecodingError(DecodingError::Kind::dataCorrupted, what);
}

JSONTokens::JSONTokens(std::string_view bytes, Position first, std::size_t count)
    : bytes_(bytes.data()),
      first_(first),
      last_(first + count),
      // One look at the whole document spares one for each string.
      hasEscapes_(std::memchr(bytes.data(), '\\', bytes.size()) != nullptr) {}

void JSONTokens::finish() {
    if (endOf(first_, 0) != last_)
        fail("Text follows the document's value.");
}

std::string_view JSONTokens::text(Position token) const {
    const std::size_t begin = *token;
    std::size_t end = *(token + 1);
    while (isSpace(bytes_[end - 1]))
        --end;
    return {bytes_ + begin, end - begin};
}

std::string_view JSONTokens::written(Position token) const {
    const std::string_view quoted = text(token);
    if (quoted.size() < 2 || quoted.back() != '"')
        fail("A string does not end.");
    return quoted.substr(1, quoted.size() - 2);
}

std::string JSONTokens::unescaped(std::string_view written) {
    auto result = jsontext::unescape(written);
    if (!result)
        fail("A string holds an invalid escape.");
    return std::move(*result);
}

std::string_view JSONTokens::unusualString(Position token) {
    const std::string_view content = written(token);
    return content.contains('\\') ? unescaped_.emplace_front(unescaped(content)) : content;
}

std::string_view JSONTokens::number(Position token) const {
    const std::string_view digits = text(token);
    if (!jsontext::isNumber(digits))
        fail("A number is malformed.");
    return digits;
}

JSONTokens::Container JSONTokens::enter(Position opening, int depth) const {
    if (depth >= depthLimit)
        fail("The document nests too deeply.");
    return {opening, opening, depth + 1, {}};
}

JSONTokens::Position JSONTokens::endOfUnusual(Position value, int depth) const {
    const char c = initial(value);
    if (c != '{' && c != '[') {
        checkScalar(value);
        return value + 1;
    }
    return value == closedStart_ ? closedEnd_ : endOfContainer(value, depth);
}

JSONTokens::Position JSONTokens::endOfContainer(Position opening, int depth) const {
    OpenContainers open;
    Position at = opening;
    do {
        const char c = initial(at);
        if (c != '{' && c != '[') {
            checkScalar(at);
            at = afterValue(open, at + 1);
            continue;
        }
        if (static_cast<std::size_t>(depth) + open.count >= depthLimit)
            fail("The document nests too deeply.");
        const bool isObject = c == '{';
        open.areObjects[open.count++] = isObject;
        ++at;
        if (initial(at) == (isObject ? '}' : ']'))
            at = afterValue(open, at);
        else if (isObject)
            at = afterKey(at);
    } while (open.count > 0);
    return at;
}

template <typename Containers>
JSONTokens::Position JSONTokens::afterValue(Containers& open, Position at) const {
    while (open.count > 0) {
        const char c = initial(at);
        if (c == ',')
            return open.topIsObject() ? afterKey(at + 1) : at + 1;
        if (c != (open.topIsObject() ? '}' : ']'))
            fail("A value is followed by neither a comma nor the end of what holds it.");
        --open.count;
        ++at;
    }
    return at;
}

JSONTokens::Position JSONTokens::afterKey(Position key) const {
    if (initial(key) != '"')
        fail("An object's key is not a string.");
    checkString(key);
    if (initial(key + 1) != ':')
        fail("An object's key is not followed by a colon.");
    return key + 2;
}

void JSONTokens::checkScalar(Position token) const {
    const char c = initial(token);
    if (c == '"')
        return checkString(token);
    if (c == '-' || (c >= '0' && c <= '9')) {
        number(token);
        return;
    }
    if (!isLiteral(token, "true") && !isLiteral(token, "false") && !isLiteral(token, "null"))
        fail("A value is missing or malformed.");
}

void JSONTokens::checkString(Position token) const {
    if (isPlainString(token))
        return;
    if (const auto content = written(token); content.contains('\\'))
        unescaped(content);
}

} // namespace platform
