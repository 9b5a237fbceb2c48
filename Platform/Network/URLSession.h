// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Network/URLError.h"
#include "Platform/Network/URLSessionWebSocketTask.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QObject>
#include <QPair>
#include <QUrl>

#include <memory>
#include <optional>

class QNetworkAccessManager;

namespace platform {

/// What came back for a request.
struct URLResponse {
    QByteArray body;
    /// The HTTP status; absent where the answer did not come over HTTP.
    std::optional<int> statusCode;
    QList<QPair<QByteArray, QByteArray>> headers;
    /// When the headers came, by the clock's boot time.
    std::chrono::nanoseconds headersArrival{0};

    /// The value of the first header of that name, in any letter case; absent without one.
    std::optional<QByteArray> header(QByteArrayView name) const;
};

/// Transfers and WebSocket connections, with the user's proxy settings and the system's
/// certificates. A certificate that does not verify fails the transfer, and nothing here can change
/// that.
///
/// Lives on one thread, and outlives the tasks that use it.
class URLSession {
public:
    /// How long a transfer may stay without any progress.
    static constexpr std::chrono::seconds idleLimit{15};

    /// How long a transfer may take as a whole, and how long one that keeps up the least pace.
    static constexpr std::chrono::seconds usualLimit{20};
    static constexpr std::chrono::seconds longestLimit{60};

    /// What the body has to grow by on average after the usual limit, in unpacked bytes a second.
    static constexpr qsizetype leastPace = 10'000;

    /// Larger bodies are refused, measured as they are once unpacked.
    static constexpr qsizetype largestBody = 64 * 1024 * 1024;

    explicit URLSession(Clock& clock);
    URLSession(const URLSession&) = delete;
    URLSession& operator=(const URLSession&) = delete;
    ~URLSession();

    /// GETs `url` and waits for the whole answer, whatever its status. Redirects are followed
    /// unless they lead from an encrypted place to an unencrypted one. Cancelling the task ends the
    /// transfer. What failed is not tried again over the same connection. Only of a body that comes
    /// packed it does not show here that it broke off: whoever reads it has to see to that.
    /// @throws URLError where no whole answer arrived
    Task<URLResponse> data(QUrl url);

    /// A connection to `url`, not opened yet.
    std::shared_ptr<URLSessionWebSocketTask> webSocketTask(const QUrl& url);

    /// Lets transfers from now on use connections of their own: the open ones may be dead, as after
    /// the machine has slept. Transfers under way go on.
    void renewConnections();

    /// Waits until the WebSocket connections that were cancelled have said goodbye and are gone, or
    /// `limit` has passed.
    Task<> finishClosing(std::chrono::milliseconds limit);

private:
    Clock& clock_;
    QObject retired_;                                ///< holds the managers that are about to go
    std::shared_ptr<QNetworkAccessManager> manager_; ///< shared with the transfers under way
    ClosingWebSockets closing_;
};

} // namespace platform
