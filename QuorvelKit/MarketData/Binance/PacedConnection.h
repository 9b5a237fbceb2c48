// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Network/URLError.h"
#include "QuorvelKit/MarketData/Binance/CommandLedger.h"
#include "QuorvelKit/MarketData/Binance/ExchangeGate.h"
#include "QuorvelKit/MarketData/WebSocketConnection.h"

#include <QFuture>
#include <QPromise>

#include <atomic>
#include <memory>
#include <vector>

namespace quorvel {

/// A connection to the exchange that keeps to what the exchange allows: attempts wait for their
/// turn, on the ports that it serves by turns, and what it answers to a refused attempt or command
/// is heeded and told. Whoever sends or receives meanwhile waits, too.
///
/// Network thread.
class PacedConnection final : public WebSocketConnection {
public:
    /// Two attempts are never closer together.
    static constexpr std::chrono::seconds shortestPause{1};

    /// After so many attempts without a working connection they are this far apart.
    static constexpr int quickAttempts = 20;
    static constexpr std::chrono::seconds longPause{5};

    /// A connection that has stood so long works.
    static constexpr std::chrono::seconds trial{10};

    /// Pairs that may be refused are asked for one by one, this far apart.
    static constexpr std::chrono::seconds singlesPause{1};

    struct Collaborators {
        platform::URLSession& session;
        ExchangeGate& gate;
        platform::Clock& clock;
        ExchangeGate::Report report = {};
        /// Takes the clock's uptime in nanoseconds at each sign of life; may be null.
        std::shared_ptr<std::atomic<std::int64_t>> lastHeard = {};
    };

    /// @param ports to try by turns until one works; none: the one that the address names
    explicit PacedConnection(Collaborators collaborators, std::vector<int> ports = {});

    /// What is paced; once, before the first connection.
    void pace(std::unique_ptr<WebSocketConnection> connection) {
        connection_ = std::move(connection);
    }

    /// Returns at once, before the attempt.
    platform::Task<> connect(QUrl url) override;
    platform::Task<> send(std::string text) override;
    platform::Task<QByteArray> receive() override;
    platform::Task<> close() override;

    /// The other side has shown that it is there.
    void heard();

private:
    platform::Task<> attempt(QUrl url);
    std::chrono::nanoseconds pause() const;
    /// Waits until the attempt has been made.
    platform::Task<> turn();
    void endTurn(const std::exception_ptr& error);
    void judge(const platform::URLError& error);
    platform::Task<> askWhy(int status);
    void handleRefusal(std::vector<std::string> names);
    platform::Task<> subscribeSingly(std::vector<std::string> names);
    void report(const ConnectionEvent& event) const;

    Collaborators with_;
    std::unique_ptr<WebSocketConnection> connection_;
    std::vector<int> ports_;
    std::size_t port_ = 0;
    QUrl url_;
    CommandLedger ledger_;
    bool isWaiting_ = false; ///< an attempt waits for its turn
    std::vector<QPromise<void>> waiters_;
    bool isThere_ = false;    ///< the other side has been heard
    bool wasRefused_ = false; ///< a command, ever
    int fruitlessAttempts_ = 0;
    std::optional<std::chrono::nanoseconds> attemptedAt_; ///< uptime
    std::chrono::nanoseconds openedAt_{0};                ///< uptime
    std::int64_t nextSingleID_ = 1'000'000'000;           ///< far from the ids of others
    platform::TaskHandle question_;
    platform::TaskHandle singles_;
    platform::TaskHandle attempt_;
};

} // namespace quorvel
