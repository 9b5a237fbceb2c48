// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/HTTP/HTTPRequest.h"

#include <optional>

namespace simulator {

/// Cuts the bytes of one connection into requests. Takes any bytes: what is not HTTP/1 makes it
/// fail, after which it yields nothing more.
class HTTPParser {
public:
    /// Adds received bytes.
    void append(const QByteArray& bytes) { buffer_ += bytes; }

    /// The next complete request; absent when more bytes are needed or the parser has failed.
    std::optional<HTTPRequest> next();

    /// Whether what came in was not an HTTP request, or one of more than 256 KiB of head or 64 MiB
    /// of body.
    bool hasFailed() const { return failed_; }

    /// The bytes behind the last request, for who goes on in another protocol.
    QByteArray takeRest() { return std::exchange(buffer_, {}); }

private:
    std::optional<HTTPRequest> parseHead(const QByteArray& head);
    std::optional<qsizetype> bodyLength(const HTTPRequest& request) const;

    QByteArray buffer_;
    bool failed_ = false;
};

} // namespace simulator
