// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Control.h"

#include "Tools/ExchangeSimulator/Market/Scenario.h"
#include "Tools/ExchangeSimulator/Stream/StreamConnection.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <stdexcept>

namespace simulator {

namespace {

const QString prefix = QStringLiteral("/control/");

/// A query item's text as the JSON value that it looks like.
QJsonValue valueIn(const QString& text) {
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray("[" + text.toUtf8() + "]"));
    return document.array().size() == 1 ? document.array().first() : QJsonValue(text);
}

QJsonObject parametersOf(const HTTPRequest& request) {
    QJsonObject parameters;
    if (!request.body.isEmpty()) {
        const QJsonDocument document = QJsonDocument::fromJson(request.body);
        if (!document.isObject())
            throw std::invalid_argument("the body is not a JSON object");
        parameters = document.object();
    }
    for (const auto& [name, text] : request.queryItems())
        parameters[name] = valueIn(text);
    return parameters;
}

QJsonValue required(const QJsonObject& parameters, const char* name, QJsonValue::Type type) {
    const QJsonValue value = parameters[QLatin1String(name)];
    if (value.type() != type)
        throw std::invalid_argument(std::string("missing or of the wrong type: ") + name);
    return value;
}

std::optional<int> optionalInt(const QJsonObject& parameters, const char* name) {
    const QJsonValue value = parameters[QLatin1String(name)];
    return value.isDouble() ? std::optional(value.toInt()) : std::nullopt;
}

QByteArray fromBase64(const QJsonValue& value) {
    const auto result = QByteArray::fromBase64Encoding(value.toString().toLatin1(),
                                                       QByteArray::AbortOnBase64DecodingErrors);
    if (!result)
        throw std::invalid_argument("not base64");
    return result.decoded;
}

QByteArray wireBytes(const QJsonObject& parameters) {
    const int fragments = parameters[QLatin1String("fragments")].toInt(1);
    if (const QJsonValue raw = parameters[QLatin1String("raw")]; raw.isString())
        return fromBase64(raw);
    if (const QJsonValue binary = parameters[QLatin1String("binary")]; binary.isString())
        return encodeMessage(Opcode::binary, fromBase64(binary), fragments);
    const QJsonValue text = required(parameters, "text", QJsonValue::String);
    return encodeMessage(Opcode::text, text.toString().toUtf8(), fragments);
}

StreamHub::HandshakePolicy::Mode modeNamed(const QString& name) {
    using Mode = StreamHub::HandshakePolicy::Mode;
    if (name == QLatin1String("accept"))
        return Mode::accept;
    if (name == QLatin1String("refuse"))
        return Mode::refuse;
    if (name == QLatin1String("hang"))
        return Mode::hang;
    throw std::invalid_argument("mode is one of accept, refuse, hang");
}

} // namespace

Control::Control(const Parts& parts)
    : parts_(parts),
      calls_{{QStringLiteral("push"), &Control::push},
             {QStringLiteral("walk"), &Control::walk},
             {QStringLiteral("drop"), &Control::drop},
             {QStringLiteral("handshake"), &Control::handshake},
             {QStringLiteral("silence"), &Control::silence},
             {QStringLiteral("frame"), &Control::frame},
             {QStringLiteral("close"), &Control::close},
             {QStringLiteral("rest"), &Control::rest},
             {QStringLiteral("exchangeInfo"), &Control::exchangeInfo},
             {QStringLiteral("clock"), &Control::clock},
             {QStringLiteral("command"), &Control::command},
             {QStringLiteral("limits"), &Control::limits},
             {QStringLiteral("reset"), &Control::reset},
             {QStringLiteral("state"), &Control::state}} {}

bool Control::isFor(const HTTPRequest& request) {
    return request.path().startsWith(prefix);
}

HTTPResponse Control::answer(const HTTPRequest& request) {
    try {
        const QString name = request.path().mid(prefix.size());
        const QJsonObject parameters = parametersOf(request);
        if (name == QLatin1String("log"))
            return log(parameters);
        const auto call = calls_.find(name);
        if (call == calls_.end())
            return HTTPResponse::json(
                404, {{QStringLiteral("error"), QStringLiteral("no such control call")}});
        QJsonObject answer = (this->*call->second)(parameters);
        answer[QStringLiteral("ok")] = true;
        return HTTPResponse::json(200, answer);
    } catch (const std::invalid_argument& error) {
        return HTTPResponse::json(400,
                                  {{QStringLiteral("error"), QString::fromUtf8(error.what())}});
    }
}

QJsonObject Control::push(const QJsonObject& parameters) {
    const QString symbol = required(parameters, "symbol", QJsonValue::String).toString();
    const auto price = decimalText(parameters[QLatin1String("price")]);
    const auto change = decimalText(parameters[QLatin1String("change")]);
    if (symbol.isEmpty() || (!price && !change))
        throw std::invalid_argument("push wants a symbol and a price or a change");
    const QJsonValue time = parameters[QLatin1String("time")];
    parts_.feed.push(symbol, price, change,
                     time.isDouble() ? std::optional(time.toInteger()) : std::nullopt);
    return {};
}

