// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Market/Klines.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <map>

namespace simulator {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

constexpr double noiseShare = 0.012;

/// A price between the opening one, a day ago and earlier, and the last one now, with waves that
/// depend on the pair and the time alone.
double priceAt(const Pair& pair, qint64 time, qint64 now) {
    const double day = static_cast<double>(milliseconds(24h).count());
    const double age = std::clamp(static_cast<double>(now - time) / day, 0.0, 1.0);
    const double trend = pair.last + (pair.open - pair.last) * age;
    const double phase = static_cast<double>(qHash(pair.symbol, 0) % 1000) / 159;
    const double hours = static_cast<double>(time) / static_cast<double>(milliseconds(1h).count());
    const double wave = std::sin(hours / 3.1 + phase) + 0.6 * std::sin(hours * 1.7 + 2 * phase);
    return trend * (1 + noiseShare * std::min(1.0, 8 * age) * wave);
}

QByteArray row(const Pair& pair, qint64 openTime, qint64 length, qint64 now) {
    const qint64 closeTime = openTime + length - 1;
    const double open = priceAt(pair, openTime, now);
    const double close = priceAt(pair, std::min(closeTime, now), now);
    const double volume = pair.volume / 24;
    const auto amount = Pair::amount;
    const QByteArray last = closeTime < now ? amount(close) : '"' + pair.lastText + '"';
    return '[' + QByteArray::number(openTime) + ',' + amount(open) + ',' +
           amount(std::max(open, close) * 1.002) + ',' + amount(std::min(open, close) * 0.998) +
           ',' + last + ',' + amount(volume) + ',' + QByteArray::number(closeTime) + ',' +
           amount(volume * close) + ',' + QByteArray::number(pair.trades / 24) + ',' +
           amount(volume / 2) + ',' + amount(volume / 2 * close) + ",\"0\"]";
}

} // namespace

std::optional<milliseconds> klineInterval(const QString& name) {
    static const std::map<QString, milliseconds> intervals{
        {QStringLiteral("1s"), 1s},     {QStringLiteral("1m"), 1min},
        {QStringLiteral("3m"), 3min},   {QStringLiteral("5m"), 5min},
        {QStringLiteral("15m"), 15min}, {QStringLiteral("30m"), 30min},
        {QStringLiteral("1h"), 1h},     {QStringLiteral("2h"), 2h},
        {QStringLiteral("4h"), 4h},     {QStringLiteral("6h"), 6h},
        {QStringLiteral("8h"), 8h},     {QStringLiteral("12h"), 12h},
        {QStringLiteral("1d"), 24h},    {QStringLiteral("3d"), 72h},
        {QStringLiteral("1w"), 168h}};
    const auto found = intervals.find(name);
    return found == intervals.end() ? std::nullopt : std::optional(found->second);
}

QByteArray klines(const Pair& pair, milliseconds interval, int limit, qint64 now) {
    const qint64 length = interval.count();
    const qint64 newest = now / length * length;
    QByteArray text;
    for (qint64 back = limit - 1; back >= 0; --back)
        text += (text.isEmpty() ? '[' : ',') + row(pair, newest - back * length, length, now);
    return text + ']';
}

} // namespace simulator
