// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"

#include <QByteArray>
#include <QUrl>

#include <string>

namespace quorvel {

/// One text and binary message connection at a time. Lives on the network thread; its calls may
/// interleave where they wait.
class WebSocketConnection {
public:
    WebSocketConnection() = default;
    WebSocketConnection(const WebSocketConnection&) = delete;
    WebSocketConnection& operator=(const WebSocketConnection&) = delete;
    virtual ~WebSocketConnection() = default;

    /// Opens a connection to `url` in place of the present one. Does not wait for the handshake:
    /// that it failed shows in the next `send` or `receive`.
    virtual platform::Task<> connect(QUrl url) = 0;

    /// Sends one text frame.
    /// @throws WebSocketError::notConnected without a connection, else the platform's error
    virtual platform::Task<> send(std::string text) = 0;

    /// The payload of the next frame; a text as UTF-8.
    /// @throws WebSocketError, or the platform's error
    virtual platform::Task<QByteArray> receive() = 0;

    /// Closes the connection as one that goes away. Harmless without one; never fails.
    virtual platform::Task<> close() = 0;
};

} // namespace quorvel
