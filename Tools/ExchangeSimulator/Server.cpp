// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Server.h"

#include <QTcpSocket>

namespace simulator {

Server::Server(Control& control, StreamHub& hub, RestInterface& rest, EventLog& log)
    : control_(control),
      hub_(hub),
      rest_(rest),
      log_(log),
      handler_([this](HTTPConnection& connection, const HTTPRequest& request) {
          handle(connection, request);
      }) {
    connect(&server_, &QTcpServer::newConnection, this, &Server::accept);
}

void Server::accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        auto* connection = new HTTPConnection(socket, handler_, this);
        connect(connection, &HTTPConnection::malformed, this,
                [this] { log_.add(QStringLiteral("malformed"), {}); });
    }
}

void Server::handle(HTTPConnection& connection, const HTTPRequest& request) {
    if (Control::isFor(request))
        connection.respond(control_.answer(request));
    else if (StreamHub::isFor(request))
        hub_.handshake(connection, request);
    else
        rest_.handle(connection, request);
}

} // namespace simulator
