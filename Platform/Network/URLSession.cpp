// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/URLSession.h"

#include "Platform/Async/SignalAwaiter.h"
#include "Platform/Network/URLTransfer.h"

#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkRequest>

#include <algorithm>

namespace platform {

std::optional<QByteArray> URLResponse::header(QByteArrayView name) const {
    const auto found = std::ranges::find_if(headers, [name](const auto& header) {
        return header.first.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == headers.end() ? std::nullopt : std::optional(found->second);
}

URLSession::URLSession(Clock& clock) : clock_(clock), closing_(clock) {
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    renewConnections();
}

URLSession::~URLSession() = default;

Task<URLResponse> URLSession::data(QUrl url) {
    QNetworkRequest request(url);
    request.setTransferTimeout(0);                   // the transfer counts on the session's clock
    request.setDecompressedSafetyCheckThreshold(-1); // and the unpacked bytes
    const auto manager = manager_;
    URLTransfer transfer(*manager->get(request), clock_);
    co_await transfer.finished();
    try {
        co_return transfer.response();
    } catch (const URLError&) {
        if (manager == manager_)
            renewConnections();
        throw;
    }
}

void URLSession::renewConnections() {
    // An answer is a child of its manager, and may be the one that is telling of its end right now.
    // At a thread's end nothing is deleted later any more: then they go with the session.
    const auto retire = [this](QNetworkAccessManager* manager) {
        manager->setParent(&retired_);
        manager->deleteLater();
    };
    manager_ = {new QNetworkAccessManager, retire};
    manager_->setRedirectPolicy(QNetworkRequest::NoLessSafeRedirectPolicy);
}

std::shared_ptr<URLSessionWebSocketTask> URLSession::webSocketTask(const QUrl& url) {
    return std::make_shared<URLSessionWebSocketTask>(url, clock_, closing_);
}

Task<> URLSession::finishClosing(std::chrono::milliseconds limit) {
    if (!closing_.isEmpty())
        co_await SignalAwaiter(closing_, &ClosingWebSockets::emptied, clock_, limit);
}

} // namespace platform
