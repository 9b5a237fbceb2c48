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
    bool isLiteral(Position token, std::string_view name) const { return text(token) == name; }

    Container enter(Position opening, int depth) const;

    /// Steps to the next member; false behind the last one.
    bool nextMember(Container& object);

    /// Steps to the next element; false behind the last one.
    bool nextElement(Container& array);

private:
    bool isFirst(const Container& container) const { return container.child == container.start; }
    bool close(const Container& container, Position closing);
    void readKey(Container& object, Position key);
    Position endOf(Position value, int depth) const;
    Position endOfContainer(Position opening, int depth) const;
    Position afterKey(Position key) const;
    template <typename Containers>
    Position afterValue(Containers& open, Position at) const;
    void checkScalar(Position token) const;
    void checkString(Position token) const;

    const char* bytes_;
    Position first_;
    Position last_;
    bool hasEscapes_;
    /// The container that was read to its end last, so that stepping over it costs nothing.
    Position closedStart_ = nullptr;
    Position closedEnd_ = nullptr;
    std::forward_list<std::string> unescaped_;
};

} // namespace platform
