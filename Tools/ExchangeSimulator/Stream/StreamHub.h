// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/EventLog.h"
#include "Tools/ExchangeSimulator/HTTP/HTTPConnection.h"
#include "Tools/ExchangeSimulator/Stream/Limits.h"
#include "Tools/ExchangeSimulator/Stream/StreamTerms.h"

#include <QList>
#include <QObject>

#include <chrono>
#include <deque>
#include <functional>
#include <optional>

namespace simulator {

class StreamConnection;

/// The combined stream's endpoint: takes handshakes, or does not, and owns the connections that
/// come of them.
class StreamHub final : public QObject {
    Q_OBJECT

public:
    /// What becomes of a handshake that is in order.
    struct HandshakePolicy {
        enum class Mode { accept, refuse, hang };
        Mode mode = Mode::accept;
        /// The HTTP status of a refusal, and what comes with it.
        int status = 503;
        HTTPHeaders headers = {};
        QByteArray body = {};
        /// How many handshakes it holds for; absent: all to come.
        std::optional<int> count;
    };

    /// Both must outlive the hub.
    StreamHub(const Limits& limits, EventLog& log);

    /// Whether that request is for the stream.
    static bool isFor(const HTTPRequest& request);

    /// Takes the connection over, refuses it, or leaves it hanging.
    void handshake(HTTPConnection& connection, const HTTPRequest& request);

    /// Has subscriptions of these streams refused, each command as a whole.
    void refuseStreams(const QStringList& streams) { terms_.refusedStreams = streams; }

    void setPolicy(const HandshakePolicy& policy) { policy_ = policy; }

    /// Applies to connections to come as well.
    void setSilent(bool silent);

    /// Has all connections take changed limits into account.
    void limitsChanged();

    /// Sends an event, in the combined stream's envelope, to those that subscribed to the stream.
    void publish(const QString& stream, const QByteArray& event);

    /// Calls for every open connection; the call may end it.
    void forEach(const std::function<void(StreamConnection&)>& call) const;

    qsizetype connectionCount() const { return connections_.size(); }

    /// The open connections and how often clients tried to connect.
    QJsonObject state() const;

Q_SIGNALS:
    void opened();

private:
    using Instant = std::chrono::steady_clock::time_point;

    bool isAttemptAllowed();
    HandshakePolicy takePolicy();
    void refuse(HTTPConnection& connection, const HTTPRequest& request, HTTPResponse answer);
    void open(HTTPConnection& connection, const HTTPRequest& request);

    const Limits& limits_;
    StreamTerms terms_;
    EventLog& log_;
    QList<StreamConnection*> connections_;
    std::deque<Instant> attempts_;
    HandshakePolicy policy_;
    int attemptCount_ = 0;
    std::ptrdiff_t mostAttempts_ = 0; ///< within any window
    int openedCount_ = 0;
    bool silent_ = false;
};

} // namespace simulator
