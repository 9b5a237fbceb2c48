// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/RestInterface.h"

#include "Tools/ExchangeSimulator/Market/ExchangeInfo.h"
#include "Tools/ExchangeSimulator/Market/Klines.h"

#include <QJsonDocument>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <algorithm>

namespace simulator {

namespace {

constexpr int usualKlineLimit = 500;
constexpr int mostKlines = 1000;

HTTPResponse invalidSymbol() {
    return HTTPResponse::error(400, -1121, "Invalid symbol.");
}

HTTPResponse missing(const QByteArray& parameter) {
    return HTTPResponse::error(400, -1102,
                               "Mandatory parameter '" + parameter +
                                   "' was not sent, was empty/null, or malformed.");
}

HTTPResponse success(const QByteArray& body) {
    return {.status = 200, .headers = {}, .body = body};
}

/// The symbols in a text such as ["BTCUSDT","ETHUSDT"]; absent when it is no such list.
std::optional<QStringList> symbolList(const QString& text) {
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    QStringList symbols;
    for (const auto value : document.array())
        symbols.append(value.toString());
    return symbols.isEmpty() || symbols.contains(QString()) ? std::nullopt : std::optional(symbols);
}

} // namespace

/// One request from its arrival until it is answered or given up; logs both.
class RestInterface::Exchange {
public:
    Exchange(RestInterface& rest, const HTTPRequest& request, int clientPort)
        : rest_(rest), target_(request.target) {
        ++rest_.requestCount_;
        rest_.mostInFlight_ = std::max(rest_.mostInFlight_, ++rest_.inFlight_);
        record(QStringLiteral("request"), {{QStringLiteral("clientPort"), clientPort}});
    }
    ~Exchange() {
        --rest_.inFlight_;
        if (status_)
            record(QStringLiteral("answer"), {{QStringLiteral("status"), *status_}});
        else
            record(QStringLiteral("abandoned"), {});
    }
    Q_DISABLE_COPY_MOVE(Exchange)

    void answered(int status) { status_ = status; }

private:
    void record(const QString& kind, QJsonObject detail) {
        detail[QStringLiteral("target")] = QString::fromUtf8(target_);
        detail[QStringLiteral("inFlight")] = rest_.inFlight_;
        rest_.log_.add(kind, detail);
    }

    RestInterface& rest_;
    QByteArray target_;
    std::optional<int> status_;
};

void RestInterface::handle(HTTPConnection& connection, const HTTPRequest& request) {
    const auto exchange = std::make_shared<Exchange>(*this, request, connection.clientPort());
    connection.holdUntilAnswered(exchange);
    const RestOverride change = takeOverride(request.path()).value_or(RestOverride());
    if (change.hang)
        return;
    // Made when it is sent, so that a delayed answer tells the prices of that time.
    const auto refusal = weight_.count(request, limits_.weightPerMinute);
    const auto answer = [this, change, refusal, request, &connection,
                         weak = std::weak_ptr(exchange)] {
        const HTTPResponse response =
            finished(change.applied(refusal ? *refusal : usualAnswer(request)), request);
        if (const auto open = weak.lock())
            open->answered(response.status);
        connection.respond(response);
    };
    if (change.delay.count() > 0)
        QTimer::singleShot(change.delay, Qt::PreciseTimer, &connection, answer);
    else
        answer();
}

HTTPResponse RestInterface::finished(HTTPResponse response, const HTTPRequest& request) const {
    if (time_.isTold)
        response.headers.append({"Date", time_.date()});
    if (time_.age.count() > 0)
        response.headers.append({"Age", QByteArray::number(time_.age.count())});
    response.headers.append({"X-MBX-USED-WEIGHT-1M", QByteArray::number(weight_.used())});
    if (request.header("accept-encoding").contains("gzip"))
        response.compress();
    return response;
}

void RestInterface::padExchangeInfo(qsizetype bytes) {
    madeUpEntries_ = madeUpEntries(bytes);
}

std::optional<RestOverride> RestInterface::takeOverride(const QString& path) {
    const auto found = overrides_.find(path);
    if (found == overrides_.end())
        return std::nullopt;
    RestOverride change = found->second;
    if (found->second.count && --*found->second.count <= 0)
        overrides_.erase(found);
    return change;
}

HTTPResponse RestInterface::usualAnswer(const HTTPRequest& request) const {
    const QString path = request.path();
    if (path == QLatin1String("/api/v3/ticker/24hr"))
        return tickers(request);
    if (path == QLatin1String("/api/v3/klines"))
        return candles(request);
    if (path == QLatin1String("/api/v3/exchangeInfo"))
        return success(exchangeInfo(market_.pairs(), time_.now(), madeUpEntries_));
    return {.status = 404, .headers = {}, .body = {}};
}

HTTPResponse RestInterface::tickers(const HTTPRequest& request) const {
    const std::optional<QStringList> symbols =
        symbolList(request.queryItem(u"symbols").value_or(QString()));
    if (!symbols)
        return missing("symbols");
    if (QSet(symbols->begin(), symbols->end()).size() != symbols->size())
        return HTTPResponse::error(400, -1151, "Symbol is present multiple times in the list.");
    const qint64 now = time_.now();
    QByteArray body;
    for (const QString& symbol : *symbols) {
        const Pair* pair = market_.find(symbol);
        if (!pair)
            return invalidSymbol();
        body += (body.isEmpty() ? '[' : ',') + pair->snapshot(now);
    }
    return success(body + ']');
}

HTTPResponse RestInterface::candles(const HTTPRequest& request) const {
    const std::optional<QString> symbol = request.queryItem(u"symbol");
    const std::optional<QString> intervalName = request.queryItem(u"interval");
    if (!symbol || !intervalName)
        return missing(symbol ? "interval" : "symbol");
    const Pair* pair = market_.find(*symbol);
    if (!pair)
        return invalidSymbol();
    const auto interval = klineInterval(*intervalName);
    if (!interval)
        return HTTPResponse::error(400, -1120, "Invalid interval.");
    bool ok = true;
    const std::optional<QString> limitText = request.queryItem(u"limit");
    const int limit = limitText ? limitText->toInt(&ok) : usualKlineLimit;
    if (!ok || limit < 1)
        return HTTPResponse::error(400, -1100, "Illegal characters found in parameter 'limit'.");
    return success(klines(*pair, *interval, std::min(limit, mostKlines), time_.now()));
}

QJsonObject RestInterface::state() const {
    return {{QStringLiteral("requests"), requestCount_},
            {QStringLiteral("inFlight"), inFlight_},
            {QStringLiteral("mostInFlight"), mostInFlight_},
            {QStringLiteral("weight"), weight_.used()},
            {QStringLiteral("mostWeight"), weight_.most()}};
}

} // namespace simulator
