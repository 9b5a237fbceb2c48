// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/StreamConnection.h"

#include "Tools/ExchangeSimulator/Stream/SubscriptionCommand.h"

#include <QDateTime>
#include <QStringDecoder>
#include <QTcpSocket>

#include <algorithm>

namespace simulator {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// How long a client may take to end its side once we have ended ours.
constexpr milliseconds closingGrace = 5s;
constexpr milliseconds rateWindow = 1s;
constexpr qsizetype largestMessage = 1024 * 1024;

bool isUtf8(const QByteArray& text) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(text);
    return !decoder.hasError();
}

} // namespace

StreamConnection::StreamConnection(int number, QStringList streams, QTcpSocket* socket,
                                   const Limits& limits, StreamTerms& terms, EventLog& log,
                                   QObject* parent)
    : QObject(parent),
      number_(number),
      streams_(std::move(streams)),
      socket_(socket),
      limits_(limits),
      terms_(terms),
      log_(log),
      probe_(socket->socketDescriptor()) {
    socket_->setParent(this);
    pongTimer_.setSingleShot(true);
    lifeTimer_.setSingleShot(true);
    connect(socket_, &QTcpSocket::readyRead, this, &StreamConnection::receive);
    connect(socket_, &QTcpSocket::bytesWritten, this, &StreamConnection::shutDownWhenWritten);
    connect(socket_, &QTcpSocket::disconnected, this, &StreamConnection::finish);
    connect(&pingTimer_, &QTimer::timeout, this, &StreamConnection::ping);
    connect(&pongTimer_, &QTimer::timeout, this,
            [this] { cutOff(closeCode::policyViolation, "no pong"); });
    connect(&lifeTimer_, &QTimer::timeout, this,
            [this] { cutOff(closeCode::goingAway, "end of life"); });
}

void StreamConnection::begin(const QByteArray& received) {
    restartTimers();
    checkStreamCount();
    reader_.append(received);
    receive();
}

void StreamConnection::restartTimers() {
    if (finishing_)
        return;
    const auto age =
        std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - opened_);
    pingTimer_.start(limits_.pingInterval);
    lifeTimer_.start(std::max(limits_.lifetime - age, milliseconds(0)));
    awaitPong();
}

void StreamConnection::setSilent(bool silent) {
    silent_ = silent;
    // What went unanswered while we were deaf is not held against the client.
    openPings_.clear();
    restartTimers();
}

void StreamConnection::send(const QByteArray& wireBytes) {
    if (silent_ || closeSent_ || finishing_)
        return;
    ++sentCount_;
    socket_->write(wireBytes);
}

void StreamConnection::close(std::optional<int> code, const QByteArray& reason) {
    send(encodeMessage(Opcode::close, closePayload(code, reason)));
    closeSent_ = !silent_;
    if (closeSent_)
        QTimer::singleShot(closingGrace, this, &StreamConnection::finishWriting);
}

void StreamConnection::end(std::optional<int> code) {
    if (code)
        close(code, {});
    finishWriting();
}

void StreamConnection::abort() {
    finishing_ = true;
    probe_.resetOnClose();
    socket_->abort();
}

void StreamConnection::cutOff(int code, const QByteArray& reason) {
    if (silent_ || finishing_)
        return;
    record(QStringLiteral("cutOff"),
           {{QStringLiteral("code"), code}, {QStringLiteral("reason"), QString::fromUtf8(reason)}});
    close(code, reason);
    finishWriting();
}

// Closing at once could make the kernel send a reset, for bytes of the client that nobody has read,
// and the client would lose the close frame. So only our side is ended; the client's bytes are
// taken and thrown away until it has ended its own.
void StreamConnection::finishWriting() {
    finishing_ = true;
    for (QTimer* timer : {&pingTimer_, &pongTimer_, &lifeTimer_})
        timer->stop();
    QTimer::singleShot(closingGrace, this, &StreamConnection::abort);
    socket_->flush();
    shutDownWhenWritten();
}

void StreamConnection::shutDownWhenWritten() {
    if (finishing_ && socket_->bytesToWrite() == 0)
        probe_.shutDownWriting();
}

void StreamConnection::finish() {
    if (std::exchange(ended_, true))
        return;
    const char* how = finishing_ ? "server" : probe_.wasReset() ? "reset" : "fin";
    probe_.release();
    record(QStringLiteral("streamClosed"),
           {{QStringLiteral("code"), receivedCode_ ? QJsonValue(*receivedCode_) : QJsonValue()},
            {QStringLiteral("reason"), receivedReason_},
            {QStringLiteral("endedBy"), QString::fromLatin1(how)}});
    Q_EMIT ended();
}

