// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/URLSession.h"

#include "Platform/Async/SleepFor.h"
#include "Platform/Network/URLTransfer.h"

#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkRequest>

namespace platform {

URLSession::URLSession(Clock& clock)
    : clock_(clock), manager_(std::make_unique<QNetworkAccessManager>()) {
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

Task<> URLSession::finishClosing(TimeInterval limit) {
    constexpr TimeInterval step{0.01};
    for (TimeInterval waited{0}; !closing_.isEmpty() && waited < limit; waited += step)
        co_await sleepFor(clock_, step);
}

} // namespace platform
