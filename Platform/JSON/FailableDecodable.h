// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/JSON/JSONValue.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

/// One element of an array, decoded on its own, so that a damaged one does not spoil the rest.
template <typename T>
struct FailableDecodable {
    /// Absent when the element could not be decoded.
    std::optional<T> value;

    template <typename Decode>
    static FailableDecodable from(JSONValue element, Decode&& decode) {
        try {
            return {std::invoke(decode, element)};
        } catch (const DecodingError&) {
            // A fault of the document itself comes up again when the array is read on.
            return {std::nullopt};
        }
    }
};

/// The elements of an array that `decode(JSONValue)` can decode, in order.
/// @throws DecodingError when the value is not an array
template <typename T, typename Decode>
std::vector<T> decodeEachElement(JSONValue array, Decode&& decode) {
    std::vector<T> elements;
    const bool isArray = array.forEachElement([&](JSONValue element) {
        if (auto decoded = FailableDecodable<T>::from(element, decode); decoded.value)
            elements.push_back(std::move(*decoded.value));
    });
    if (!isArray)
        throw DecodingError(DecodingError::Kind::typeMismatch, "Expected an array.");
    return elements;
}

} // namespace platform
