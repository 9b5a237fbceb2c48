// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Tools/RawClient.h"

#include <QtEndian>

#include <stdexcept>

namespace test {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

const QByteArray mask = "\x11\x22\x33\x44";
constexpr int patienceMs = 3000;

milliseconds left(Clock::time_point end) {
    return std::max(std::chrono::duration_cast<milliseconds>(end - Clock::now()), milliseconds(0));
}

int byteAt(const QByteArray& bytes, qsizetype at) {
    return static_cast<unsigned char>(bytes[at]);
}

} // namespace

int RawClient::Frame::closeCode() const {
    return opcode == 8 && payload.size() >= 2 ? qFromBigEndian<quint16>(payload.constData()) : -1;
}

RawClient::RawClient(quint16 port) {
    socket_.connectToHost(QStringLiteral("127.0.0.1"), port);
    if (!socket_.waitForConnected(patienceMs))
        throw std::runtime_error("no connection");
    probe_ = std::make_unique<simulator::EndProbe>(socket_.socketDescriptor());
}

void RawClient::send(const QByteArray& bytes) {
    socket_.write(bytes);
    while (socket_.bytesToWrite() > 0 && socket_.waitForBytesWritten(patienceMs)) {
    }
}

void RawClient::sendFrame(int opcode, const QByteArray& payload, bool final) {
    QByteArray bytes(1, static_cast<char>((final ? 0x80 : 0) | opcode));
    if (payload.size() < 126) {
        bytes += static_cast<char>(0x80 | payload.size());
    } else {
        QByteArray length(8, '\0');
        qToBigEndian(static_cast<quint64>(payload.size()), length.data());
        bytes += static_cast<char>(0xff) + length;
    }
    bytes += mask;
    for (qsizetype i = 0; i < payload.size(); ++i)
        bytes += static_cast<char>(payload[i] ^ mask[i % 4]);
    send(bytes);
}

bool RawClient::receive(milliseconds timeout) {
    const bool more =
        socket_.bytesAvailable() > 0 || socket_.waitForReadyRead(static_cast<int>(timeout.count()));
    received_ += socket_.readAll();
    return more;
}

RawClient::Answer RawClient::get(const QByteArray& target) {
    return exchange("GET " + target + " HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n");
}

RawClient::Answer RawClient::exchange(const QByteArray& bytes) {
    send(bytes);
    waitForEnd();
    const qsizetype headEnd = received_.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return {};
    return {.status = received_.mid(9, 3).toInt(),
            .head = received_.left(headEnd + 2),
            .body = received_.mid(headEnd + 4)};
}

QByteArray RawClient::handshake(const QByteArray& target, milliseconds timeout) {
    send("GET " + target +
         " HTTP/1.1\r\nHost: x\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
         "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n");
    const auto end = Clock::now() + timeout;
    while (!received_.contains("\r\n\r\n")) {
        if (!receive(left(end)))
            return {};
    }
    const qsizetype headEnd = received_.indexOf("\r\n\r\n") + 4;
    const QByteArray head = received_.left(headEnd);
    received_.remove(0, headEnd);
    return head;
}

std::optional<RawClient::Frame> RawClient::nextFrame(milliseconds timeout) {
    const auto end = Clock::now() + timeout;
    std::optional<Frame> frame = takeFrame();
    while (!frame && receive(left(end)))
        frame = takeFrame();
    return frame;
}

std::optional<RawClient::Frame> RawClient::takeFrame() {
    if (received_.size() < 2)
        return std::nullopt;
    const int shortLength = byteAt(received_, 1);
    const qsizetype start = shortLength == 126 ? 4 : shortLength == 127 ? 10 : 2;
    if (received_.size() < start)
        return std::nullopt;
    qsizetype length = shortLength;
    if (shortLength == 126)
        length = qFromBigEndian<quint16>(received_.constData() + 2);
    else if (shortLength == 127)
        length = static_cast<qsizetype>(qFromBigEndian<quint64>(received_.constData() + 2));
    if (received_.size() < start + length)
        return std::nullopt;
    const int first = byteAt(received_, 0);
    Frame frame{.final = (first & 0x80) != 0,
                .opcode = first & 0x0f,
                .payload = received_.mid(start, length)};
    received_.remove(0, start + length);
    return frame;
}

RawClient::End RawClient::waitForEnd(milliseconds timeout) {
    const auto end = Clock::now() + timeout;
    while (receive(left(end))) {
    }
    if (socket_.state() == QAbstractSocket::ConnectedState)
        return End::open;
    const bool wasReset = probe_->wasReset();
    probe_->release();
    return wasReset ? End::reset : End::fin;
}

void RawClient::reset() {
    probe_->resetOnClose();
    probe_->release();
    socket_.abort();
}

} // namespace test
