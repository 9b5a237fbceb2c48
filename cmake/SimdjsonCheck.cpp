// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

// Run at configure time: ends with 0 when simdjson's indexer lists the places that the JSON reader
// relies on, and refuses what the reader leaves to it.
#include <simdjson.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace {

constexpr std::size_t capacity = 4096;

char buffer[capacity + simdjson::SIMDJSON_PADDING];
std::unique_ptr<simdjson::internal::dom_parser_implementation> indexer;

bool indexes(std::string_view document) {
    std::memset(buffer, 0, sizeof buffer);
    std::memcpy(buffer, document.data(), document.size());
    return indexer->stage1(reinterpret_cast<const std::uint8_t*>(buffer), document.size(),
                           simdjson::stage1_mode::regular) == simdjson::SUCCESS;
}

/// Whether every token begins where `marks` has a caret, and the document's size closes the list.
bool findsTokens(std::string_view document, std::string_view marks) {
    if (!indexes(document))
        return false;
    std::size_t count = 0;
    for (std::size_t at = 0; at < marks.size(); ++at) {
        if (marks[at] == '^' &&
            (count == indexer->n_structural_indexes || indexer->structural_indexes[count++] != at))
            return false;
    }
    return count == indexer->n_structural_indexes &&
           indexer->structural_indexes[count] == document.size();
}

} // namespace

int main() {
    if (simdjson::get_active_implementation()->create_dom_parser_implementation(capacity, 512,
                                                                                indexer))
        return 1;
    const bool isSound = findsTokens(R"({"a\"[":[1,-2.5 , tru]} x)", //
                                     R"(^^     ^^^^^    ^ ^  ^^ ^)") &&
                         findsTokens("1\r", "^") && findsTokens("[1\r\n,\t2]", "^^  ^ ^^") &&
                         !indexes("[\"open]") && !indexes("\"a\nb\"") && !indexes("\"\xC3\"") &&
                         !indexes("");
    return isSound ? 0 : 1;
}
