// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceProvider.h"

#include "QuorvelKit/MarketData/Binance/GatedTransport.h"
#include "QuorvelKit/MarketData/Binance/PacedConnection.h"
#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"
#include "QuorvelKit/MarketData/URLSessionTransport.h"
#include "QuorvelKit/MarketData/URLSessionWebSocketConnection.h"

#include <utility>

namespace quorvel {

using platform::Task;

namespace {

/// The built-in address is served on two ports, of which networks block one or the other.
std::vector<int> portsOf(const QUrl& streamURL) {
    constexpr int usual = 9443;
    constexpr int ofTheWeb = 443;
    return streamURL == BinanceProvider::defaultStreamURL() ? std::vector{usual, ofTheWeb}
                                                            : std::vector<int>();
}

BinanceProvider::Clients makeClients(platform::Clock& clock, const QUrl& restURL,
                                     const QUrl& streamURL, const ConnectionReports& reports) {
    const auto report = [events = reports.events](const ConnectionEvent& event) {
        events.push(event);
    };
    BinanceProvider::Clients clients;
    clients.time = std::make_unique<ExchangeClock>(clock);
    clients.gate = std::make_unique<ExchangeGate>(clock, *clients.time, report);
    clients.session = std::make_unique<platform::URLSession>(clock);

    ExchangeGate& gate = *clients.gate;
    auto transport = std::make_unique<URLSessionTransport>(
        *clients.session,
        [&gate](const QUrl&, const platform::URLResponse& response) { gate.heard(response); });
    clients.rest = std::make_unique<BinanceRESTClient>(
        std::make_unique<GatedTransport>(std::move(transport), gate), restURL, *clients.time);

    auto connection = std::make_unique<PacedConnection>(
        PacedConnection::Collaborators{.session = *clients.session,
                                       .gate = gate,
                                       .clock = clock,
                                       .report = report,
                                       .lastHeard = reports.lastHeard},
        portsOf(streamURL));
    PacedConnection& paced = *connection;
    paced.pace(std::make_unique<URLSessionWebSocketConnection>(
        *clients.session, SubscriptionCommand::spacing, [&paced] { paced.heard(); }));
    clients.webSocket = std::make_unique<BinanceWebSocketClient>(
        std::move(connection), BinanceProvider::backoff, clock,
        BinanceWebSocketClient::systemJitter(), streamURL,
        [time = clients.time.get()](Quote& quote) { return time->admit(quote); });
    return clients;
}

} // namespace

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

QUrl BinanceProvider::mirrorRESTURL() {
    return QUrl(QStringLiteral("https://data-api.binance.vision"));
}

QUrl BinanceProvider::mirrorStreamURL() {
    return QUrl(QStringLiteral("wss://data-stream.binance.vision/stream"));
}

BinanceProvider::BinanceProvider(std::move_only_function<Clients()> makeClients)
    : thread_(QStringLiteral("network")),
      clients_(thread_.thread(), [makeClients = std::move(makeClients)]() mutable {
          return std::make_unique<Clients>(makeClients());
      }) {}

std::unique_ptr<BinanceProvider> BinanceProvider::live(platform::Clock& clock, QUrl restURL,
                                                       QUrl streamURL, ConnectionReports reports) {
    return std::make_unique<BinanceProvider>(
        [&clock, restURL = std::move(restURL), streamURL = std::move(streamURL),
         reports = std::move(reports)] { return makeClients(clock, restURL, streamURL, reports); });
}

Task<std::vector<Quote>> BinanceProvider::Clients::snapshot(std::vector<Symbol> symbols) {
    auto quotes = co_await rest->snapshot(std::move(symbols));
    for (const Quote& quote : quotes)
        time->note(quote.timestamp);
    co_return quotes;
}

void BinanceProvider::Clients::renew() {
    session->renewConnections();
    time->forget();
}

Task<std::vector<Quote>> BinanceProvider::snapshot(std::vector<Symbol> symbols) {
    co_return co_await clients_.call(
        [symbols = std::move(symbols)](Clients& clients) { return clients.snapshot(symbols); });
}

void BinanceProvider::renew() {
    clients_.call([](Clients& clients) { clients.renew(); });
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
