// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/HTTP/HTTPParser.h"

#include <algorithm>

namespace simulator {

namespace {

constexpr qsizetype largestHead = 256 * 1024;
constexpr qsizetype largestBody = 64 * 1024 * 1024;

bool isToken(const QByteArray& text) {
    return !text.isEmpty() && std::ranges::all_of(text, [](char c) { return c > 32 && c < 127; });
}

} // namespace

std::optional<HTTPRequest> HTTPParser::next() {
    if (failed_)
        return std::nullopt;
    const qsizetype headEnd = buffer_.indexOf("\r\n\r\n");
    if (headEnd < 0 || headEnd > largestHead) {
        failed_ = buffer_.size() > largestHead;
        return std::nullopt;
    }
    std::optional<HTTPRequest> request = parseHead(buffer_.left(headEnd));
    const std::optional<qsizetype> length = request ? bodyLength(*request) : std::nullopt;
    failed_ = !length;
    const qsizetype bodyStart = headEnd + 4;
    if (failed_ || buffer_.size() - bodyStart < *length)
        return std::nullopt;
    request->body = buffer_.mid(bodyStart, *length);
    buffer_.remove(0, bodyStart + *length);
    return request;
}

std::optional<HTTPRequest> HTTPParser::parseHead(const QByteArray& head) {
    QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> start = lines.takeFirst().trimmed().split(' ');
    const bool old = start.last() == "HTTP/1.0";
    if (start.size() != 3 || !isToken(start[0]) || !start[1].startsWith('/') ||
        (!old && start[2] != "HTTP/1.1"))
        return std::nullopt;
    HTTPRequest request{.method = start[0], .target = start[1], .headers = {}, .body = {}};
    for (const QByteArray& line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0 || !isToken(line.left(colon)))
            return std::nullopt;
        request.headers.append({line.left(colon).toLower(), line.mid(colon + 1).trimmed()});
    }
    const QByteArray connection = request.header("connection").toLower();
    request.keepAlive = old ? connection == "keep-alive" : !connection.contains("close");
    return request;
}

std::optional<qsizetype> HTTPParser::bodyLength(const HTTPRequest& request) const {
    if (!request.header("transfer-encoding").isEmpty())
        return std::nullopt;
    const QByteArray text = request.header("content-length");
    if (text.isEmpty())
        return 0;
    bool ok = false;
    const qlonglong length = text.toLongLong(&ok);
    return ok && length >= 0 && length <= largestBody ? std::optional<qsizetype>(length)
                                                      : std::nullopt;
}

} // namespace simulator
