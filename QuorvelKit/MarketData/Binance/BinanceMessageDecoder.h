// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketData/Binance/BinanceMessage.h"

#include <QByteArrayView>

namespace quorvel {

/// Turns the frames of the exchange's combined stream into messages. Has no state; may be used from
/// any thread.
struct BinanceMessageDecoder {
    /// Never fails: what is not a complete ticker event of a pair that we know, or an answer with
    /// an id, is ignored. A frame that is not well-formed JSON is ignored as a whole.
    BinanceMessage decode(QByteArrayView frame) const;
};

} // namespace quorvel
