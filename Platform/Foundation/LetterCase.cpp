// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/LetterCase.h"

#include <QString>

#include <algorithm>

namespace platform {

namespace {

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

QString decoded(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Moves the letters from `first` to `last` by `distance`; leaves everything else alone.
std::string shifted(std::string_view text, char first, char last, int distance) {
    std::string result(text);
    for (char& c : result) {
        if (c >= first && c <= last)
            c = static_cast<char>(c + distance);
    }
    return result;
}

} // namespace

std::string uppercased(std::string_view text) {
    return isAscii(text) ? shifted(text, 'a', 'z', 'A' - 'a')
                         : decoded(text).toUpper().toStdString();
}

std::string lowercased(std::string_view text) {
    return isAscii(text) ? shifted(text, 'A', 'Z', 'a' - 'A')
                         : decoded(text).toLower().toStdString();
}

} // namespace platform
