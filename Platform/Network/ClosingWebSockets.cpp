// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/ClosingWebSockets.h"

#include <QTimer>
#include <QWebSocket>

#include <chrono>

namespace platform {

using namespace std::chrono_literals;

ClosingWebSockets::ClosingWebSockets() : context_(std::make_unique<QObject>()) {}

ClosingWebSockets::~ClosingWebSockets() {
    context_.reset();
}

void ClosingWebSockets::close(std::unique_ptr<QWebSocket> socket, std::uint16_t closeCode) {
    QWebSocket* const key = socket.get();
    sockets_.emplace(key, std::move(socket));
    QObject::connect(key, &QWebSocket::disconnected, context_.get(), [this, key] { forget(key); });
    QTimer::singleShot(2s, key, [key] { key->abort(); });
    key->close(static_cast<QWebSocketProtocol::CloseCode>(closeCode));
}

void ClosingWebSockets::forget(QWebSocket* socket) {
    const auto found = sockets_.find(socket);
    if (found == sockets_.end())
        return;
    discard(std::move(found->second));
    sockets_.erase(found);
}

void ClosingWebSockets::discard(std::unique_ptr<QWebSocket> socket) {
    // A child, since at its end a thread no longer delivers a deletion that was put off.
    socket->setParent(context_.get());
    socket.release()->deleteLater();
}

} // namespace platform
