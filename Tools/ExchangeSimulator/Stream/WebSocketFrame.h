// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace simulator {

/// RFC 6455, section 5.2.
enum class Opcode : std::uint8_t {
    continuation = 0,
    text = 1,
    binary = 2,
    close = 8,
    ping = 9,
    pong = 10,
};

/// Status codes of close frames, RFC 6455, section 7.4.1. Any other number may be sent too.
namespace closeCode {
constexpr int goingAway = 1001;
constexpr int protocolError = 1002;
constexpr int invalidText = 1007;
constexpr int policyViolation = 1008;
constexpr int tooBig = 1009;
} // namespace closeCode

/// One frame, unmasked.
struct WebSocketFrame {
    bool final = true;
    Opcode opcode = Opcode::text;
    QByteArray payload;
};

/// The wire bytes of a message cut into `fragments` frames (at least 1) of about equal size, as a
/// server sends them. Cuts fall anywhere, also inside a character.
QByteArray encodeMessage(Opcode opcode, const QByteArray& payload, int fragments = 1);

/// The payload of a close frame; empty without a code. The reason is cut to what fits.
QByteArray closePayload(std::optional<int> code, const QByteArray& reason);

/// The status code in a close frame's payload; absent when there is none.
std::optional<int> closeCodeOf(const QByteArray& payload);

/// The Sec-WebSocket-Accept that answers a Sec-WebSocket-Key.
QByteArray handshakeAccept(const QByteArray& key);

/// Cuts a client's bytes into frames. Takes any bytes: a breach of the protocol makes it fail,
/// after which it yields nothing more.
class FrameReader {
public:
    void append(const QByteArray& bytes) { buffer_ += bytes; }

    /// The next complete frame; absent when more bytes are needed or the reader has failed.
    std::optional<WebSocketFrame> next();

    /// The close code that the breach deserves; absent while there was none.
    std::optional<int> failure() const { return failure_; }

private:
    QByteArray buffer_;
    std::optional<int> failure_;
};

} // namespace simulator