void StreamConnection::receive() {
    const QByteArray bytes = socket_->readAll();
    if (finishing_)
        return;
    reader_.append(bytes);
    while (!finishing_) {
        const std::optional<WebSocketFrame> frame = reader_.next();
        if (!frame)
            break;
        handle(*frame);
    }
    if (reader_.failure())
        cutOff(*reader_.failure(), "protocol error");
}

void StreamConnection::handle(const WebSocketFrame& frame) {
    const QString payload = QString::fromUtf8(frame.payload);
    switch (frame.opcode) {
    case Opcode::close:
        return handleClose(frame.payload);
    case Opcode::pong:
        handlePong(frame.payload);
        break;
    case Opcode::ping:
        record(QStringLiteral("ping"), {{QStringLiteral("payload"), payload}});
        if (!silent_ && !closeSent_)
            socket_->write(encodeMessage(Opcode::pong, frame.payload));
        break;
    default:
        return handleData(frame);
    }
    isWithinRate();
}

void StreamConnection::handleData(const WebSocketFrame& frame) {
    const bool continues = frame.opcode == Opcode::continuation;
    if (continues != messageOpcode_.has_value())
        return cutOff(closeCode::protocolError, "continuation out of place");
    if (!continues)
        messageOpcode_ = frame.opcode;
    message_ += frame.payload;
    if (message_.size() > largestMessage)
        return cutOff(closeCode::tooBig, "message too big");
    if (frame.final)
        handleMessage();
}

void StreamConnection::handleMessage() {
    const QByteArray message = std::exchange(message_, {});
    const bool isText = std::exchange(messageOpcode_, std::nullopt) == Opcode::text;
    if (isText && !isUtf8(message))
        return cutOff(closeCode::invalidText, "not UTF-8");
    record(isText ? QStringLiteral("text") : QStringLiteral("binary"),
           {{QStringLiteral("text"), QString::fromUtf8(message)}});
    if (!isWithinRate())
        return;
    send(encodeMessage(Opcode::text, carryOutCommand(message, streams_, terms_.refusedStreams)));
    checkStreamCount();
}

void StreamConnection::handlePong(const QByteArray& payload) {
    const auto ping = std::ranges::find(openPings_, payload, [](const auto& p) { return p.first; });
    const bool expected = ping != openPings_.end();
    record(QStringLiteral("pong"), {{QStringLiteral("payload"), QString::fromUtf8(payload)},
                                    {QStringLiteral("expected"), expected}});
    // One pong may answer for the pings before, too.
    if (expected)
        openPings_.erase(openPings_.begin(), ping + 1);
    awaitPong();
}

void StreamConnection::handleClose(const QByteArray& payload) {
    receivedCode_ = closeCodeOf(payload);
    receivedReason_ = QString::fromUtf8(payload.mid(2));
    record(QStringLiteral("closeReceived"),
           {{QStringLiteral("code"), receivedCode_ ? QJsonValue(*receivedCode_) : QJsonValue()}});
    if (silent_)
        return;
    if (!closeSent_)
        close(receivedCode_, {});
    finishWriting();
}

bool StreamConnection::isWithinRate() {
    const Instant now = std::chrono::steady_clock::now();
    recentMessages_.push_back(now);
    while (now - recentMessages_.front() >= rateWindow)
        recentMessages_.pop_front();
    terms_.mostMessages = std::max(terms_.mostMessages, std::ssize(recentMessages_));
    const bool within = std::cmp_less_equal(recentMessages_.size(), limits_.messagesPerSecond);
    if (!within)
        cutOff(closeCode::policyViolation, "too many messages");
    return within;
}

void StreamConnection::checkStreamCount() {
    if (streams_.size() > limits_.streamsPerConnection)
        cutOff(closeCode::policyViolation, "too many streams");
}

void StreamConnection::ping() {
    if (silent_ || closeSent_)
        return;
    const QByteArray payload = QByteArray::number(QDateTime::currentMSecsSinceEpoch());
    record(QStringLiteral("pingSent"), {{QStringLiteral("payload"), QString::fromUtf8(payload)}});
    socket_->write(encodeMessage(Opcode::ping, payload));
    openPings_.emplace_back(payload, std::chrono::steady_clock::now());
    awaitPong();
}

void StreamConnection::awaitPong() {
    if (openPings_.empty() || finishing_)
        return pongTimer_.stop();
    const auto waited = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() -
                                                                 openPings_.front().second);
    pongTimer_.start(std::max(limits_.pongDeadline - waited, milliseconds(0)));
}

void StreamConnection::record(const QString& kind, QJsonObject detail) {
    detail[QStringLiteral("connection")] = number_;
    log_.add(kind, detail);
}

} // namespace simulator
