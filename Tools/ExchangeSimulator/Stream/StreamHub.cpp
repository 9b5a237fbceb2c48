// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/StreamHub.h"

#include "Tools/ExchangeSimulator/Stream/StreamConnection.h"

#include <QTcpSocket>

#include <algorithm>
#include <iterator>

namespace simulator {

namespace {

QStringList streamsIn(const HTTPRequest& request) {
    const QString names = request.queryItem(u"streams").value_or(QString());
    QStringList streams = names.split(u'/', Qt::SkipEmptyParts);
    streams.removeDuplicates();
    return streams;
}

bool isHandshake(const HTTPRequest& request) {
    return request.method == "GET" && request.header("upgrade").toLower() == "websocket" &&
           request.header("connection").toLower().contains("upgrade") &&
           request.header("sec-websocket-version") == "13" &&
           QByteArray::fromBase64(request.header("sec-websocket-key")).size() == 16;
}

HTTPResponse refusal(const StreamHub::HandshakePolicy& policy) {
    return {.status = policy.status, .headers = policy.headers, .body = policy.body};
}

QJsonObject describe(const StreamConnection& connection) {
    return {{QStringLiteral("connection"), connection.number()},
            {QStringLiteral("streams"), QJsonArray::fromStringList(connection.streams())},
            {QStringLiteral("sent"), connection.sentCount()}};
}

} // namespace

StreamHub::StreamHub(const Limits& limits, EventLog& log) : limits_(limits), log_(log) {}

bool StreamHub::isFor(const HTTPRequest& request) {
    return request.path() == QLatin1String("/stream");
}

void StreamHub::handshake(HTTPConnection& connection, const HTTPRequest& request) {
    // Who was refused may ask why.
    if (policy_.mode == HandshakePolicy::Mode::refuse && request.header("upgrade").isEmpty())
        return connection.respond(refusal(policy_));
    ++attemptCount_;
    if (!isAttemptAllowed())
        return refuse(connection, request,
                      {.status = 429, .headers = {{"Retry-After", "60"}}, .body = {}});
    if (!isHandshake(request))
        return refuse(connection, request, {.status = 400, .headers = {}, .body = {}});
    const HandshakePolicy policy = takePolicy();
    switch (policy.mode) {
    case HandshakePolicy::Mode::accept:
        return open(connection, request);
    case HandshakePolicy::Mode::refuse:
        return refuse(connection, request, refusal(policy));
    case HandshakePolicy::Mode::hang:
        log_.add(QStringLiteral("handshakeHung"),
                 {{QStringLiteral("target"), QString::fromUtf8(request.target)}});
    }
}

bool StreamHub::isAttemptAllowed() {
    const Instant now = std::chrono::steady_clock::now();
    attempts_.push_back(now);
    while (now - attempts_.front() >= limits_.attemptWindow)
        attempts_.pop_front();
    mostAttempts_ = std::max(mostAttempts_, std::ssize(attempts_));
    return std::cmp_less_equal(attempts_.size(), limits_.connectionAttempts);
}

StreamHub::HandshakePolicy StreamHub::takePolicy() {
    const HandshakePolicy policy = policy_;
    if (policy_.count && --*policy_.count <= 0)
        policy_ = {};
    return policy;
}

void StreamHub::refuse(HTTPConnection& connection, const HTTPRequest& request,
                       HTTPResponse answer) {
    log_.add(QStringLiteral("handshakeRefused"),
             {{QStringLiteral("status"), answer.status},
              {QStringLiteral("target"), QString::fromUtf8(request.target)}});
    connection.respond(answer);
}

void StreamHub::open(HTTPConnection& connection, const HTTPRequest& request) {
    const HTTPResponse answer{
        .status = 101,
        .headers = {{"Upgrade", "websocket"},
                    {"Connection", "Upgrade"},
                    {"Sec-WebSocket-Accept", handshakeAccept(request.header("sec-websocket-key"))}},
        .body = {}};
    const auto [socket, received] = connection.takeSocket();
    socket->write(answer.wireBytes(true));
    auto* stream = new StreamConnection(++openedCount_, streamsIn(request), socket, limits_, terms_,
                                        log_, this);
    connections_.append(stream);
    connect(stream, &StreamConnection::ended, this, [this, stream] {
        connections_.removeOne(stream);
        stream->deleteLater();
    });
    log_.add(QStringLiteral("streamOpened"),
             {{QStringLiteral("connection"), stream->number()},
              {QStringLiteral("streams"), QJsonArray::fromStringList(stream->streams())},
              {QStringLiteral("target"), QString::fromUtf8(request.target)}});
    stream->setSilent(silent_);
    stream->begin(received);
    Q_EMIT opened();
}

void StreamHub::setSilent(bool silent) {
    silent_ = silent;
    forEach([silent](StreamConnection& connection) { connection.setSilent(silent); });
}

void StreamHub::limitsChanged() {
    forEach([](StreamConnection& connection) { connection.restartTimers(); });
}

void StreamHub::publish(const QString& stream, const QByteArray& event) {
    const QByteArray message = "{\"stream\":\"" + stream.toUtf8() + "\",\"data\":" + event + '}';
    const QByteArray bytes = encodeMessage(Opcode::text, message);
    forEach([&](StreamConnection& connection) {
        if (connection.streams().contains(stream))
            connection.send(bytes);
    });
}

void StreamHub::forEach(const std::function<void(StreamConnection&)>& call) const {
    const QList<StreamConnection*> connections = connections_;
    for (StreamConnection* connection : connections)
        call(*connection);
}

QJsonObject StreamHub::state() const {
    QJsonArray open;
    forEach([&open](StreamConnection& connection) { open.append(describe(connection)); });
    return {{QStringLiteral("connectionCount"), connections_.size()},
            {QStringLiteral("connections"), open},
            {QStringLiteral("handshakes"), attemptCount_},
            {QStringLiteral("mostAttempts"), static_cast<qint64>(mostAttempts_)},
            {QStringLiteral("mostMessages"), static_cast<qint64>(terms_.mostMessages)},
            {QStringLiteral("opened"), openedCount_},
            {QStringLiteral("silent"), silent_}};
}

} // namespace simulator
