// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Market/Pair.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <chrono>
#include <cmath>
#include <vector>

namespace simulator {

namespace {

constexpr qint64 firstTradeId = 1'000'000;

/// One figure under its name in the stream and in the REST answer; a null name leaves it out there.
struct Figure {
    const char* eventKey;
    const char* snapshotKey;
    QByteArray json;
};

/// Pushed texts go out as they are, so they may need escaping.
QByteArray quoted(const QByteArray& text) {
    const QJsonArray array{QString::fromUtf8(text)};
    const QByteArray json = QJsonDocument(array).toJson(QJsonDocument::Compact);
    return json.mid(1, json.size() - 2);
}

std::vector<Figure> figures(const Pair& pair, qint64 time) {
    using std::chrono::milliseconds;
    const qint64 openTime = time - milliseconds(std::chrono::hours(24)).count();
    const double step = std::pow(10, -pair.decimals);
    const double average = (pair.high + pair.low) / 2;
    const auto amount = Pair::amount;
    return {
        {"e", nullptr, "\"24hrTicker\""},
        {"E", nullptr, QByteArray::number(time)},
        {"s", "symbol", quoted(pair.symbol.toUtf8())},
        {"p", "priceChange", amount(pair.last - pair.open)},
        {"P", "priceChangePercent", quoted(pair.changeText)},
        {"w", "weightedAvgPrice", amount(average)},
        {"x", "prevClosePrice", amount(pair.open)},
        {"c", "lastPrice", quoted(pair.lastText)},
        {"Q", "lastQty", amount(pair.volume / 100'000)},
        {"b", "bidPrice", amount(pair.last)},
        {"B", "bidQty", amount(pair.volume / 5'000)},
        {"a", "askPrice", amount(pair.last + step)},
        {"A", "askQty", amount(pair.volume / 7'000)},
        {"o", "openPrice", amount(pair.open)},
        {"h", "highPrice", amount(pair.high)},
        {"l", "lowPrice", amount(pair.low)},
        {"v", "volume", amount(pair.volume)},
        {"q", "quoteVolume", amount(pair.volume * average)},
        {"O", "openTime", QByteArray::number(openTime)},
        {"C", "closeTime", QByteArray::number(time)},
        {"F", "firstId", QByteArray::number(firstTradeId)},
        {"L", "lastId", QByteArray::number(firstTradeId + pair.trades - 1)},
        {"n", "count", QByteArray::number(pair.trades)},
    };
}

QByteArray object(const std::vector<Figure>& figures, const char* Figure::* key) {
    QByteArray text;
    for (const Figure& figure : figures) {
        if (figure.*key)
            text += QByteArray(text.isEmpty() ? "{\"" : ",\"") + figure.*key + "\":" + figure.json;
    }
    return text + '}';
}

} // namespace

QByteArray Pair::tickerEvent(qint64 time) const {
    return object(figures(*this, time), &Figure::eventKey);
}

QByteArray Pair::snapshot(qint64 time) const {
    return object(figures(*this, time), &Figure::snapshotKey);
}

QByteArray Pair::amount(double value) {
    return '"' + QByteArray::number(value, 'f', 8) + '"';
}

} // namespace simulator
