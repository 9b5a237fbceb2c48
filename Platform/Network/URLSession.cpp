// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/URLSession.h"

#include "Platform/Async/SignalAwaiter.h"
#include "Platform/Network/URLTransfer.h"

#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkRequest>

namespace platform {

URLSession::URLSession(Clock& clock)
    : clock_(clock), manager_(std::make_unique<QNetworkAccessManager>()), closing_(clock) {
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    manager_->setRedirectPolicy(QNetworkRequest::NoLessSafeRedirectPolicy);
}

URLSession::~URLSession() = default;

Task<URLResponse> URLSession::data(QUrl url) {
    QNetworkRequest request(url);
    request.setTransferTimeout(0); // the transfer counts on the session's clock
    URLTransfer transfer(*manager_->get(request), clock_);
    co_await transfer.finished();
    co_return transfer.response();
}

std::shared_ptr<URLSessionWebSocketTask> URLSession::webSocketTask(const QUrl& url) {
    return std::make_shared<URLSessionWebSocketTask>(url, clock_, closing_);
}

Task<> URLSession::finishClosing(std::chrono::milliseconds limit) {
    if (!closing_.isEmpty())
        co_await SignalAwaiter(closing_, &ClosingWebSockets::emptied, clock_, limit);
}

} // namespace platform
