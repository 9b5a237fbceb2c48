// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>

namespace platform {

/// The awaited work was given up before it had a result: its future was cancelled, its promise was
/// dropped, or the thread it was to run on has ended.
class CancelledError : public std::exception {
public:
    const char* what() const noexcept override { return "cancelled"; }
};

} // namespace platform
