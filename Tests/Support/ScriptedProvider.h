// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/FutureAwaiter.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "QuorvelKit/MarketData/MarketDataProvider.h"

#include <QPromise>

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace test {

/// Market data as a test wants it: notes every call, and answers with what was put into it.
class ScriptedProvider final : public quorvel::MarketDataProvider {
public:
    /// Every call in order, such as "pairs", "subscribe BTC ETH", "snapshot BTC".
    std::vector<std::string> calls;
    /// What a snapshot brings; a failure where absent.
    std::optional<std::vector<quorvel::Quote>> snapshotQuotes = std::vector<quorvel::Quote>();
    /// A pair that makes the exchange refuse a whole snapshot.
    std::string refusedBase;
    /// Finished by the test: with pairs, or with an exception.
    QPromise<std::vector<quorvel::Symbol>> pairs;

    /// Requests for candles by base asset, each to be finished by the test: with candles, or with
    /// an exception.
    std::map<std::string, QPromise<std::vector<quorvel::Candle>>> candleRequests;
    /// While set, a snapshot waits for the test to finish this.
    std::optional<QPromise<void>> heldSnapshot;
    /// The same for a change of subscriptions.
    std::optional<QPromise<void>> heldSubscription;

    ScriptedProvider() { pairs.start(); }

    /// False when nobody takes quotes.
    bool push(const quorvel::Quote& quote) const { return writer_.push(quote); }

    platform::Task<std::vector<quorvel::Quote>>
    snapshot(std::vector<quorvel::Symbol> symbols) override {
        note("snapshot", symbols);
        if (heldSnapshot)
            co_await heldSnapshot->future();
        if (std::ranges::find(symbols, refusedBase, &quorvel::Symbol::base) != symbols.end())
            throw quorvel::HTTPTransportError::requestFailed(400);
        if (!snapshotQuotes)
            throw std::runtime_error("no snapshot");
        co_return *snapshotQuotes;
    }

    platform::Task<std::vector<quorvel::Symbol>> availableSymbols() override {
        calls.emplace_back("pairs");
        co_return co_await pairs.future();
    }

    platform::Task<std::vector<quorvel::Candle>> candles(quorvel::Symbol symbol,
                                                         quorvel::ChartPeriod) override {
        calls.push_back("candles " + symbol.base);
        auto& request = candleRequests[symbol.base];
        request = {};
        request.start();
        co_return co_await request.future();
    }

    platform::Task<platform::AsyncStream<quorvel::Quote>> quotes() override {
        calls.emplace_back("quotes");
        auto [stream, writer] = platform::AsyncStream<quorvel::Quote>::make();
        writer_ = std::move(writer);
        co_return std::move(stream);
    }

    platform::Task<> updateSubscriptions(quorvel::SymbolSet symbols) override {
        note("subscribe", symbols);
        if (heldSubscription)
            co_await heldSubscription->future();
    }

    platform::Task<> stop() override {
        calls.emplace_back("stop");
        writer_.finish();
        co_return;
    }

private:
    void note(std::string call, const auto& symbols) {
        for (const auto& symbol : symbols)
            call += " " + symbol.base;
        calls.push_back(std::move(call));
    }

    platform::AsyncStreamWriter<quorvel::Quote> writer_;
};

} // namespace test
