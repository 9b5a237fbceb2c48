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

std::string_view JSONValue::string() const {
    return orMismatch(asString(), "a string");
}

double JSONValue::number() const {
    return orMismatch(asDouble(), "a number within a double's range");
}

bool JSONValue::boolean() const {
    const bool isTrue = is("true");
    return orMismatch(isTrue || is("false") ? std::optional(isTrue) : std::nullopt,
                      "true or false");
}

std::string_view JSONValue::digits() const {
    return orMismatch(isNumber() ? std::optional(tokens_->number(token_)) : std::nullopt,
                      "a number");
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
