// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Services/NotificationRequest.h"
#include "Platform/Services/NotificationSender.h"

#include <chrono>
#include <memory>

class QDBusConnection;

namespace platform {

class NotificationService;

/// Shows notifications through the desktop's notification service,
/// `org.freedesktop.Notifications` on the session bus.
///
/// The service may be absent, come later, be replaced or hang at any time: each request finds out
/// anew, and nothing blocks. Notifications appear also while a window of the program is in front;
/// whether and how long is the service's to decide.
///
/// Main thread. Outlives the tasks that use it.
class UserNotificationCenter {
public:
    /// How long `requestAuthorization` waits at most. Longer than other calls: the service may have
    /// to be started on a desktop that is still starting itself, and who was refused once may not
    /// ask again.
    static constexpr std::chrono::seconds authorizationLimit{25};

    /// @param bus   the session bus; one that is not connected counts as one without the service
    /// @param clock counts how long the service takes; outlives this object
    UserNotificationCenter(NotificationSender sender, const QDBusConnection& bus, Clock& clock);
    UserNotificationCenter(const UserNotificationCenter&) = delete;
    UserNotificationCenter& operator=(const UserNotificationCenter&) = delete;
    ~UserNotificationCenter();

    /// Whether there is a service that answers. One that can be started is started. Never throws.
    Task<bool> requestAuthorization();

    /// Shows a notification of its own, never in place of an earlier one, and waits until the
    /// service has taken it. Requests that are made one after another are shown in this order.
    ///
    /// What no service could show is replaced (halves of characters) or left out (control
    /// characters).
    /// @throws ServiceError with a sentence for the user where there is no service, it refuses, or
    ///         one of its two answers takes longer than `DBusCall::usualLimit`
    Task<> add(NotificationRequest request);

private:
    NotificationSender sender_;
    std::unique_ptr<NotificationService> service_;
};

} // namespace platform
