// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace simulator {

/// One trading pair and its last 24 hours, in the figures that the exchange publishes.
struct Pair {
    QString symbol;
    QString baseAsset;
    QString quoteAsset;
    QString status;
    double open = 0;
    double high = 0;
    double low = 0;
    double last = 0;
    /// The last price as it is sent: with 8 decimals, or the very text that was pushed.
    QByteArray lastText;
    /// The change in percent as it is sent: with 3 decimals, or the very text that was pushed.
    QByteArray changeText;
    /// In units of the base asset.
    double volume = 0;
    qint64 trades = 0;
    /// Where the random walk is drawn back to.
    double anchor = 0;
    /// Decimals of the price step.
    int decimals = 8;
    /// Whether there is something that has not been sent yet.
    bool changed = false;

    bool isTrading() const { return status == QLatin1String("TRADING"); }

    /// The name of the pair's ticker stream.
    QString streamName() const { return symbol.toLower() + QStringLiteral("@ticker"); }

    /// The event of the ticker stream, keys in the exchange's order. `time` is in milliseconds.
    QByteArray tickerEvent(qint64 time) const;

    /// The element of the 24-hour ticker answer, keys in the exchange's order.
    QByteArray snapshot(qint64 time) const;

    /// A number as the exchange writes prices and quantities, in quotes.
    static QByteArray amount(double value);
};

} // namespace simulator
