// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/JSON/JSONValue.h"

#include <functional>
#include <optional>

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

} // namespace platform
