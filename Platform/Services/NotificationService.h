// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"
#include "Platform/Foundation/Clock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QStringList>
#include <QVariant>

#include <chrono>
#include <optional>

namespace platform {

/// The desktop's notification service as it stands on the bus: its methods, and which of its
/// optional features it has. Part of `UserNotificationCenter`; main thread.
class NotificationService {
public:
    NotificationService(const QDBusConnection& bus, Clock& clock);

    /// Waits for any answer to `GetServerInformation`. @throws ServiceError where none comes
    Task<> findServer(std::chrono::milliseconds limit);

    /// The optional features of the service, as `GetCapabilities` names them. Each program that
    /// offers the service is asked once. @throws ServiceError where it does not say
    Task<QStringList> capabilities();

    /// Calls `Notify`. @throws ServiceError where the service has not taken the notification
    Task<> notify(QVariantList arguments);

private:
    static QDBusMessage methodCall(const QString& method);

    QDBusConnection bus_;
    Clock& clock_;
    QDBusServiceWatcher watcher_;
    /// The bus name of the program that offers the service; empty for none, absent until the bus
    /// has told of a change.
    std::optional<QString> owner_;
    /// Those of the present owner; absent until it has been asked.
    std::optional<QStringList> capabilities_;
};

} // namespace platform
