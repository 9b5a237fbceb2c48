// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"
#include "QuorvelKit/MarketData/HTTPTransport.h"
#include "QuorvelKit/MarketModel/Candle.h"
#include "QuorvelKit/MarketModel/ChartPeriod.h"
#include "QuorvelKit/MarketModel/Quote.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <memory>
#include <vector>

namespace quorvel {

/// The exchange's REST interface, as far as we ask it anything. Only pairs quoted in one of
/// `Symbol::quoteAssets` come out.
///
/// Has no state between calls, retries nothing and caches nothing. Lives on the network thread.
/// Every call fails with the transport's error, or with `platform::DecodingError` for a body that
/// is not what the interface promises. Single entries that make no sense are left out.
class BinanceRESTClient {
public:
    /// @param baseURL scheme and host, without a path
    BinanceRESTClient(std::unique_ptr<HTTPTransport> transport, QUrl baseURL,
                      platform::Clock& clock);

    /// The 24-hour tickers of the pairs, all stamped with the instant the answer arrived. No
    /// request for no pairs.
    platform::Task<std::vector<Quote>> snapshot(std::vector<Symbol> symbols);

    /// Every pair that is traded now, in the exchange's order.
    platform::Task<std::vector<Symbol>> availableSymbols();

    /// The candles that cover the period, oldest first.
    platform::Task<std::vector<Candle>> candles(Symbol symbol, ChartPeriod period);

private:
    using QueryItems = std::vector<std::pair<QString, QString>>;

    QUrl url(const QString& path, const QueryItems& query) const;

    std::unique_ptr<HTTPTransport> transport_;
    QUrl baseURL_;
    platform::Clock& clock_;
};

} // namespace quorvel
