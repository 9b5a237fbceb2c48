// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Network/URLTransfer.h"

#include "Platform/Foundation/StringTable.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// The HTTP status, also of an answer that Qt reports as an error of the reply; absent for other
/// schemes, to which Qt gives a status as well.
std::optional<int> statusOf(const QNetworkReply& reply) {
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid() || !reply.url().scheme().startsWith(QLatin1StringView("http")))
        return std::nullopt;
    return status.toInt();
}

constexpr qint64 readBufferSize = 1024 * 1024;

URLError::Code codeOf(QNetworkReply::NetworkError error) {
    switch (error) {
    case QNetworkReply::TimeoutError:
        return URLError::Code::timedOut;
    case QNetworkReply::SslHandshakeFailedError:
    case QNetworkReply::InsecureRedirectError:
        return URLError::Code::insecureConnection;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ProtocolFailure:
        return URLError::Code::connectionLost;
    case QNetworkReply::OperationCanceledError:
        return URLError::Code::cancelled;
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return URLError::Code::unsupportedLocation;
    default:
        return URLError::Code::cannotConnect;
    }
}

} // namespace

URLTransfer::URLTransfer(QNetworkReply& reply, Clock& clock)
    : reply_(&reply),
      clock_(clock),
      began_(clock.uptime()),
      finished_(reply, &QNetworkReply::finished) {
    // More waits in the system's buffers until it is asked for.
    reply.setReadBufferSize(readBufferSize);
    QObject::connect(&reply, &QNetworkReply::readyRead, &context_, [this] { takeBytes(); });
    QObject::connect(&reply, &QNetworkReply::metaDataChanged, &context_, [this] {
        headersArrival_ = clock_.bootTime();
        restartIdleTimer();
    });
    restartIdleTimer();
    checkPace();
}

URLResponse URLTransfer::response() {
    takeBytes();
    if (abortReason_ == URLError::Code::timedOut)
        throw URLError(URLError::Code::timedOut, localized("Platform", "The request timed out."));
    if (abortReason_)
        throw URLError(*abortReason_, localized("Platform", "The answer is too large."));
    constexpr int firstErrorStatus = 400;
    const auto status = statusOf(*reply_);
    if (reply_->error() != QNetworkReply::NoError && status < firstErrorStatus)
        throw URLError(codeOf(reply_->error()), reply_->errorString());
    return {std::move(body_), status, reply_->rawHeaderPairs(), headersArrival_};
}

void URLTransfer::restartIdleTimer() {
    idleTimer_ =
        clock_.startTimer(URLSession::idleLimit, [this] { abort(URLError::Code::timedOut); });
}

void URLTransfer::checkPace() {
    const std::chrono::seconds earned(body_.size() / URLSession::leastPace);
    const auto limit = std::clamp(earned, URLSession::usualLimit, URLSession::longestLimit);
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(began_ + limit - clock_.uptime());
    if (left <= std::chrono::milliseconds::zero())
        abort(URLError::Code::timedOut);
    else
        paceTimer_ = clock_.startTimer(left, [this] { checkPace(); });
}

void URLTransfer::takeBytes() {
    if (abortReason_)
        return;
    body_ += reply_->readAll();
    if (body_.size() > URLSession::largestBody)
        abort(URLError::Code::dataTooLarge);
    else if (!reply_->isFinished())
        restartIdleTimer();
}

void URLTransfer::abort(URLError::Code reason) {
    abortReason_ = reason;
    reply_->abort(); // emits finished, which continues whoever waits
}

} // namespace platform
