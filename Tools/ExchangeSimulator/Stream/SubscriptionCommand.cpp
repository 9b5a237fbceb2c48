// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/SubscriptionCommand.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace simulator {

namespace {

QByteArray compact(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray error(int code, const QString& message, const QJsonValue& id = QJsonValue::Undefined) {
    QJsonObject answer{{QStringLiteral("code"), code}, {QStringLiteral("msg"), message}};
    if (!id.isUndefined())
        answer[QStringLiteral("id")] = id;
    return compact(answer);
}

/// A result comes before its id on the wire, which a sorted object would turn round.
QByteArray result(const QByteArray& value, const QJsonValue& id) {
    return "{\"result\":" + value + ",\"id\":" + QByteArray::number(id.toInteger()) + '}';
}

bool isId(const QJsonValue& id) {
    return id.isDouble() && id.toInteger(-1) >= 0;
}

} // namespace

QByteArray carryOutCommand(const QByteArray& text, QStringList& streams,
                           const QStringList& refused) {
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        return error(3, QStringLiteral("Invalid JSON: expected an object"));
    const QJsonObject command = document.object();
    const QString method = command[QLatin1String("method")].toString();
    const QJsonValue id = command[QLatin1String("id")];
    if (!isId(id))
        return error(2, QStringLiteral("Invalid request: request ID must be an unsigned integer"));
    if (method == QLatin1String("LIST_SUBSCRIPTIONS")) {
        const QJsonArray list = QJsonArray::fromStringList(streams);
        return result(QJsonDocument(list).toJson(QJsonDocument::Compact), id);
    }
    const bool subscribes = method == QLatin1String("SUBSCRIBE");
    if (!subscribes && method != QLatin1String("UNSUBSCRIBE"))
        return error(2, QStringLiteral("Invalid request: unknown method"), id);
    const QJsonArray names = command[QLatin1String("params")].toArray();
    if (names.isEmpty() || !std::ranges::all_of(names, [](auto&& name) { return name.isString(); }))
        return error(2, QStringLiteral("Invalid request: params must be stream names"), id);
    const auto isRefused = [&refused](auto&& name) { return refused.contains(name.toString()); };
    if (subscribes && std::ranges::any_of(names, isRefused))
        return error(2, QStringLiteral("Invalid request: unknown stream"), id);
    for (const auto name : names) {
        streams.removeAll(name.toString());
        if (subscribes)
            streams.append(name.toString());
    }
    return result("null", id);
}

} // namespace simulator
