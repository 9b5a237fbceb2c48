// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/Market/Pair.h"

#include <chrono>
#include <optional>

namespace simulator {

/// The length of an interval by the exchange's name for it ("1h"); absent for an unknown name.
std::optional<std::chrono::milliseconds> klineInterval(const QString& name);

/// The candle answer: `limit` rows of 12 cells, oldest first, the last one the candle that `now`
/// (in milliseconds) falls into. The series starts from the pair's opening price, ends in its last
/// price and is the same on every call while those are the same.
QByteArray klines(const Pair& pair, std::chrono::milliseconds interval, int limit, qint64 now);

} // namespace simulator
