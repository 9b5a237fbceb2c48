// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/Market/Pair.h"

#include <vector>

namespace simulator {

/// Entries of made-up pairs, about that many bytes of them, each with a comma behind it: half of
/// the pairs trade, a third is quoted in USDT.
QByteArray madeUpEntries(qsizetype bytes);

/// The exchange-information answer for those pairs, followed by `madeUp` entries. `serverTime` is
/// in milliseconds.
QByteArray exchangeInfo(const std::vector<Pair>& pairs, qint64 serverTime,
                        const QByteArray& madeUp);

} // namespace simulator
