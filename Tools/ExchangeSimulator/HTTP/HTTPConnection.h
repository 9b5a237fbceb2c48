// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/HTTP/HTTPParser.h"
#include "Tools/ExchangeSimulator/HTTP/HTTPResponse.h"

#include <QObject>

#include <functional>
#include <memory>

class QTcpSocket;

namespace simulator {

/// One accepted connection while it speaks HTTP. Hands over one request at a time and waits for its
/// answer, for ever if need be, before the next. Deletes itself when the client has gone or when
/// its socket has been taken.
class HTTPConnection final : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(HTTPConnection&, const HTTPRequest&)>;

    /// Takes the socket over. `handler` must outlive the connection.
    HTTPConnection(QTcpSocket* socket, const Handler& handler, QObject* parent);

    /// Answers the request last handed over.
    void respond(const HTTPResponse& response);

    /// Keeps `held` until the request last handed over is answered or its client has gone.
    void holdUntilAnswered(std::shared_ptr<void> held) { held_ = std::move(held); }

    int clientPort() const;

    /// Gives the socket away, without a parent, and with it the bytes received behind the request.
    std::pair<QTcpSocket*, QByteArray> takeSocket();

Q_SIGNALS:
    /// What came in was not HTTP. The client is told and cut off.
    void malformed();

private:
    void receive();
    void handleNext();
    void drip(const QByteArray& bytes, qsizetype piece, std::chrono::milliseconds pause);

    QTcpSocket* socket_;
    const Handler& handler_;
    HTTPParser parser_;
    std::shared_ptr<void> held_;
    bool answering_ = false;
    bool keepAlive_ = true;
};

} // namespace simulator
