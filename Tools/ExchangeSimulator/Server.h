// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/Control.h"
#include "Tools/ExchangeSimulator/HTTP/HTTPConnection.h"

#include <QTcpServer>

namespace simulator {

/// The one port: hands each request to the part that it is for. Listens on loopback only.
class Server final : public QObject {
    Q_OBJECT

public:
    /// All three must outlive the server; the log is the one that they write.
    Server(Control& control, StreamHub& hub, RestInterface& rest, EventLog& log);

    /// Starts listening; 0 takes any free port. False when the port cannot be had.
    bool listen(quint16 port) { return server_.listen(QHostAddress::LocalHost, port); }

    quint16 port() const { return server_.serverPort(); }
    QString errorText() const { return server_.errorString(); }

private:
    void accept();
    void handle(HTTPConnection& connection, const HTTPRequest& request);

    Control& control_;
    StreamHub& hub_;
    RestInterface& rest_;
    EventLog& log_;
    HTTPConnection::Handler handler_;
    QTcpServer server_;
};

} // namespace simulator
