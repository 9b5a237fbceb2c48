// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/JSON/JSONValue.h"

#include <QByteArrayView>

#include <functional>
#include <memory>
#include <string_view>

namespace platform {

/// Reads one JSON document (RFC 8259, UTF-8 without a byte order mark) strictly.
///
/// simdjson finds the tokens; this class copies the bytes into a buffer with the padding that it
/// needs and keeps buffer and parser for the next document of the thread, unless they grew large.
/// Called through `decodeJSON`.
class JSONReader {
public:
    /// @throws DecodingError when the bytes cannot be cut into tokens
    explicit JSONReader(std::string_view bytes);
    JSONReader(const JSONReader&) = delete;
    JSONReader& operator=(const JSONReader&) = delete;
    ~JSONReader();

    JSONValue root() { return {tokens_, tokens_.first(), 0}; }

    /// Checks what was not read. @throws DecodingError when the document is not well-formed
    void finish() { tokens_.finish(); }

private:
    struct Workspace;

    static std::unique_ptr<Workspace>& spare();
    static std::unique_ptr<Workspace> prepare(std::string_view bytes);

    std::unique_ptr<Workspace> workspace_;
    JSONTokens tokens_;
};

/// What `decode(JSONValue)` makes of the document's value.
///
/// A document that is not well-formed is refused whole: the result is thrown away and a
/// `DecodingError` thrown, even when the fault lies in a part that `decode` never looked at. Where
/// an object repeats a key, the last one counts. Nesting beyond 512 levels is refused. Documents
/// may be decoded one inside another.
template <typename Decode>
auto decodeJSON(QByteArrayView bytes, Decode&& decode) {
    JSONReader reader({bytes.data(), static_cast<std::size_t>(bytes.size())});
    auto result = std::invoke(decode, reader.root());
    reader.finish();
    return result;
}

} // namespace platform
