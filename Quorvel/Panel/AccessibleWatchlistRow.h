// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvel {

/// Lets assistive technology read the rows of the watchlist: each is an item of a list, its name is
/// asked for when it is read, and changes of prices are not announced. Safe to call again.
void installAccessibleWatchlist();

} // namespace quorvel
