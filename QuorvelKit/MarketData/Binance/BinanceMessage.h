// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Quote.h"

#include <cstdint>
#include <variant>

namespace quorvel {

/// The exchange's answer to a control command; success and refusal are not told apart.
struct ControlAck {
    std::int64_t id; ///< of the command

    friend bool operator==(const ControlAck&, const ControlAck&) = default;
};

/// A frame of no interest.
struct IgnoredMessage {
    friend bool operator==(const IgnoredMessage&, const IgnoredMessage&) = default;
};

/// What one frame of the exchange's stream says.
using BinanceMessage = std::variant<Quote, ControlAck, IgnoredMessage>;

} // namespace quorvel
