// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/PacedConnection.h"

#include "Platform/Async/FutureAwaiter.h"
#include "Platform/Async/SleepFor.h"
#include "Platform/Foundation/LetterCase.h"
#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"

#include <algorithm>
#include <utility>

namespace quorvel {

using platform::Task;
using platform::URLError;
using std::chrono::nanoseconds;

namespace {

std::optional<Symbol> symbolOf(const std::string& streamName) {
    return Symbol::fromPairID(platform::uppercased(streamName.substr(0, streamName.find('@'))));
}

URLError cancelled() {
    return {URLError::Code::cancelled, {}};
}

} // namespace

PacedConnection::PacedConnection(Collaborators collaborators, std::vector<int> ports)
    : with_(std::move(collaborators)), ports_(std::move(ports)) {}

Task<> PacedConnection::connect(QUrl url) {
    co_await close();
    isWaiting_ = true;
    attempt_ = platform::startTask(attempt(std::move(url)));
}

Task<> PacedConnection::attempt(QUrl url) {
    if (question_.isRunning())
        co_await question_.finished();
    for (auto left = pause(); left > nanoseconds::zero(); left = pause())
        co_await platform::sleepFor(with_.clock, left);
    attemptedAt_ = with_.clock.uptime();
    ++fruitlessAttempts_;
    ledger_.clear();
    isThere_ = false;
    if (!ports_.empty())
        url.setPort(ports_[port_]);
    url_ = url;
    try {
        co_await connection_->connect(std::move(url));
    } catch (...) {
        endTurn(std::current_exception());
        co_return;
    }
    endTurn(nullptr);
}

nanoseconds PacedConnection::pause() const {
    nanoseconds left = nanoseconds::zero();
    if (attemptedAt_) {
        const auto apart = fruitlessAttempts_ < quickAttempts ? shortestPause : longPause;
        left = *attemptedAt_ + apart - with_.clock.uptime();
    }
    if (const auto silence = with_.gate.silentUntil())
        left = std::max(left, *silence - with_.clock.bootTime());
    return left;
}

Task<> PacedConnection::turn() {
    waiters_.emplace_back().start();
    co_await waiters_.back().future();
}

void PacedConnection::endTurn(const std::exception_ptr& error) {
    isWaiting_ = false;
    for (QPromise<void>& waiter : std::exchange(waiters_, {})) {
        if (error)
            waiter.setException(error);
        waiter.finish();
    }
}

Task<> PacedConnection::send(std::string text) {
    if (isWaiting_)
        co_await turn();
    ledger_.sent(text);
    co_await connection_->send(std::move(text));
}

Task<QByteArray> PacedConnection::receive() {
    if (isWaiting_)
        co_await turn();
    std::optional<URLError> error;
    try {
        QByteArray frame = co_await connection_->receive();
        heard();
        if (auto names = ledger_.refused(frame))
            handleRefusal(std::move(*names));
        co_return frame;
    } catch (const URLError& caught) {
        error = caught;
    }
    judge(*error);
    throw URLError(*error);
}

Task<> PacedConnection::close() {
    attempt_ = {};
    singles_ = {};
    if (isWaiting_)
        endTurn(std::make_exception_ptr(cancelled()));
    co_await connection_->close();
}

void PacedConnection::heard() {
    const auto now = with_.clock.uptime();
    if (with_.lastHeard)
        with_.lastHeard->store(now.count(), std::memory_order_relaxed);
    if (!std::exchange(isThere_, true)) {
        openedAt_ = now;
        report({.kind = ConnectionEvent::Kind::opened});
    }
    if (fruitlessAttempts_ > 0 && now - openedAt_ >= trial)
        fruitlessAttempts_ = 0;
}

void PacedConnection::judge(const URLError& error) {
    if (error.code() == URLError::Code::cancelled)
        return;
    singles_ = {};
    const bool wasThere = std::exchange(isThere_, false);
    // What reached nobody does not count there.
    if (error.code() == URLError::Code::cannotConnect)
        fruitlessAttempts_ = std::max(0, fruitlessAttempts_ - 1);
    if (!wasThere && !ports_.empty())
        port_ = (port_ + 1) % ports_.size();
    if (error.statusCode())
        question_ = platform::startTask(askWhy(*error.statusCode()));
    report({.kind = ConnectionEvent::Kind::lost, .reason = error.localizedDescription()});
}

Task<> PacedConnection::askWhy(int status) {
    QUrl url = url_;
    url.setScheme(url.scheme() == QLatin1StringView("ws") ? QStringLiteral("http")
                                                          : QStringLiteral("https"));
    platform::URLResponse answer{.body = {}, .statusCode = status, .headers = {}};
    try {
        const auto asked = co_await with_.session.data(url);
        if (asked.statusCode == status)
            answer = asked;
    } catch (const URLError&) {
        // The status itself says enough.
    }
    with_.gate.heard(answer);
}

void PacedConnection::handleRefusal(std::vector<std::string> names) {
    if (!std::exchange(wasRefused_, true)) {
        // A connection that names all pairs in its address asks for nothing more.
        throw URLError(URLError::Code::connectionLost, QStringLiteral("refused command"));
    }
    if (names.size() > 1) {
        singles_ = platform::startTask(subscribeSingly(std::move(names)));
        return;
    }
    ConnectionEvent event{.kind = ConnectionEvent::Kind::untraded};
    for (const std::string& name : names) {
        if (auto symbol = symbolOf(name))
            event.pairs.push_back(std::move(*symbol));
    }
    report(event);
}

Task<> PacedConnection::subscribeSingly(std::vector<std::string> names) {
    using enum SubscriptionCommand::Method;
    for (const std::string& name : names) {
        const auto symbol = symbolOf(name);
        if (!symbol)
            continue;
        co_await platform::sleepFor(with_.clock, singlesPause);
        co_await send(SubscriptionCommand::controlMessage(subscribe, {*symbol}, nextSingleID_++));
    }
}

void PacedConnection::report(const ConnectionEvent& event) const {
    if (with_.report)
        with_.report(event);
}

} // namespace quorvel
