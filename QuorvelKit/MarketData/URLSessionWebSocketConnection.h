// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Network/URLSession.h"
#include "QuorvelKit/MarketData/WebSocketConnection.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace quorvel {

/// The connection over the platform's URL session, which must outlive it.
class URLSessionWebSocketConnection final : public WebSocketConnection {
public:
    /// @param sendInterval kept at least between two frames sent; those in between wait their turn
    /// @param signOfLife   called when the other side shows that it is there otherwise than by a
    ///                     frame; must not close the connection
    explicit URLSessionWebSocketConnection(platform::URLSession& session,
                                           std::chrono::milliseconds sendInterval = {},
                                           std::function<void()> signOfLife = {})
        : session_(session), sendInterval_(sendInterval), signOfLife_(std::move(signOfLife)) {}

    platform::Task<> connect(QUrl url) override;
    platform::Task<> send(std::string text) override;
    platform::Task<QByteArray> receive() override;
    platform::Task<> close() override;

private:
    std::shared_ptr<platform::URLSessionWebSocketTask> openTask() const;

    platform::URLSession& session_;
    std::chrono::milliseconds sendInterval_;
    std::function<void()> signOfLife_;
    std::shared_ptr<platform::URLSessionWebSocketTask> task_;
};

} // namespace quorvel
