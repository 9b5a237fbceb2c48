// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierItem.h"

#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ServiceError.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace platform {

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");

/// A name of the item's own; the number tells the items of one process apart.
QString nextServiceName() {
    static int count = 0;
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(++count);
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const StatusItemIdentity& identity,
                                       StatusNotifierRendering rendering,
                                       const QDBusConnection& bus, Clock& clock,
                                       StatusItemEvents& events)
    : rendering_(std::move(rendering)),
      bus_(bus),
      clock_(clock),
      serviceName_(nextServiceName()),
      object_(identity, events),
      menu_(identity.menu, events) {}

StatusNotifierItem::~StatusNotifierItem() {
    if (!isOnBus_)
        return;
    bus_.send(callOfBus(QStringLiteral("ReleaseName")) << serviceName_);
    bus_.unregisterObject(StatusNotifierObject::path);
    bus_.unregisterObject(StatusNotifierObject::menuPath);
}

void StatusNotifierItem::setContent(const StatusItemContent& content) {
    content_ = content;
    const QList<QDBusMessage> changes = object_.setState(rendering_.render(content, false));
    if (!isOnBus_) {
        appear();
        return;
    }
    for (const QDBusMessage& change : changes)
        bus_.send(change);
}

void StatusNotifierItem::appear() {
    if (!bus_.isConnected())
        return;
    isOnBus_ = true;
    bus_.registerVirtualObject(StatusNotifierObject::path, &object_);
    bus_.registerVirtualObject(StatusNotifierObject::menuPath, &menu_);
    constexpr uint doNotQueue = 4;
    bus_.asyncCall(callOfBus(QStringLiteral("RequestName")) << serviceName_ << doNotQueue);

    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(watcherService);
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                if (newOwner.isEmpty())
                    return;
                object_.setState(rendering_.render(content_, true));
                hostSearch_ = startTask(findHost());
            });
    bus_.connect(watcherService, watcherPath, watcherService,
                 QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(registerForHost()));
    hostSearch_ = startTask(findHost());
}

Task<> StatusNotifierItem::findHost() {
    patience_ = clock_.startTimer(hostPatience, [this] { registerWithWatcher(); });
    auto ask = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                              QStringLiteral("org.freedesktop.DBus.Properties"),
                                              QStringLiteral("Get"));
    ask.setAutoStartService(false);
    ask << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    // A watcher that does not say may well have one.
    bool hasHost = true;
    try {
        const QDBusMessage answer = co_await DBusCall(bus_, ask, clock_, hostPatience);
        hasHost = answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
    } catch (const ServiceError& error) {
        // Without a watcher; its coming will be told.
        if (error.code() == ServiceError::Code::unavailable) {
            patience_.reset();
            co_return;
        }
    }
    if (hasHost)
        registerForHost();
}

void StatusNotifierItem::registerForHost() {
    if (patience_)
        registerWithWatcher();
}

void StatusNotifierItem::registerWithWatcher() {
    patience_.reset();
    auto call = QDBusMessage::createMethodCall(watcherService, watcherPath, watcherService,
                                               QStringLiteral("RegisterStatusNotifierItem"));
    // A panel brings its watcher up itself.
    call.setAutoStartService(false);
    // Not waited for: some watchers ask the item back before they answer.
    bus_.asyncCall(call << serviceName_);
}

} // namespace platform
