// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Mailbox.h"
#include "Platform/Async/WorkerThread.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Network/URLSession.h"
#include "QuorvelKit/MarketData/Binance/BinanceRESTClient.h"
#include "QuorvelKit/MarketData/Binance/BinanceWebSocketClient.h"
#include "QuorvelKit/MarketData/Binance/ExchangeGate.h"
#include "QuorvelKit/MarketData/ConnectionEvent.h"
#include "QuorvelKit/MarketData/ExchangeClock.h"
#include "QuorvelKit/MarketData/MarketDataProvider.h"

#include <functional>
#include <memory>

namespace quorvel {

/// Market data from the exchange: one REST client and one streaming client on a network thread of
/// their own. Belongs to the main thread; destroying it ends the network thread.
class BinanceProvider final : public MarketDataProvider {
public:
    /// What lives on the network thread. Made, used and destroyed there.
    struct Clients {
        std::unique_ptr<ExchangeClock> time; // these first, since the others use them to the end
        std::unique_ptr<ExchangeGate> gate;
        std::unique_ptr<platform::URLSession> session;
        std::unique_ptr<BinanceRESTClient> rest;
        std::unique_ptr<BinanceWebSocketClient> webSocket;

        /// Takes note of the snapshot's instants, which later quotes are ordered after.
        platform::Task<std::vector<Quote>> snapshot(std::vector<Symbol> symbols);

        /// Trusts nothing from before: neither connections nor the time that was learned.
        void renew();

        /// Stops the stream and waits until its connection has said goodbye.
        platform::Task<> stop();
    };

    /// How the stream is taken up again. The exchange bans who connects more than 300 times in five
    /// minutes.
    static constexpr BackoffPolicy backoff{
        .baseDelay = 1.0, .maxDelay = 30.0, .jitterFraction = 0.2};

    /// Scheme and host of the exchange's REST interface.
    static QUrl defaultRESTURL();

    /// The exchange's combined stream.
    static QUrl defaultStreamURL();

    /// Where the exchange serves market data alone, to places as well that it serves nothing else.
    static QUrl mirrorRESTURL();
    static QUrl mirrorStreamURL();

    /// @param makeClients runs on the network thread
    explicit BinanceProvider(std::move_only_function<Clients()> makeClients);

    /// The provider over the network.
    /// @param clock must outlive the provider; used on both threads
    static std::unique_ptr<BinanceProvider> live(platform::Clock& clock, QUrl restURL,
                                                 QUrl streamURL, ConnectionReports reports = {});

    platform::Task<std::vector<Quote>> snapshot(std::vector<Symbol> symbols) override;
    platform::Task<std::vector<Symbol>> availableSymbols() override;
    platform::Task<std::vector<Candle>> candles(Symbol symbol, ChartPeriod period) override;
    platform::Task<platform::AsyncStream<Quote>> quotes() override;
    platform::Task<> updateSubscriptions(SymbolSet symbols) override;
    platform::Task<> stop() override;

    /// To be called when the machine has slept: what was open may be dead, and nobody was told.
    void renew();

private:
    platform::WorkerThread thread_;
    platform::Mailbox<Clients> clients_;
};

} // namespace quorvel
