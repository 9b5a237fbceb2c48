// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>

namespace test {

/// Runs the event loop of this thread until `condition` holds. False when it does not within
/// `limit` of real time: for what other threads and processes do; where a clock can be advanced,
/// advance it.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::seconds(10));

} // namespace test
