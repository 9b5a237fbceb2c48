// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"
#include "Platform/Network/URLSession.h"

#include <QNetworkReply>
#include <QObject>

namespace platform {

/// One GET under way: gathers the body, watches its size and its progress, and judges how it ended.
/// Destroying it ends the transfer.
class URLTransfer {
public:
    /// Waits for the end of a transfer. Made by `URLTransfer::finished`.
    class [[nodiscard]] End : public Awaiter {
    public:
        explicit End(URLTransfer& transfer) : transfer_(transfer) {}
        ~End() { transfer_.waiter_ = {}; }

        bool isReady() const { return transfer_.reply_->isFinished(); }
        bool suspend(Suspension waiter) {
            transfer_.waiter_ = waiter;
            return true;
        }
        void take() const {}

    private:
        URLTransfer& transfer_;
    };

    /// Takes over a reply that has just begun.
    URLTransfer(QNetworkReply& reply, Clock& clock);
    URLTransfer(const URLTransfer&) = delete;
    URLTransfer& operator=(const URLTransfer&) = delete;
    ~URLTransfer();

    End finished() { return End(*this); }

    /// The answer, once the transfer has finished.
    /// @throws URLError where there is none, or not the whole of it
    URLResponse response();

private:
    void restartTimer();
    void takeBytes();
    void abort(URLError::Code reason);

    QNetworkReply* reply_;
    Clock& clock_;
    std::unique_ptr<ClockTimer> timer_;
    QByteArray body_;
    std::optional<URLError::Code> abortReason_;
    Suspension waiter_;
    QObject context_;
};

} // namespace platform
