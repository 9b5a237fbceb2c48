// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"

#include <QByteArray>
#include <QUrl>

namespace quorvel {

/// Plain HTTP GET. Lives on the network thread; any number of calls may be under way.
class HTTPTransport {
public:
    HTTPTransport() = default;
    HTTPTransport(const HTTPTransport&) = delete;
    HTTPTransport& operator=(const HTTPTransport&) = delete;
    virtual ~HTTPTransport() = default;

    /// The body of an answer with a status from 200 to 299.
    /// @throws HTTPTransportError for any other answer, or the platform's error where none came
    virtual platform::Task<QByteArray> get(QUrl url) = 0;
};

} // namespace quorvel
