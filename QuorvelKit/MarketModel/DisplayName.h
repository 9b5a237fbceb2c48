// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Symbol.h"

#include <QString>

#include <span>

namespace quorvel {

/// How a pair is called wherever it stands alone: by its base, such as "BTC". Where another of the
/// pairs in sight has the same base, by its identifier, such as "BTCUSDT", so that the currency
/// tells them apart.
/// @param inSight what the pair is seen among, as a rule the watchlist, so that it has one name in
///        panel, status bar and alerts; may hold the pair itself
QString displayName(const Symbol& symbol, std::span<const Symbol> inSight);

} // namespace quorvel
