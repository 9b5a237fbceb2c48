// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/JSON/DecodingError.h"
#include "Platform/JSON/JSONTokens.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace platform {

/// One value inside a document that `decodeJSON` is reading: a place, not a copy.
///
/// Cheap to copy; may be read any number of times and in any order while `decodeJSON` runs, and on
/// its thread; so may the string views that it gives. Getters come in two kinds: `as...` gives no
/// value where the type is another one, the plain ones throw `DecodingError` there. A document that
/// turns out not to be well-formed throws from whatever met the fault.
class JSONValue {
public:
    JSONValue(JSONTokens& tokens, JSONTokens::Position token, int depth)
        : tokens_(&tokens), token_(token), depth_(depth) {}

    /// The text of a string in UTF-8, escapes resolved.
    std::optional<std::string_view> asString() const {
        if (tokens_->initial(token_) != '"')
            return std::nullopt;
        return tokens_->string(token_);
    }

    /// A number that is written without a fraction, is whole and fits 64 bits: `12`, `12e2`,
    /// `1200e-2`; not `12.0`.
    std::optional<std::int64_t> asInteger() const;

    /// The double nearest to a number; absent where the number overflows or underflows.
    std::optional<double> asDouble() const;

    bool isObject() const { return tokens_->initial(token_) == '{'; }
    bool isArray() const { return tokens_->initial(token_) == '['; }

    std::string_view string() const;
    double number() const;
    bool boolean() const;

    /// A number as the document writes it, in JSON's grammar.
    std::string_view digits() const;

    /// Calls `visit(std::string_view key, JSONValue value)` for each member in the document's
    /// order, duplicate keys included. What the visitor leaves unread is checked all the same.
    /// @returns false, without a call, for a value that is not an object
    template <typename Visit>
    bool forEachMember(Visit&& visit) const {
        if (!isObject())
            return false;
        auto object = tokens_->enter(token_, depth_);
        while (tokens_->nextMember(object))
            visit(object.key, JSONValue(*tokens_, object.child, object.depth));
        return true;
    }

    /// Calls `visit(JSONValue element)` for each element in order.
    /// @returns false, without a call, for a value that is not an array
    template <typename Visit>
    bool forEachElement(Visit&& visit) const {
        if (!isArray())
            return false;
        auto array = tokens_->enter(token_, depth_);
        while (tokens_->nextElement(array))
            visit(JSONValue(*tokens_, array.child, array.depth));
        return true;
    }

    /// The member with that key, the last one where several have it; absent when there is none.
    /// Walks the whole object: for small ones. Throws for a value that is not an object.
    std::optional<JSONValue> member(std::string_view key) const;

    /// What `decode(JSONValue)`, or a getter such as `&JSONValue::number`, makes of the member
    /// with that key. Throws when there is none; errors that leave `decode` get the key in front of
    /// their coding path.
    template <typename Decode>
    auto required(std::string_view key, Decode&& decode) const {
        return decodeAt(key, requiredMember(key), std::forward<Decode>(decode));
    }

    /// As `required`, but absent when the member is absent or null.
    template <typename Decode>
    auto optional(std::string_view key, Decode&& decode) const
        -> std::optional<std::invoke_result_t<Decode&, JSONValue>> {
        const auto found = member(key);
        if (!found || found->is("null"))
            return std::nullopt;
        return decodeAt(key, *found, std::forward<Decode>(decode));
    }

private:
    template <typename Decode>
    static auto decodeAt(std::string_view key, JSONValue value, Decode&& decode) {
        try {
            return std::invoke(decode, value);
        } catch (DecodingError& error) {
            error.prependToPath(key);
            throw;
        }
    }

    JSONValue requiredMember(std::string_view key) const;
    bool is(std::string_view literal) const { return tokens_->isLiteral(token_, literal); }
    bool isNumber() const {
        const char c = tokens_->initial(token_);
        return c == '-' || (c >= '0' && c <= '9');
    }

    JSONTokens* tokens_;
    JSONTokens::Position token_;
    int depth_; ///< of what holds this value
};

} // namespace platform
