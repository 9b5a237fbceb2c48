// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/MarketModel/Candle.h"
#include "QuorvelKit/MarketModel/Quote.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QByteArrayView>

#include <vector>

// What the bodies of the exchange's REST answers say. All three throw `platform::DecodingError`
// where the body has not the promised form, and leave out entries of the promised form that make no
// sense.
namespace quorvel {

/// The quotes in an answer of 24-hour tickers, in its order.
/// @param arrival becomes the timestamp of each
std::vector<Quote> decodeSnapshot(QByteArrayView body, platform::Date arrival);

/// The pairs that an answer of exchange information lists as trading, in its order.
std::vector<Symbol> decodeAvailableSymbols(QByteArrayView body);

/// The candles in an answer of candle rows, in its order. Times on the wire are milliseconds since
/// 1970-01-01 UTC.
std::vector<Candle> decodeCandles(QByteArrayView body);

} // namespace quorvel
