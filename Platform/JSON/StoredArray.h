// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/JSON/FailableDecodable.h"
#include "Platform/JSON/JSONReader.h"
#include "Platform/JSON/JSONWriter.h"

#include <QByteArray>

#include <utility>
#include <vector>

namespace platform {

/// What could be read of a JSON array from a file.
template <typename T>
struct StoredArray {
    std::vector<T> elements; ///< those that decode, in the file's order
    bool isComplete;         ///< false where the file held anything else
};

/// Decodes each element on its own with `decode(JSONValue)`. A document that is no array, or no
/// JSON at all, gives no elements and is not complete.
template <typename T, typename Decode>
StoredArray<T> decodeStoredArray(const QByteArray& data, Decode&& decode) {
    try {
        return decodeJSON(data, [&decode](JSONValue root) {
            StoredArray<T> stored{{}, true};
            const bool isArray = root.forEachElement([&](JSONValue element) {
                if (auto decoded = FailableDecodable<T>::from(element, decode); decoded.value)
                    stored.elements.push_back(std::move(*decoded.value));
                else
                    stored.isComplete = false;
            });
            stored.isComplete = stored.isComplete && isArray;
            return stored;
        });
    } catch (const DecodingError&) {
        return {{}, false};
    }
}

/// The array of what each element's `encode(JSONWriter&)` writes.
template <typename T>
QByteArray encodeArray(const std::vector<T>& elements) {
    JSONWriter writer;
    writer.beginArray();
    for (const T& element : elements)
        element.encode(writer);
    writer.endArray();
    return QByteArray::fromStdString(writer.text());
}

} // namespace platform
