// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/HTTP/HTTPResponse.h"

#include <chrono>
#include <optional>

namespace simulator {

/// What a client's requests weigh, counted by the minute as the exchange does, and what it answers
/// to those who do not keep within it: first that they are to wait, then a ban.
class WeightCount {
public:
    /// Counts a request. The refusal that it gets in place of its answer; absent where it gets one.
    std::optional<HTTPResponse> count(const HTTPRequest& request, int limit);

    /// In the current minute.
    int used() const { return used_; }
    /// In any minute.
    int most() const { return most_; }

    static int weight(const HTTPRequest& request);

private:
    using Instant = std::chrono::steady_clock::time_point;

    static HTTPResponse refusal(int status, std::chrono::seconds retryAfter);

    Instant minute_ = std::chrono::steady_clock::now();
    Instant bannedUntil_;
    int used_ = 0;
    int most_ = 0;
    int refusals_ = 0; ///< in the current minute
};

} // namespace simulator
