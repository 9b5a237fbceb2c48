// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/EventLog.h"
#include "Tools/ExchangeSimulator/Stream/EndProbe.h"
#include "Tools/ExchangeSimulator/Stream/Limits.h"
#include "Tools/ExchangeSimulator/Stream/StreamTerms.h"
#include "Tools/ExchangeSimulator/Stream/WebSocketFrame.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <deque>
#include <optional>
#include <utility>

class QTcpSocket;

namespace simulator {

/// One client of the combined stream after its handshake. Carries out its commands, pings it, and
/// cuts it off when it breaks the protocol or a limit. Owned by the hub, which removes it on
/// `ended`; the hub's limits, terms and log outlive it.
class StreamConnection final : public QObject {
    Q_OBJECT

public:
    /// Takes the socket over. `number` names the connection in the log.
    StreamConnection(int number, QStringList streams, QTcpSocket* socket, const Limits& limits,
                     StreamTerms& terms, EventLog& log, QObject* parent);

    int number() const { return number_; }
    const QStringList& streams() const { return streams_; }
    /// Messages and frames sent, pings and pongs left out.
    qint64 sentCount() const { return sentCount_; }

    /// Takes bytes that came in before the socket was handed over, and starts pinging.
    void begin(const QByteArray& received);

    /// Sends those bytes, unless silent or closing.
    void send(const QByteArray& wireBytes);

    /// Sends a close frame and waits for the client's.
    void close(std::optional<int> code, const QByteArray& reason);

    /// Ends the TCP connection by a FIN, after a close frame when there is a code.
    void end(std::optional<int> code);

    /// Ends the TCP connection by a reset.
    void abort();

    /// While silent nothing is sent, whatever the client does, and no limit is enforced.
    void setSilent(bool silent);

    /// Takes changed limits into account.
    void restartTimers();

Q_SIGNALS:
    /// The TCP connection is gone. Emitted once.
    void ended();

private:
    using Instant = std::chrono::steady_clock::time_point;

    void receive();
    void handle(const WebSocketFrame& frame);
    void handleData(const WebSocketFrame& frame);
    void handleMessage();
    void handlePong(const QByteArray& payload);
    void handleClose(const QByteArray& payload);
    bool isWithinRate();
    void checkStreamCount();
    void ping();
    void awaitPong();
    void cutOff(int code, const QByteArray& reason);
    void finishWriting();
    void shutDownWhenWritten();
    void finish();
    void record(const QString& kind, QJsonObject detail = {});

    int number_;
    QStringList streams_;
    QTcpSocket* socket_;
    const Limits& limits_;
    StreamTerms& terms_;
    EventLog& log_;
    EndProbe probe_;
    FrameReader reader_;
    std::optional<Opcode> messageOpcode_;
    QByteArray message_;
    std::deque<Instant> recentMessages_;
    std::deque<std::pair<QByteArray, Instant>> openPings_;
    QTimer pingTimer_;
    QTimer pongTimer_;
    QTimer lifeTimer_;
    Instant opened_ = std::chrono::steady_clock::now();
    std::optional<int> receivedCode_;
    QString receivedReason_;
    qint64 sentCount_ = 0;
    bool silent_ = false;
    bool closeSent_ = false;
    bool finishing_ = false;
    bool ended_ = false;
};

} // namespace simulator
