#include "Platform/Foundation/URLTransfer.h"

#include <utility>

namespace platform {

namespace {

/// Qt reports a status of 400 and above as an error of the reply; to us it is an answer.
bool isAnswer(QNetworkReply::NetworkError error) {
    const auto isWithin = [error](QNetworkReply::NetworkError first,
                                  QNetworkReply::NetworkError last) {
        return first <= error && error <= last;
    };
    return error == QNetworkReply::NoError ||
           isWithin(QNetworkReply::ContentAccessDenied, QNetworkReply::UnknownContentError) ||
           isWithin(QNetworkReply::InternalServerError, QNetworkReply::UnknownServerError);
}

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

URLTransfer::URLTransfer(QNetworkReply& reply, Clock& clock) : reply_(&reply), clock_(clock) {
    QObject::connect(reply_, &QNetworkReply::readyRead, &context_, [this] { takeBytes(); });
    QObject::connect(reply_, &QNetworkReply::metaDataChanged, &context_,
                     [this] { restartTimer(); });
    QObject::connect(reply_, &QNetworkReply::finished, &context_, [this] {
        timer_.reset();
        if (const Suspension waiter = std::exchange(waiter_, {}))
            waiter.resume();
    });
    restartTimer();
}

URLTransfer::~URLTransfer() {
    reply_->disconnect(&context_);
    reply_->abort();
    reply_->deleteLater();
}

URLResponse URLTransfer::response() {
    if (abortReason_ == URLError::Code::timedOut)
        throw URLError(URLError::Code::timedOut, QStringLiteral("The request timed out."));
    if (abortReason_)
        throw URLError(*abortReason_, QStringLiteral("The answer is too large."));
    if (!isAnswer(reply_->error()))
        throw URLError(codeOf(reply_->error()), reply_->errorString());
    takeBytes();
    const QVariant status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return {std::move(body_), status.isValid() ? std::optional(status.toInt()) : std::nullopt};
}

void URLTransfer::restartTimer() {
    timer_ =
        clock_.startTimer(URLSession::requestTimeout, [this] { abort(URLError::Code::timedOut); });
}

void URLTransfer::takeBytes() {
    if (abortReason_)
        return;
    body_ += reply_->readAll();
    if (body_.size() > URLSession::largestBody)
        abort(URLError::Code::dataTooLarge);
    else if (!reply_->isFinished())
        restartTimer();
}

void URLTransfer::abort(URLError::Code reason) {
    abortReason_ = reason;
    reply_->abort(); // emits finished, which continues whoever waits
}

} // namespace platform
