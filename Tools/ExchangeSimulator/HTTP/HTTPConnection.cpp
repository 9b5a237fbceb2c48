// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/HTTPConnection.h"

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

namespace simulator {

HTTPConnection::HTTPConnection(QTcpSocket* socket, const Handler& handler, QObject* parent)
    : QObject(parent), socket_(socket), handler_(handler) {
    socket_->setParent(this);
    connect(socket_, &QTcpSocket::readyRead, this, &HTTPConnection::receive);
    connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

void HTTPConnection::receive() {
    parser_.append(socket_->readAll());
    handleNext();
}

void HTTPConnection::handleNext() {
    if (!socket_ || answering_ || !keepAlive_)
        return;
    const std::optional<HTTPRequest> request = parser_.next();
    if (request) {
        answering_ = true;
        keepAlive_ = request->keepAlive;
        handler_(*this, *request);
    } else if (parser_.hasFailed()) {
        keepAlive_ = false;
        Q_EMIT malformed();
        respond({.status = 400, .headers = {}, .body = {}});
    }
}

void HTTPConnection::respond(const HTTPResponse& response) {
    answering_ = false;
    held_.reset();
    keepAlive_ = keepAlive_ && !response.truncate;
    const QByteArray bytes = response.wireBytes(keepAlive_);
    if (response.dripBytes > 0) {
        drip(bytes, response.dripBytes, response.dripPause);
        return;
    }
    socket_->write(bytes);
    if (!keepAlive_) {
        socket_->disconnectFromHost();
        return;
    }
    // By way of the event loop: a client may pipeline more requests than the stack is deep.
    QMetaObject::invokeMethod(this, &HTTPConnection::handleNext, Qt::QueuedConnection);
}

void HTTPConnection::drip(const QByteArray& bytes, qsizetype piece,
                          std::chrono::milliseconds pause) {
    keepAlive_ = false;
    socket_->write(bytes.first(std::min(piece, bytes.size())));
    if (bytes.size() <= piece) {
        socket_->disconnectFromHost();
        return;
    }
    QTimer::singleShot(
        pause, Qt::PreciseTimer, this,
        [this, rest = bytes.sliced(piece), piece, pause] { drip(rest, piece, pause); });
}

int HTTPConnection::clientPort() const {
    return socket_->peerPort();
}

std::pair<QTcpSocket*, QByteArray> HTTPConnection::takeSocket() {
    QTcpSocket* socket = std::exchange(socket_, nullptr);
    socket->disconnect(this);
    socket->setParent(nullptr);
    deleteLater();
    return {socket, parser_.takeRest()};
}

} // namespace simulator
