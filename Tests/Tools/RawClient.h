// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/Stream/EndProbe.h"

#include <QByteArray>
#include <QTcpSocket>

#include <chrono>
#include <memory>
#include <optional>

namespace test {

/// A client that sends any bytes and sees every byte, and how the connection ends. Blocks; on
/// loopback nothing takes longer than the 3 seconds it waits.
class RawClient {
public:
    /// A frame as received.
    struct Frame {
        bool final = true;
        int opcode = 0;
        QByteArray payload;

        /// The status code of a close frame; -1 when there is none.
        int closeCode() const;
        friend bool operator==(const Frame&, const Frame&) = default;
    };
    /// An answer as received.
    struct Answer {
        /// 0 when there was none.
        int status = 0;
        QByteArray head;
        /// What came of the body; in chunks, when it was sent so.
        QByteArray body;
    };
    enum class End { open, fin, reset };

    explicit RawClient(quint16 port);

    void send(const QByteArray& bytes);
    /// Sends a masked frame.
    void sendFrame(int opcode, const QByteArray& payload, bool final = true);
    void sendText(const QByteArray& text) { sendFrame(1, text); }

    /// Sends a GET that asks for the connection to be closed, and reads to the end.
    Answer get(const QByteArray& target);
    /// Sends those bytes and reads to the end.
    Answer exchange(const QByteArray& bytes);

    /// Makes the WebSocket handshake and gives the answer's head; empty when none came in time.
    QByteArray handshake(const QByteArray& target,
                         std::chrono::milliseconds timeout = std::chrono::seconds(3));

    /// The next frame; absent when none comes in time.
    std::optional<Frame> nextFrame(std::chrono::milliseconds timeout = std::chrono::seconds(3));

    /// Waits for the server to end the connection.
    End waitForEnd(std::chrono::milliseconds timeout = std::chrono::seconds(3));

    /// Ends the connection by a FIN, or by a reset.
    void end() { socket_.disconnectFromHost(), probe_->release(); }
    void reset();

private:
    bool receive(std::chrono::milliseconds timeout);
    std::optional<Frame> takeFrame();

    QTcpSocket socket_;
    std::unique_ptr<simulator::EndProbe> probe_;
    QByteArray received_;
};

} // namespace test
