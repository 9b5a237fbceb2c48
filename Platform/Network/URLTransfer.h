// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/SignalAwaiter.h"
#include "Platform/Network/URLSession.h"

#include <QNetworkReply>
#include <QObject>

namespace platform {

/// One GET under way: gathers the body, watches its size and its progress, and judges how it ended.
/// Destroying it ends the transfer.
class URLTransfer {
public:
    /// Takes over a reply that has just begun.
    URLTransfer(QNetworkReply& reply, Clock& clock);

    /// To be awaited, once: the end of the transfer.
    SignalAwaiter<>& finished() { return finished_; }

    /// The answer, once the transfer has finished.
    /// @throws URLError where there is none, or not the whole of it
    URLResponse response();

private:
    struct EndReply {
        void operator()(QNetworkReply* reply) const {
            reply->abort();
            reply->deleteLater();
        }
    };

    void restartIdleTimer();
    void checkPace();
    void takeBytes();
    void abort(URLError::Code reason);

    std::unique_ptr<QNetworkReply, EndReply> reply_; ///< outlives what listens to it
    Clock& clock_;
    std::chrono::nanoseconds began_;             ///< uptime
    std::chrono::nanoseconds headersArrival_{0}; ///< boot time
    std::unique_ptr<ClockTimer> idleTimer_;
    std::unique_ptr<ClockTimer> paceTimer_;
    QByteArray body_;
    std::optional<URLError::Code> abortReason_;
    QObject context_;
    SignalAwaiter<> finished_;
};

} // namespace platform
