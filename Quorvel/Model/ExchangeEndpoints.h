// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/UserDefaults.h"

#include <QUrl>

namespace quorvel {

/// Where the exchange is found: its own addresses, or what the preferences name instead.
struct ExchangeEndpoints {
    /// The keys of the two in the preferences.
    static const QString restKey;
    static const QString streamKey;

    QUrl rest;   ///< base of the REST interface
    QUrl stream; ///< the stream of prices, without a query

    /// Reads `exchange.restURL` and `exchange.streamURL`. Each counts where it is an address with a
    /// host and an encrypted scheme (https; wss), or an unencrypted one (http; ws) of this machine;
    /// in place of anything else there is that of `own`.
    /// @param own where the exchange itself says that it is
    static ExchangeEndpoints fromDefaults(const platform::UserDefaults& defaults,
                                          const ExchangeEndpoints& own);

    friend bool operator==(const ExchangeEndpoints&, const ExchangeEndpoints&) = default;
};

} // namespace quorvel
