// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONValue.h"

#include "Platform/JSON/JSONText.h"

namespace platform {

namespace {

template <typename Value>
Value orMismatch(std::optional<Value> value, const char* expected) {
    if (!value)
        throw DecodingError(DecodingError::Kind::typeMismatch,
                            std::string("Expected ") + expected + '.');
    return *value;
}

} // namespace

std::optional<std::int64_t> JSONValue::asInteger() const {
    if (!isNumber())
        return std::nullopt;
    return jsontext::integer(tokens_->number(token_));
}

std::optional<double> JSONValue::asDouble() const {
    if (!isNumber())
        return std::nullopt;
    return jsontext::nearestDouble(tokens_->number(token_));
}

std::optional<std::string_view> JSONValue::asDigits() const {
    if (!isNumber())
        return std::nullopt;
    return tokens_->number(token_);
}

std::optional<bool> JSONValue::asBool() const {
    const char c = tokens_->initial(token_);
    if (c == 't' && tokens_->isLiteral(token_, "true"))
        return true;
    if (c == 'f' && tokens_->isLiteral(token_, "false"))
        return false;
    return std::nullopt;
}

bool JSONValue::isNull() const {
    return tokens_->initial(token_) == 'n' && tokens_->isLiteral(token_, "null");
}

std::string_view JSONValue::string() const {
    return orMismatch(asString(), "a string");
}

std::int64_t JSONValue::integer() const {
    return orMismatch(asInteger(), "a whole number of at most 64 bits");
}

double JSONValue::number() const {
    return orMismatch(asDouble(), "a number within a double's range");
}

std::string_view JSONValue::digits() const {
    return orMismatch(asDigits(), "a number");
}

bool JSONValue::boolean() const {
    return orMismatch(asBool(), "true or false");
}

std::optional<JSONValue> JSONValue::member(std::string_view key) const {
    std::optional<JSONValue> found;
    const bool isObject = forEachMember([&](std::string_view name, JSONValue value) {
        if (name == key)
            found = value;
    });
    if (!isObject)
        throw DecodingError(DecodingError::Kind::typeMismatch, "Expected an object.");
    return found;
}

JSONValue JSONValue::requiredMember(std::string_view key) const {
    const auto found = member(key);
    if (!found)
        throw DecodingError(DecodingError::Kind::keyNotFound,
                            "No value associated with key \"" + std::string(key) + "\".");
    return *found;
}

} // namespace platform