QJsonObject Control::walk(const QJsonObject& parameters) {
    parts_.feed.setWalking(required(parameters, "running", QJsonValue::Bool).toBool());
    return {};
}

QJsonObject Control::drop(const QJsonObject& parameters) {
    const QString how = parameters[QLatin1String("how")].toString(QStringLiteral("close"));
    const int code = optionalInt(parameters, "code").value_or(closeCode::goingAway);
    const qsizetype count = parts_.hub.connectionCount();
    if (how == QLatin1String("close"))
        parts_.hub.forEach([code](StreamConnection& connection) { connection.end(code); });
    else if (how == QLatin1String("eof"))
        parts_.hub.forEach([](StreamConnection& connection) { connection.end(std::nullopt); });
    else if (how == QLatin1String("abort"))
        parts_.hub.forEach([](StreamConnection& connection) { connection.abort(); });
    else
        throw std::invalid_argument("how is one of close, abort, eof");
    return {{QStringLiteral("connections"), count}};
}

QJsonObject Control::handshake(const QJsonObject& parameters) {
    const QString mode = required(parameters, "mode", QJsonValue::String).toString();
    const RestOverride answer = RestOverride::fromJSON(parameters);
    parts_.hub.setPolicy({.mode = modeNamed(mode),
                          .status = answer.status.value_or(503),
                          .headers = answer.headers,
                          .body = answer.body.value_or(QByteArray()),
                          .count = optionalInt(parameters, "count")});
    return {};
}

QJsonObject Control::silence(const QJsonObject& parameters) {
    parts_.hub.setSilent(required(parameters, "silent", QJsonValue::Bool).toBool());
    return {};
}

QJsonObject Control::frame(const QJsonObject& parameters) {
    const QByteArray bytes = wireBytes(parameters);
    parts_.hub.forEach([&bytes](StreamConnection& connection) { connection.send(bytes); });
    return {{QStringLiteral("connections"), parts_.hub.connectionCount()}};
}

QJsonObject Control::close(const QJsonObject& parameters) {
    const std::optional<int> code = optionalInt(parameters, "code");
    const QByteArray reason = parameters[QLatin1String("reason")].toString().toUtf8();
    parts_.hub.forEach([&](StreamConnection& connection) { connection.close(code, reason); });
    return {{QStringLiteral("connections"), parts_.hub.connectionCount()}};
}

QJsonObject Control::rest(const QJsonObject& parameters) {
    const QString path = required(parameters, "path", QJsonValue::String).toString();
    if (parameters[QLatin1String("reset")].toBool())
        parts_.rest.resetOverride(path);
    else
        parts_.rest.setOverride(path, RestOverride::fromJSON(parameters));
    return {};
}

QJsonObject Control::exchangeInfo(const QJsonObject& parameters) {
    constexpr qint64 most = 256 * 1024 * 1024;
    const qint64 bytes = required(parameters, "bytes", QJsonValue::Double).toInteger(-1);
    if (bytes < 0 || bytes > most)
        throw std::invalid_argument("bytes is from 0 to 256 MiB");
    parts_.rest.padExchangeInfo(bytes);
    return {};
}

QJsonObject Control::clock(const QJsonObject& parameters) {
    parts_.time.offset =
        std::chrono::milliseconds(parameters[QLatin1String("offsetMs")].toInteger());
    parts_.time.isTold = parameters[QLatin1String("told")].toBool(true);
    parts_.time.age = std::chrono::seconds(parameters[QLatin1String("ageSeconds")].toInteger());
    return {};
}

QJsonObject Control::command(const QJsonObject& parameters) {
    QStringList streams;
    for (const auto stream : parameters[QLatin1String("refuse")].toArray())
        streams.append(stream.toString());
    parts_.hub.refuseStreams(streams);
    return {};
}

QJsonObject Control::limits(const QJsonObject& parameters) {
    parts_.limits.set(parameters);
    limitsChanged();
    return parts_.limits.toJSON();
}

QJsonObject Control::reset(const QJsonObject&) {
    parts_.limits = {};
    parts_.time = {};
    parts_.hub.refuseStreams({});
    limitsChanged();
    parts_.hub.setPolicy({});
    parts_.hub.setSilent(false);
    parts_.rest.resetOverrides();
    parts_.rest.padExchangeInfo(0);
    parts_.feed.setWalking(parts_.walksNormally);
    return {};
}

QJsonObject Control::state(const QJsonObject&) {
    QJsonObject state = parts_.hub.state();
    state[QStringLiteral("rest")] = parts_.rest.state();
    state[QStringLiteral("limits")] = parts_.limits.toJSON();
    state[QStringLiteral("walking")] = parts_.feed.isWalking();
    state[QStringLiteral("lastEvent")] = parts_.log.lastNumber();
    return state;
}

HTTPResponse Control::log(const QJsonObject& parameters) const {
    const QJsonArray events = parts_.log.since(parameters[QLatin1String("since")].toInteger());
    return {.status = 200,
            .headers = {},
            .body = QJsonDocument(events).toJson(QJsonDocument::Compact) + '\n'};
}

void Control::limitsChanged() {
    parts_.hub.limitsChanged();
    parts_.feed.limitsChanged();
}

} // namespace simulator
