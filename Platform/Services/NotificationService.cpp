// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/NotificationService.h"

#include "Platform/DBus/DBusCall.h"

namespace platform {

namespace {

const auto serviceName = QStringLiteral("org.freedesktop.Notifications");

} // namespace

NotificationService::NotificationService(const QDBusConnection& bus, Clock& clock)
    : bus_(bus),
      clock_(clock),
      watcher_(serviceName, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
                     [this](const QString&, const QString&, const QString& newOwner) {
                         owner_ = newOwner;
                         capabilities_.reset();
                     });
}

Task<> NotificationService::findServer(std::chrono::milliseconds limit) {
    co_await DBusCall(bus_, methodCall(QStringLiteral("GetServerInformation")), clock_, limit);
}

Task<QStringList> NotificationService::capabilities() {
    if (capabilities_)
        co_return *capabilities_;
    const QDBusMessage answer =
        co_await DBusCall(bus_, methodCall(QStringLiteral("GetCapabilities")), clock_);
    const QStringList named = answer.arguments().value(0).toStringList();
    // A program that has just been replaced may still answer.
    if (!owner_ || owner_ == answer.service())
        capabilities_ = named;
    co_return named;
}

Task<> NotificationService::notify(QVariantList arguments) {
    QDBusMessage message = methodCall(QStringLiteral("Notify"));
    message.setArguments(arguments);
    co_await DBusCall(bus_, message, clock_);
}

QDBusMessage NotificationService::methodCall(const QString& method) {
    return QDBusMessage::createMethodCall(
        serviceName, QStringLiteral("/org/freedesktop/Notifications"), serviceName, method);
}

} // namespace platform
