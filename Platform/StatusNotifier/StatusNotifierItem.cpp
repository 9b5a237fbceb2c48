// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <chrono>
#include <utility>

namespace platform {

using namespace std::chrono_literals;

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto nameHasNoOwner = QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
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
                                       std::unique_ptr<StatusNotifierRendering> rendering,
                                       const QDBusConnection& bus, QObject* parent)
    : StatusItemPresentation(parent),
      rendering_(std::move(rendering)),
      bus_(bus),
      serviceName_(nextServiceName()),
      object_(identity, nullptr),
      menu_(bus, StatusNotifierObject::menuPath, nullptr) {
    connect(&object_, &StatusNotifierObject::activated, this, &StatusItemPresentation::activated);
    connect(&menu_, &DBusMenu::triggered, this, &StatusItemPresentation::menuTriggered);
    hostPatience_.setSingleShot(true);
    hostPatience_.setInterval(2s);
    connect(&hostPatience_, &QTimer::timeout, this, &StatusNotifierItem::registerWithWatcher);
}

StatusNotifierItem::~StatusNotifierItem() {
    if (!isOnBus_)
        return;
    bus_.send(busCall(QStringLiteral("ReleaseName")) << serviceName_);
    bus_.unregisterObject(StatusNotifierObject::path);
    bus_.unregisterObject(StatusNotifierObject::menuPath);
}

void StatusNotifierItem::show(const StatusItemContent& content) {
    menu_.setEntries(content.menu);
    content_ = content;
    const QList<QDBusMessage> changes = object_.setState(rendering_->render(content, false));
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
    bus_.asyncCall(busCall(QStringLiteral("RequestName")) << serviceName_ << doNotQueue);

    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(watcherService);
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                if (newOwner.isEmpty())
                    return;
                object_.setState(rendering_->render(content_, true));
                findHost();
            });
    bus_.connect(watcherService, watcherPath, watcherService,
                 QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(registerForHost()));
    findHost();
}

void StatusNotifierItem::findHost() {
    hostPatience_.start();
    auto ask = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                              QStringLiteral("org.freedesktop.DBus.Properties"),
                                              QStringLiteral("Get"));
    ask.setAutoStartService(false);
    ask << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(ask), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> hasHost = *answer;
        const QDBusError error = hasHost.error();
        // Without a watcher; its coming will be told.
        if (error.type() == QDBusError::ServiceUnknown || error.name() == nameHasNoOwner)
            hostPatience_.stop();
        // A watcher that does not say may well have one.
        else if (error.isValid() || hasHost.value().variant().toBool())
            registerForHost();
        answer->deleteLater();
    });
}

void StatusNotifierItem::registerForHost() {
    if (!hostPatience_.isActive())
        return;
    hostPatience_.stop();
    registerWithWatcher();
}

void StatusNotifierItem::registerWithWatcher() {
    auto call = QDBusMessage::createMethodCall(watcherService, watcherPath, watcherService,
                                               QStringLiteral("RegisterStatusNotifierItem"));
    // A panel brings its watcher up itself.
    call.setAutoStartService(false);
    // Not waited for: some watchers ask the item back before they answer.
    bus_.asyncCall(call << serviceName_);
}

QDBusMessage StatusNotifierItem::busCall(const QString& method) const {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

} // namespace platform
