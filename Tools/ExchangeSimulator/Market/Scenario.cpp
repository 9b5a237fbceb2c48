// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Market/Scenario.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace simulator {

namespace {

QString symbolIn(const QJsonObject& object) {
    const QString symbol = object[QLatin1String("symbol")].toString();
    if (symbol.isEmpty())
        throw std::runtime_error("scenario: an entry has no symbol");
    return symbol;
}

Scenario::StartPair startPair(const QJsonObject& object) {
    return {.symbol = symbolIn(object),
            .price = decimalText(object[QLatin1String("price")]).value_or(QByteArray()),
            .change = decimalText(object[QLatin1String("change")]).value_or(QByteArray()),
            .status = object[QLatin1String("status")].toString(QStringLiteral("TRADING"))};
}

Scenario::TimedPush timedPush(const QJsonObject& object) {
    return {.at = std::chrono::milliseconds(object[QLatin1String("atMs")].toInteger()),
            .symbol = symbolIn(object),
            .price = decimalText(object[QLatin1String("price")]),
            .change = decimalText(object[QLatin1String("change")])};
}

} // namespace

Scenario Scenario::load(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("scenario: cannot read " + path.toStdString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject())
        throw std::runtime_error("scenario: " + error.errorString().toStdString());
    const QJsonObject root = document.object();
    Scenario scenario;
    for (const auto pair : root[QLatin1String("pairs")].toArray())
        scenario.pairs.push_back(startPair(pair.toObject()));
    for (const auto push : root[QLatin1String("pushes")].toArray())
        scenario.pushes.push_back(timedPush(push.toObject()));
    if (root.contains(QLatin1String("walk")))
        scenario.walk = root[QLatin1String("walk")].toBool();
    scenario.fromFirstConnection =
        root[QLatin1String("from")].toString() == QLatin1String("firstConnection");
    return scenario;
}

std::optional<QByteArray> decimalText(const QJsonValue& value) {
    if (value.isString())
        return value.toString().toUtf8();
    if (value.isDouble())
        return QByteArray::number(value.toDouble(), 'f', 8);
    return std::nullopt;
}

} // namespace simulator
