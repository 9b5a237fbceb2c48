// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceProvider.h"

#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"
#include "QuorvelKit/MarketData/URLSessionTransport.h"
#include "QuorvelKit/MarketData/URLSessionWebSocketConnection.h"

#include <utility>

namespace quorvel {

using platform::Task;

Task<> BinanceProvider::Clients::stop() {
    constexpr std::chrono::seconds longestGoodbye{1};
    co_await webSocket->stop();
    co_await session->finishClosing(longestGoodbye);
}

QUrl BinanceProvider::defaultRESTURL() {
    return QUrl(QStringLiteral("https://api.binance.com"));
}

QUrl BinanceProvider::defaultStreamURL() {
    return QUrl(SubscriptionCommand::host());
}

BinanceProvider::BinanceProvider(std::move_only_function<Clients()> makeClients)
    : thread_(QStringLiteral("network")),
      clients_(thread_.thread(), [makeClients = std::move(makeClients)]() mutable {
          return std::make_unique<Clients>(makeClients());
      }) {}

std::unique_ptr<BinanceProvider> BinanceProvider::live(platform::Clock& clock, QUrl restURL,
                                                       QUrl streamURL) {
    return std::make_unique<BinanceProvider>(
        [&clock, restURL = std::move(restURL), streamURL = std::move(streamURL)] {
            Clients clients;
            clients.session = std::make_unique<platform::URLSession>(clock);
            clients.rest = std::make_unique<BinanceRESTClient>(
                std::make_unique<URLSessionTransport>(*clients.session), restURL, clock);
            clients.webSocket = std::make_unique<BinanceWebSocketClient>(
                std::make_unique<URLSessionWebSocketConnection>(*clients.session,
                                                                SubscriptionCommand::spacing),
                backoff, clock, BinanceWebSocketClient::systemJitter(), streamURL);
            return clients;
        });
}

Task<std::vector<Quote>> BinanceProvider::snapshot(std::vector<Symbol> symbols) {
    co_return co_await clients_.call([symbols = std::move(symbols)](Clients& clients) {
        return clients.rest->snapshot(symbols);
    });
}

Task<std::vector<Symbol>> BinanceProvider::availableSymbols() {
    co_return co_await clients_.call(
        [](Clients& clients) { return clients.rest->availableSymbols(); });
}

Task<std::vector<Candle>> BinanceProvider::candles(Symbol symbol, ChartPeriod period) {
    co_return co_await clients_.call([symbol = std::move(symbol), period](Clients& clients) {
        return clients.rest->candles(symbol, period);
    });
}

Task<platform::AsyncStream<Quote>> BinanceProvider::quotes() {
    co_return co_await clients_.call([](Clients& clients) { return clients.webSocket->quotes(); });
}

Task<> BinanceProvider::updateSubscriptions(SymbolSet symbols) {
    co_await clients_.call([symbols = std::move(symbols)](Clients& clients) {
        return clients.webSocket->updateSubscriptions(symbols);
    });
}

Task<> BinanceProvider::stop() {
    co_await clients_.call([](Clients& clients) { return clients.stop(); });
}

} // namespace quorvel
