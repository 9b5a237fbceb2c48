// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceWebSocketClient.h"

#include "Platform/Async/SleepFor.h"
#include "QuorvelKit/MarketData/Binance/SubscriptionCommand.h"

#include <random>
#include <utility>

namespace quorvel {

using platform::Task;

BinanceWebSocketClient::JitterSource BinanceWebSocketClient::systemJitter() {
    return [] {
        constexpr std::int64_t steps = std::int64_t{1} << 53;
        std::random_device source;
        std::uniform_int_distribution<std::int64_t> step(0, steps);
        return static_cast<double>(step(source)) / static_cast<double>(steps);
    };
}

BinanceWebSocketClient::BinanceWebSocketClient(std::unique_ptr<WebSocketConnection> connection,
                                               BackoffPolicy backoff, platform::Clock& clock,
                                               JitterSource jitter, QUrl endpoint,
                                               QuoteFilter admits)
    : connection_(std::move(connection)),
      backoff_(backoff),
      clock_(clock),
      jitter_(std::move(jitter)),
      endpoint_(std::move(endpoint)),
      admits_(std::move(admits)) {}

platform::AsyncStream<Quote> BinanceWebSocketClient::quotes() {
    continuation_.finish();
    auto [stream, writer] = platform::AsyncStream<Quote>::make();
    continuation_ = std::move(writer);
    return std::move(stream);
}

Task<> BinanceWebSocketClient::updateSubscriptions(SymbolSet target) {
    const auto [toAdd, toRemove] = SubscriptionCommand::diff(subscriptions_, target);
    if (toAdd.empty() && toRemove.empty())
        co_return;
    subscriptions_ = std::move(target);
    if (subscriptions_.empty())
        co_await disconnect();
    else if (isConnected_)
        co_await sendCommands(toAdd, toRemove);
    else
        co_await connect();
}

Task<> BinanceWebSocketClient::sendCommands(SymbolSet toAdd, SymbolSet toRemove) {
    using enum SubscriptionCommand::Method;
    // Both texts are made before the first wait, so that their ids follow each other.
    std::string subscribing;
    std::string unsubscribing;
    if (!toAdd.empty())
        subscribing = SubscriptionCommand::controlMessage(subscribe, toAdd, nextRequestID_++);
    if (!toRemove.empty())
        unsubscribing =
            SubscriptionCommand::controlMessage(unsubscribe, toRemove, nextRequestID_++);
    // Both are handed over before the first wait: a change meanwhile must not come between them.
    platform::TaskHandle first;
    platform::TaskHandle second;
    if (!subscribing.empty())
        first = platform::startTask(sendCommand(std::move(subscribing)));
    if (!unsubscribing.empty())
        second = platform::startTask(sendCommand(std::move(unsubscribing)));
    if (first)
        co_await first.finished();
    if (second)
        co_await second.finished();
}

Task<> BinanceWebSocketClient::sendCommand(std::string text) {
    try {
        co_await connection_->send(std::move(text));
    } catch (const std::exception&) {
        // The receive loop sees the same failure, and the next connection names the whole set.
    }
}

Task<> BinanceWebSocketClient::connect() {
    const auto url = SubscriptionCommand::connectURL(subscriptions_, endpoint_);
    if (!url)
        co_return;
    if (!co_await tryConnect(*url))
        scheduleReconnect(1);
}

Task<bool> BinanceWebSocketClient::tryConnect(QUrl url) {
    try {
        co_await connection_->connect(std::move(url));
    } catch (const std::exception&) {
        isConnected_ = false;
        co_return false;
    }
    if (subscriptions_.empty()) {
        // Every pair was dropped meanwhile, and what was closed then was not open yet.
        co_await connection_->close();
        co_return true;
    }
    isConnected_ = true;
    startReceiveLoop();
    co_return true;
}

void BinanceWebSocketClient::startReceiveLoop() {
    // The loop that this replaces ends here, before its failure could reach the new connection.
    receiveLoop_ = platform::startTask(runReceiveLoop());
}

Task<> BinanceWebSocketClient::runReceiveLoop() {
    try {
        for (;;) {
            const QByteArray frame = co_await connection_->receive();
            BinanceMessage message = decoder_.decode(frame);
            auto* const quote = std::get_if<Quote>(&message);
            if (quote && (!admits_ || admits_(*quote)))
                continuation_.push(std::move(*quote));
        }
    } catch (const std::exception&) {
        isConnected_ = false;
        if (!subscriptions_.empty())
            scheduleReconnect(1);
    }
}

void BinanceWebSocketClient::scheduleReconnect(int attempt) {
    reconnectTask_ = platform::startTask(reconnect(attempt));
}

Task<> BinanceWebSocketClient::reconnect(int attempt) {
    const platform::TimeInterval delay(backoff_.delay(attempt, jitter_()));
    if (delay.count() > 0)
        co_await platform::sleepFor(clock_, delay);
    if (isConnected_)
        co_return;
    const auto url = SubscriptionCommand::connectURL(subscriptions_, endpoint_);
    if (url && !co_await tryConnect(*url))
        scheduleReconnect(attempt + 1);
}

Task<> BinanceWebSocketClient::disconnect() {
    receiveLoop_ = {};
    reconnectTask_ = {};
    isConnected_ = false;
    co_await connection_->close();
}

Task<> BinanceWebSocketClient::stop() {
    subscriptions_.clear();
    co_await disconnect();
    std::exchange(continuation_, {}).finish();
}

} // namespace quorvel
