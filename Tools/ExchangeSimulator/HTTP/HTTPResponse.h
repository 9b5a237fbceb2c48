// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/HTTP/HTTPRequest.h"

#include <chrono>

class QJsonObject;

namespace simulator {

/// One answer, and how faithfully it is put on the wire.
struct HTTPResponse {
    int status = 200;
    /// Beside Content-Type, Content-Length and Transfer-Encoding; a Content-Type here replaces the
    /// usual one, application/json.
    HTTPHeaders headers;
    QByteArray body;
    /// Sends the body in chunks, without its length.
    bool chunked = false;
    /// Sends the body in pieces of that size, with a pause before each; 0: at once.
    qsizetype dripBytes = 0;
    std::chrono::milliseconds dripPause{0};
    /// Breaks off in the middle of the body and ends the connection.
    bool truncate = false;

    static HTTPResponse json(int status, const QJsonObject& body);
    /// The exchange's own form of an error.
    static HTTPResponse error(int status, int code, const QByteArray& message);

    /// Packs the body with gzip, as the exchange does where the client takes it, and where it is
    /// large enough to be worth it.
    void compress();

    /// The bytes to send.
    QByteArray wireBytes(bool keepAlive) const;
};

} // namespace simulator
