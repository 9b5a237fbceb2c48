#pragma once

#include "Tools/ExchangeSimulator/Pair.h"

#include <vector>

namespace simulator {

/// The exchange-information answer for those pairs. When it is smaller than `bytes`, made-up pairs
/// follow until it is about that large: half of them trading, a third quoted in USDT.
QByteArray exchangeInfo(const std::vector<Pair>& pairs, qint64 serverTime, qsizetype bytes);

} // namespace simulator
