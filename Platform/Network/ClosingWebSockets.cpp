// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/ClosingWebSockets.h"

#include <QWebSocket>

#include <chrono>

namespace platform {

using namespace std::chrono_literals;

ClosingWebSockets::ClosingWebSockets(Clock& clock)
    : clock_(clock), context_(std::make_unique<QObject>()) {}

ClosingWebSockets::~ClosingWebSockets() {
    context_.reset();
}

void ClosingWebSockets::close(std::unique_ptr<QWebSocket> socket, std::uint16_t closeCode) {
    QWebSocket* const key = socket.get();
    sockets_.emplace(key, Closing{.socket = std::move(socket),
                                  .deadline = clock_.startTimer(2s, [key] { key->abort(); })});
    QObject::connect(key, &QWebSocket::disconnected, context_.get(), [this, key] { forget(key); });
    key->close(static_cast<QWebSocketProtocol::CloseCode>(closeCode));
}

void ClosingWebSockets::forget(QWebSocket* socket) {
    const auto found = sockets_.find(socket);
    if (found == sockets_.end())
        return;
    discard(std::move(found->second.socket));
    sockets_.erase(found);
    if (sockets_.empty())
        Q_EMIT emptied();
}

void ClosingWebSockets::discard(std::unique_ptr<QWebSocket> socket) {
    // A child, since at its end a thread no longer delivers a deletion that was put off.
    socket->setParent(context_.get());
    socket.release()->deleteLater();
}

} // namespace platform
