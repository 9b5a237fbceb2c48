// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The text in upper case by Unicode's full mapping ("ß" becomes "SS"), whatever the locale.
/// @param text in UTF-8; what is not becomes U+FFFD
std::string uppercased(std::string_view text);

/// The text in lower case, as `uppercased`.
std::string lowercased(std::string_view text);

} // namespace platform
