// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Writes one JSON document without white space, members in the order of the calls.
///
/// Commas and colons are its own business; that objects and arrays are closed and that each member
/// has a key is the caller's.
class JSONWriter {
public:
    JSONWriter& beginObject() { return open('{'); }
    JSONWriter& endObject() { return close('}'); }
    JSONWriter& beginArray() { return open('['); }
    JSONWriter& endArray() { return close(']'); }

    /// The key of the member whose value is written next.
    JSONWriter& key(std::string_view key);

    /// @param text in UTF-8; what is not becomes U+FFFD
    JSONWriter& string(std::string_view text);
    JSONWriter& integer(std::int64_t value);

    /// The shortest digits that read back as the same double, never with an exponent.
    /// @throws std::invalid_argument for an infinite value or not-a-number, which JSON cannot write
    JSONWriter& number(double value);

    /// A number as given; `digits` must be in JSON's grammar of numbers.
    JSONWriter& digits(std::string_view digits);
    JSONWriter& boolean(bool value) { return raw(value ? "true" : "false"); }

    /// The document so far.
    const std::string& text() const { return text_; }

private:
    JSONWriter& open(char bracket);
    JSONWriter& close(char bracket);
    JSONWriter& raw(std::string_view token);
    void separate();
    void quote(std::string_view text);

    std::string text_;
    bool needsComma_ = false;
};

} // namespace platform
