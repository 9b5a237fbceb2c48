// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceRESTClient.h"

#include "QuorvelKit/MarketData/Binance/BinanceRESTPayloads.h"

#include <utility>

namespace quorvel {

using platform::Task;

namespace {

/// The length of one candle of the period, as the exchange writes it.
QString interval(ChartPeriod period) {
    return period == ChartPeriod::day ? QStringLiteral("1h") : QStringLiteral("4h");
}

/// How many candles cover the period.
int limit(ChartPeriod period) {
    return period == ChartPeriod::day ? 24 : 42;
}

/// `["BTCUSDT","ETHUSDT"]`, in the order given.
QString quotedList(const std::vector<Symbol>& symbols) {
    QString list;
    for (const Symbol& symbol : symbols) {
        if (!list.isEmpty())
            list += u',';
        list += u'"' + QString::fromStdString(symbol.id()) + u'"';
    }
    return u'[' + list + u']';
}

} // namespace

BinanceRESTClient::BinanceRESTClient(std::unique_ptr<HTTPTransport> transport, QUrl baseURL,
                                     platform::Clock& clock)
    : transport_(std::move(transport)), baseURL_(std::move(baseURL)), clock_(clock) {}

QUrl BinanceRESTClient::url(const QString& path, const QueryItems& query) const {
    QUrl url = baseURL_;
    const QString base = url.path();
    url.setPath(base.endsWith(u'/') ? base + path : base + u'/' + path);
    QByteArray encoded;
    for (const auto& [name, value] : query) {
        if (!encoded.isEmpty())
            encoded += '&';
        // Qt leaves brackets as they are, which the exchange refuses.
        encoded += QUrl::toPercentEncoding(name) + '=' + QUrl::toPercentEncoding(value, ",");
    }
    if (!encoded.isEmpty())
        url.setQuery(QString::fromLatin1(encoded), QUrl::StrictMode);
    return url;
}

Task<std::vector<Quote>> BinanceRESTClient::snapshot(std::vector<Symbol> symbols) {
    if (symbols.empty())
        co_return std::vector<Quote>();
    const QUrl request = url(QStringLiteral("api/v3/ticker/24hr"),
                             {{QStringLiteral("symbols"), quotedList(symbols)}});
    const QByteArray body = co_await transport_->get(request);
    co_return decodeSnapshot(body, clock_.now());
}

Task<std::vector<Symbol>> BinanceRESTClient::availableSymbols() {
    const QUrl request = url(QStringLiteral("api/v3/exchangeInfo"), {});
    const QByteArray body = co_await transport_->get(request);
    co_return decodeAvailableSymbols(body);
}

Task<std::vector<Candle>> BinanceRESTClient::candles(Symbol symbol, ChartPeriod period) {
    const QUrl request = url(QStringLiteral("api/v3/klines"),
                             {{QStringLiteral("symbol"), QString::fromStdString(symbol.id())},
                              {QStringLiteral("interval"), interval(period)},
                              {QStringLiteral("limit"), QString::number(limit(period))}});
    const QByteArray body = co_await transport_->get(request);
    co_return decodeCandles(body);
}

} // namespace quorvel
