// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/URLSessionWebSocketConnection.h"

#include "Platform/Async/FutureAwaiter.h"
#include "QuorvelKit/MarketData/WebSocketError.h"

#include <utility>

namespace quorvel {

using platform::Task;
using platform::URLSessionWebSocketTask;

Task<> URLSessionWebSocketConnection::connect(QUrl url) {
    co_await close();
    task_ = session_.webSocketTask(url);
    task_->setSendInterval(sendInterval_);
    task_->setSignOfLifeHandler(signOfLife_);
    task_->resume();
}

Task<> URLSessionWebSocketConnection::send(std::string text) {
    const auto task = openTask();
    co_await task->send(QString::fromStdString(text));
}

Task<QByteArray> URLSessionWebSocketConnection::receive() {
    // Kept here as well: a close meanwhile must leave something that fails.
    const auto task = openTask();
    co_return co_await task->receive();
}

Task<> URLSessionWebSocketConnection::close() {
    if (const auto task = std::exchange(task_, nullptr))
        task->cancel(URLSessionWebSocketTask::goingAway);
    co_return;
}

std::shared_ptr<URLSessionWebSocketTask> URLSessionWebSocketConnection::openTask() const {
    if (!task_)
        throw WebSocketError(WebSocketError::Code::notConnected);
    return task_;
}

} // namespace quorvel
