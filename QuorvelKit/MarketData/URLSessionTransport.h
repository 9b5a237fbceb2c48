// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Network/URLSession.h"
#include "QuorvelKit/MarketData/HTTPTransport.h"

#include <functional>
#include <utility>

namespace quorvel {

/// The transport over the platform's URL session, which must outlive it.
class URLSessionTransport final : public HTTPTransport {
public:
    /// @param heard told of every answer over HTTP, whatever its status, before it is judged
    explicit URLSessionTransport(
        platform::URLSession& session,
        std::function<void(const QUrl&, const platform::URLResponse&)> heard = {})
        : session_(session), heard_(std::move(heard)) {}

    platform::Task<QByteArray> get(QUrl url) override;

private:
    platform::URLSession& session_;
    std::function<void(const QUrl&, const platform::URLResponse&)> heard_;
};

} // namespace quorvel
