// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Network/URLSession.h"
#include "QuorvelKit/MarketData/HTTPTransport.h"

namespace quorvel {

/// The transport over the platform's URL session, which must outlive it.
class URLSessionTransport final : public HTTPTransport {
public:
    explicit URLSessionTransport(platform::URLSession& session) : session_(session) {}

    platform::Task<QByteArray> get(QUrl url) override;

private:
    platform::URLSession& session_;
};

} // namespace quorvel
