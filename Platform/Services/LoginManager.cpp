// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/LoginManager.h"

#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ServiceError.h"

#include <utility>

namespace platform {

namespace {

const auto serviceName = QStringLiteral("org.freedesktop.login1");
const auto objectPath = QStringLiteral("/org/freedesktop/login1");
const auto interface = QStringLiteral("org.freedesktop.login1.Manager");

} // namespace

LoginManager::LoginManager(const QDBusConnection& bus, Clock& clock)
    : bus_(bus),
      clock_(clock),
      watcher_(serviceName, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    bus_.connect(serviceName, objectPath, interface, QStringLiteral("PrepareForSleep"), this,
                 SIGNAL(prepareForSleep(bool)));
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                Q_EMIT ownerChanged(!newOwner.isEmpty());
            });
}

Task<QDBusUnixFileDescriptor> LoginManager::delaySleep(QString who, QString why) {
    auto message = QDBusMessage::createMethodCall(serviceName, objectPath, interface,
                                                  QStringLiteral("Inhibit"));
    message << QStringLiteral("sleep") << who << why << QStringLiteral("delay");
    // Where the machine has a manager, it runs.
    message.setAutoStartService(false);
    const QDBusMessage answer = co_await DBusCall(bus_, message, clock_);
    const auto lock = answer.arguments().value(0).value<QDBusUnixFileDescriptor>();
    if (!lock.isValid())
        throw ServiceError(ServiceError::Code::refused, interface);
    co_return lock;
}

} // namespace platform
