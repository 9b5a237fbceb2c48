// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/HTTPResponse.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <stdexcept>
#include <zlib.h>

namespace simulator {

namespace {

constexpr qsizetype chunkSize = 4096;
constexpr qsizetype smallestCompressed = 1024;

QByteArray reasonPhrase(int status) {
    switch (status) {
    case 101:
        return "Switching Protocols";
    case 200:
        return "OK";
    case 404:
        return "Not Found";
    case 429:
        return "Too Many Requests";
    default:
        return status < 400 ? "Other" : "Error";
    }
}

QByteArray inChunks(const QByteArray& body) {
    QByteArray text;
    for (qsizetype at = 0; at < body.size(); at += chunkSize) {
        const QByteArray piece = body.mid(at, chunkSize);
        text += QByteArray::number(piece.size(), 16) + "\r\n" + piece + "\r\n";
    }
    return text + "0\r\n\r\n";
}

} // namespace

HTTPResponse HTTPResponse::json(int status, const QJsonObject& body) {
    return {.status = status,
            .headers = {},
            .body = QJsonDocument(body).toJson(QJsonDocument::Compact) + '\n'};
}

HTTPResponse HTTPResponse::error(int status, int code, const QByteArray& message) {
    return {.status = status,
            .headers = {},
            .body = "{\"code\":" + QByteArray::number(code) + ",\"msg\":\"" + message + "\"}"};
}

void HTTPResponse::compress() {
    if (body.size() <= smallestCompressed)
        return;
    constexpr int withGzipHeader = 15 + 16;
    constexpr int usualMemory = 8;
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, withGzipHeader, usualMemory,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("cannot compress");
    const auto size = static_cast<uLong>(body.size());
    QByteArray packed(static_cast<qsizetype>(deflateBound(&stream, size)), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(body.data());
    stream.avail_in = static_cast<uInt>(size);
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    body = packed;
    headers.emplaceBack("Content-Encoding", "gzip");
}

QByteArray HTTPResponse::wireBytes(bool keepAlive) const {
    QByteArray text =
        "HTTP/1.1 " + QByteArray::number(status) + ' ' + reasonPhrase(status) + "\r\n";
    for (const auto& [name, value] : headers)
        text += name + ": " + value + "\r\n";
    const bool typed = std::ranges::any_of(
        headers, [](const auto& header) { return header.first.toLower() == "content-type"; });
    if (!typed && status != 101)
        text += "Content-Type: application/json;charset=UTF-8\r\n";
    if (status != 101) {
        text += chunked ? QByteArray("Transfer-Encoding: chunked\r\n")
                        : "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
        text += keepAlive ? "Connection: keep-alive\r\n" : "Connection: close\r\n";
    }
    const QByteArray content = chunked ? inChunks(body) : body;
    return text + "\r\n" + (truncate ? content.left(content.size() / 2) : content);
}

} // namespace simulator
