// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/AsyncStream.h"
#include "Platform/Async/FutureAwaiter.h"
#include "QuorvelKit/MarketData/WebSocketConnection.h"
#include "QuorvelKit/MarketData/WebSocketError.h"

#include <QPromise>

#include <deque>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace test {

/// A connection without a network: tells what it was asked, and delivers and fails when told to.
class ScriptedConnection final : public quorvel::WebSocketConnection {
public:
    /// Everything that was called, such as "connect", "send {...}", "close".
    std::vector<std::string> calls;
    /// Where `connect` was to lead.
    std::vector<QUrl> urls;
    /// How many of the next `connect` calls fail.
    int failingConnects = 0;
    /// While set, `connect` waits until `letConnect`.
    bool holdsConnects = false;
    bool failsSends = false;

    platform::Task<> connect(QUrl url) override {
        calls.push_back("connect " + url.query().toStdString());
        urls.push_back(url);
        if (holdsConnects) {
            held_.emplace_back().start();
            co_await held_.back().future();
        }
        if (failingConnects > 0) {
            --failingConnects;
            throw std::runtime_error("refused");
        }
        open_.emplace(platform::AsyncStream<QByteArray>::make());
        ++connections;
    }

    platform::Task<> send(std::string text) override {
        calls.push_back("send " + text);
        if (failsSends)
            throw std::runtime_error("broken");
        co_return;
    }

    platform::Task<QByteArray> receive() override {
        using quorvel::WebSocketError;
        if (!open_)
            throw WebSocketError(WebSocketError::Code::notConnected);
        const auto frame = co_await open_->first.next();
        if (!frame && reason_)
            std::rethrow_exception(std::exchange(reason_, nullptr));
        if (!frame)
            throw std::runtime_error("lost");
        co_return *frame;
    }

    platform::Task<> close() override {
        calls.emplace_back("close");
        open_.reset();
        co_return;
    }

    void deliver(const QByteArray& frame) { open_->second.push(frame); }
    /// @param reason with which `receive` fails; null: one of the connection's own
    void lose(std::exception_ptr reason = nullptr) {
        reason_ = std::move(reason);
        open_->second.finish();
    }
    bool isOpen() const { return open_.has_value(); }

    /// Lets the oldest `connect` that is held go on.
    void letConnect() {
        held_.front().finish();
        held_.pop_front();
    }

    /// How often a connection was opened.
    int connections = 0;

private:
    std::optional<
        std::pair<platform::AsyncStream<QByteArray>, platform::AsyncStreamWriter<QByteArray>>>
        open_;
    std::exception_ptr reason_;
    std::deque<QPromise<void>> held_;
};

} // namespace test
