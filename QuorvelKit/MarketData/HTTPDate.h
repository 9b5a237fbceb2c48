// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"

#include <QByteArray>

#include <optional>

namespace quorvel {

/// The instant that a `Date` header names, to the second, in the form that servers have to send
/// (RFC 9110, section 5.6.7); absent for any other text.
std::optional<platform::Date> dateOfHeader(const QByteArray& value);

} // namespace quorvel
