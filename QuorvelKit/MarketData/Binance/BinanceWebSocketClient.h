// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/AsyncStream.h"
#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/Clock.h"
#include "QuorvelKit/MarketData/BackoffPolicy.h"
#include "QuorvelKit/MarketData/Binance/BinanceMessageDecoder.h"
#include "QuorvelKit/MarketData/WebSocketConnection.h"
#include "QuorvelKit/MarketModel/Quote.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace quorvel {

/// Keeps one live connection to the exchange's combined stream for the pairs that are wanted and
/// turns its ticker frames into quotes. Where the connection fails it connects again by itself, as
/// long as any pair is wanted.
///
/// Lives on the network thread; calls interleave where they wait. No call fails: what goes wrong on
/// the way shows as quotes that do not come.
class BinanceWebSocketClient {
public:
    /// Gives a number from 0 to 1, both included, drawn anew at each call.
    using JitterSource = std::function<double()>;

    /// The system's random numbers with 53 bits of resolution.
    static JitterSource systemJitter();

    /// Looks at a quote that has arrived, and may correct its instant; false drops it.
    using QuoteFilter = std::function<bool(Quote&)>;

    /// @param endpoint where the stream is, without the query that names the pairs
    /// @param admits lets every quote pass where there is none
    BinanceWebSocketClient(std::unique_ptr<WebSocketConnection> connection, BackoffPolicy backoff,
                           platform::Clock& clock, JitterSource jitter, QUrl endpoint,
                           QuoteFilter admits = {});

    /// A new stream of quotes; the one before ends. Quotes that arrive while there is none are
    /// dropped, so take the stream before naming pairs. It survives reconnections.
    platform::AsyncStream<Quote> quotes();

    /// Makes `target` the set of wanted pairs: connects, subscribes, unsubscribes or disconnects.
    platform::Task<> updateSubscriptions(SymbolSet target);

    /// Forgets all pairs, disconnects, and ends the stream of quotes.
    platform::Task<> stop();

private:
    platform::Task<> sendCommands(SymbolSet toAdd, SymbolSet toRemove);
    platform::Task<> sendCommand(std::string text);
    platform::Task<> connect();
    /// False where the connection could not be opened.
    platform::Task<bool> tryConnect(QUrl url);
    void startReceiveLoop();
    platform::Task<> runReceiveLoop();
    void scheduleReconnect(int attempt);
    platform::Task<> reconnect(int attempt);
    platform::Task<> disconnect();

    std::unique_ptr<WebSocketConnection> connection_;
    BinanceMessageDecoder decoder_;
    BackoffPolicy backoff_;
    platform::Clock& clock_;
    JitterSource jitter_;
    QUrl endpoint_;
    QuoteFilter admits_;
    SymbolSet subscriptions_;
    platform::AsyncStreamWriter<Quote> continuation_;
    bool isConnected_ = false;
    std::int64_t nextRequestID_ = 1;
    // Last, so that they end first: their frames use the members above.
    platform::TaskHandle receiveLoop_;
    platform::TaskHandle reconnectTask_;
};

} // namespace quorvel
