// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"

#include <QObject>

#include <cstdint>
#include <map>
#include <memory>

class QWebSocket;

namespace platform {

/// Keeps sockets that have sent their close frame until the other side has answered it, so that the
/// frame is not lost with the socket. One that gets no answer within two seconds is dropped.
class ClosingWebSockets : public QObject {
    Q_OBJECT

public:
    /// @param clock counts the two seconds; outlives this object
    explicit ClosingWebSockets(Clock& clock);
    ~ClosingWebSockets() override;

    /// Sends the close frame over an open socket. Its owner listens to it no more.
    void close(std::unique_ptr<QWebSocket> socket, std::uint16_t closeCode);

    /// Deletes a socket as soon as none of its signals can be running, at the latest with this
    /// object.
    void discard(std::unique_ptr<QWebSocket> socket);

    /// Whether every socket has said goodbye.
    bool isEmpty() const { return sockets_.empty(); }

Q_SIGNALS:
    /// The last socket has said goodbye, or was dropped.
    void emptied();

private:
    struct Closing {
        std::unique_ptr<QWebSocket> socket;
        std::unique_ptr<ClockTimer> deadline;
    };

    void forget(QWebSocket* socket);

    Clock& clock_;
    std::map<QWebSocket*, Closing> sockets_;
    std::unique_ptr<QObject> context_; ///< parent of the discarded
};

} // namespace platform
