// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Network/URLSession.h"
#include "QuorvelKit/MarketData/WebSocketConnection.h"

namespace quorvel {

/// The connection over the platform's URL session, which must outlive it.
///
/// Spaces what it sends: the exchange cuts off whoever sends more than five messages a second, the
/// answers to its own pings included.
class URLSessionWebSocketConnection final : public WebSocketConnection {
public:
    /// At most three frames in any second, which leaves room for pongs and for frames that a slow
    /// network delivers together.
    static constexpr std::chrono::milliseconds frameInterval{350};

    explicit URLSessionWebSocketConnection(platform::URLSession& session) : session_(session) {}

    platform::Task<> connect(QUrl url) override;
    platform::Task<> send(std::string text) override;
    platform::Task<QByteArray> receive() override;
    platform::Task<> close() override;

private:
    std::shared_ptr<platform::URLSessionWebSocketTask> openTask() const;

    platform::URLSession& session_;
    std::shared_ptr<platform::URLSessionWebSocketTask> task_;
};

} // namespace quorvel
