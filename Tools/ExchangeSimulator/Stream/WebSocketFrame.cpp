// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/WebSocketFrame.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>

namespace simulator {

namespace {

constexpr int finalBit = 0x80;
constexpr int reservedBits = 0x70;
constexpr int maskBit = 0x80;
constexpr quint64 largestPayload = 1024 * 1024;
constexpr qsizetype largestControlPayload = 125;
constexpr qsizetype maskSize = 4;

bool isKnown(int opcode) {
    return opcode <= 2 || (opcode >= 8 && opcode <= 10);
}

int byteAt(const QByteArray& bytes, qsizetype at) {
    return static_cast<unsigned char>(bytes[at]);
}

template <typename Integer>
QByteArray bigEndian(Integer value) {
    QByteArray bytes(sizeof value, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray encodeFrame(const WebSocketFrame& frame) {
    const int first = (frame.final ? finalBit : 0) | static_cast<int>(frame.opcode);
    const qsizetype size = frame.payload.size();
    QByteArray bytes(1, static_cast<char>(first));
    if (size <= largestControlPayload)
        bytes += static_cast<char>(size);
    else if (size <= 0xffff)
        bytes += static_cast<char>(126) + bigEndian(static_cast<quint16>(size));
    else
        bytes += static_cast<char>(127) + bigEndian(static_cast<quint64>(size));
    return bytes + frame.payload;
}

/// How many bytes hold the length when the second byte of a frame says `shortLength`.
qsizetype lengthSize(int shortLength) {
    return shortLength == 126 ? 2 : shortLength == 127 ? 8 : 0;
}

quint64 lengthIn(const QByteArray& header, int shortLength) {
    const char* extended = header.constData() + 2;
    return shortLength == 126   ? qFromBigEndian<quint16>(extended)
           : shortLength == 127 ? qFromBigEndian<quint64>(extended)
                                : static_cast<quint64>(shortLength);
}

bool breaksProtocol(int first, int second) {
    const int opcode = first & 0x0f;
    const bool control = opcode >= 8;
    const bool badControl = control && (!(first & finalBit) || (second & ~maskBit) > 125);
    return (first & reservedBits) || !isKnown(opcode) || badControl || !(second & maskBit);
}

void unmask(QByteArray& payload, const QByteArray& mask) {
    for (qsizetype i = 0; i < payload.size(); ++i)
        payload[i] = static_cast<char>(payload[i] ^ mask[i % maskSize]);
}

} // namespace

QByteArray encodeMessage(Opcode opcode, const QByteArray& payload, int fragments) {
    const qsizetype count = std::max(fragments, 1);
    QByteArray bytes;
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype from = payload.size() * i / count;
        const qsizetype to = payload.size() * (i + 1) / count;
        bytes += encodeFrame({.final = i + 1 == count,
                              .opcode = i == 0 ? opcode : Opcode::continuation,
                              .payload = payload.mid(from, to - from)});
    }
    return bytes;
}

QByteArray closePayload(std::optional<int> code, const QByteArray& reason) {
    if (!code)
        return {};
    return bigEndian(static_cast<quint16>(*code)) + reason.left(largestControlPayload - 2);
}

std::optional<int> closeCodeOf(const QByteArray& payload) {
    return payload.size() < 2 ? std::nullopt
                              : std::optional<int>(qFromBigEndian<quint16>(payload.constData()));
}

QByteArray handshakeAccept(const QByteArray& key) {
    const QByteArray salted = key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    return QCryptographicHash::hash(salted, QCryptographicHash::Sha1).toBase64();
}

std::optional<WebSocketFrame> FrameReader::next() {
    if (failure_ || buffer_.size() < 2)
        return std::nullopt;
    const int first = byteAt(buffer_, 0);
    const int second = byteAt(buffer_, 1);
    const int shortLength = second & ~maskBit;
    const qsizetype maskStart = 2 + lengthSize(shortLength);
    if (breaksProtocol(first, second))
        failure_ = closeCode::protocolError;
    else if (buffer_.size() >= maskStart && lengthIn(buffer_, shortLength) > largestPayload)
        failure_ = closeCode::tooBig;
    if (failure_ || buffer_.size() < maskStart)
        return std::nullopt;
    const qsizetype start = maskStart + maskSize;
    const qsizetype end = start + static_cast<qsizetype>(lengthIn(buffer_, shortLength));
    if (buffer_.size() < end)
        return std::nullopt;
    WebSocketFrame frame{.final = (first & finalBit) != 0,
                         .opcode = static_cast<Opcode>(first & 0x0f),
                         .payload = buffer_.sliced(start, end - start)};
    unmask(frame.payload, buffer_.sliced(maskStart, maskSize));
    buffer_.remove(0, end);
    return frame;
}

} // namespace simulator
