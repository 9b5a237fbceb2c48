// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <string>
#include <string_view>

namespace platform {

/// The tokens of one document, and the grammar over them. What `JSONValue` stands on; of no use
/// elsewhere.
///
/// A token is known by the place in the document where it begins. The places come from simdjson's
/// indexer, which has already refused invalid UTF-8, open strings and bare control characters;
/// everything else that JSON demands is checked here, token by token, whether anybody reads it or
/// not. All functions that meet a violation throw `DecodingError`. Not thread-safe.
class JSONTokens {
public:
    /// One place in the list of tokens.
    using Position = const std::uint32_t*;

    /// How deep arrays and objects may nest; the outermost one is level 1.
    static constexpr int depthLimit = 512;

    /// An object or array on the way from its opening to its closing token.
    struct Container {
        Position start;
        Position
            child; ///< the current member's value or element; before the first, the opening token
        int depth;
        std::string_view key; ///< of the current member
    };

    /// @param bytes followed by at least one NUL that is not part of the document
    /// @param first where the first token begins; `first[count]` must hold the document's size
    JSONTokens(std::string_view bytes, Position first, std::size_t count);
    JSONTokens(const JSONTokens&) = delete;
    JSONTokens& operator=(const JSONTokens&) = delete;

    Position first() const { return first_; }

    /// Checks all of the document that was not read, and that nothing follows its one value.
    void finish();

    /// The character that the token begins with; NUL behind the last token.
    char initial(Position token) const { return bytes_[*token]; }

    /// The token's text up to white space or the next token.
    std::string_view text(Position token) const;

    /// The text of a string token, unescaped. Lives as long as the tokens.
    std::string_view string(Position token);

    /// The text of a number token, checked against JSON's grammar of numbers.
    std::string_view number(Position token) const;

    /// Whether the token is exactly this literal name.
    bool isLiteral(Position token, std::string_view name) const {
        return initial(token) == name.front() && text(token) == name;
    }

    Container enter(Position opening, int depth) const;

    /// Steps to the next member; false behind the last one.
    bool nextMember(Container& object);

    /// Steps to the next element; false behind the last one.
    bool nextElement(Container& array);

private:
    /// Whether the text between the token and the next one is a string without escapes.
    bool isPlainString(Position token) const {
        return !hasEscapes_ && bytes_[*(token + 1) - 1] == '"' && *(token + 1) - *token >= 2;
    }
    /// What stands between a string's quotes.
    std::string_view written(Position token) const;
    static std::string unescaped(std::string_view written);
    std::string_view unusualString(Position token);
    Position endOf(Position value, int depth) const;
    Position endOfUnusual(Position value, int depth) const;
    Position endOfContainer(Position opening, int depth) const;
    bool close(const Container& container, Position closing);
    bool readKey(Container& object, Position key);
    Position afterKey(Position key) const;
    template <typename Containers>
    Position afterValue(Containers& open, Position at) const;
    void checkScalar(Position token) const;
    void checkString(Position token) const;
    [[noreturn]] static void fail(const char* what);

    const char* bytes_;
    Position first_;
    Position last_;
    bool hasEscapes_;
    /// The container that was read to its end last, so that stepping over it costs nothing.
    Position closedStart_ = nullptr;
    Position closedEnd_ = nullptr;
    std::forward_list<std::string> unescaped_;
};

// What runs for each token stands here, to be compiled into the loops that read documents.

[[gnu::always_inline]] inline std::string_view JSONTokens::string(Position token) {
    if (!isPlainString(token)) [[unlikely]]
        return unusualString(token);
    return {bytes_ + *token + 1, *(token + 1) - *token - 2};
}

[[gnu::always_inline]] inline JSONTokens::Position JSONTokens::endOf(Position value,
                                                                     int depth) const {
    if (initial(value) == '"' && isPlainString(value))
        return value + 1;
    return endOfUnusual(value, depth);
}

inline bool JSONTokens::close(const Container& container, Position closing) {
    closedStart_ = container.start;
    closedEnd_ = closing + 1;
    return false;
}

[[gnu::always_inline]] inline bool JSONTokens::readKey(Container& object, Position key) {
    if (initial(key) != '"') [[unlikely]]
        fail("An object's key is not a string.");
    object.key = string(key);
    if (initial(key + 1) != ':') [[unlikely]]
        fail("An object's key is not followed by a colon.");
    object.child = key + 2;
    return true;
}

[[gnu::always_inline]] inline bool JSONTokens::nextMember(Container& object) {
    if (object.child == object.start) {
        const Position key = object.start + 1;
        return initial(key) == '}' ? close(object, key) : readKey(object, key);
    }
    const Position end = endOf(object.child, object.depth);
    if (initial(end) == ',')
        return readKey(object, end + 1);
    if (initial(end) != '}') [[unlikely]]
        fail("An object's member is followed by neither a comma nor a brace.");
    return close(object, end);
}

inline bool JSONTokens::nextElement(Container& array) {
    if (array.child == array.start) {
        array.child = array.start + 1;
        return initial(array.child) == ']' ? close(array, array.child) : true;
    }
    const Position end = endOf(array.child, array.depth);
    array.child = end + 1;
    if (initial(end) == ',')
        return true;
    if (initial(end) != ']') [[unlikely]]
        fail("An array's element is followed by neither a comma nor a bracket.");
    return close(array, end);
}

} // namespace platform
