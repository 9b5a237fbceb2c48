// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierItem.h"

#include "Platform/Async/SleepFor.h"
#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ServiceError.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace platform {

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");

/// A question for one of the watcher's properties. A panel brings its watcher up itself.
QDBusMessage questionFor(const QString& property) {
    auto question = QDBusMessage::createMethodCall(
        watcherService, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question.setAutoStartService(false);
    return question << watcherService << property;
}

QVariant propertyIn(const QDBusMessage& answer) {
    return answer.arguments().value(0).value<QDBusVariant>().variant();
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const StatusItemIdentity& identity,
                                       StatusNotifierRendering rendering,
                                       const QDBusConnection& bus, Clock& clock,
                                       StatusItemEvents& events, int ordinal)
    : rendering_(std::move(rendering)),
      bus_(bus),
      clock_(clock),
      object_(identity, events, ordinal),
      menu_(identity.menu, events) {}

StatusNotifierItem::~StatusNotifierItem() {
    if (!isOnBus_)
        return;
    // Panels have no other way to see that it goes while the program stays.
    bus_.send(object_.farewell());
    bus_.unregisterObject(object_.path());
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
    bus_.registerVirtualObject(object_.path(), &object_);
    bus_.registerVirtualObject(StatusNotifierObject::menuPath, &menu_);

    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(watcherService);
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& newOwner) {
                registration_ = {};
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
    patience_ = clock_.startTimer(hostPatience, [this] { registerForHost(); });
    // A watcher that does not say may well have one.
    bool hasHost = true;
    try {
        const auto question = questionFor(QStringLiteral("IsStatusNotifierHostRegistered"));
        hasHost = propertyIn(co_await DBusCall(bus_, question, clock_, hostPatience)).toBool();
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
    if (std::exchange(patience_, nullptr))
        registration_ = startTask(stayRegistered());
}

Task<> StatusNotifierItem::stayRegistered() {
    const auto began = clock_.uptime();
    for (;;) {
        registerWithWatcher();
        co_await sleepFor(clock_, listingPatience);
        if (co_await isListed()) {
            Q_EMIT listedChanged(true);
            co_return;
        }
        co_await sleepFor(clock_, registrationInterval - listingPatience);
        if (clock_.uptime() - began >= longestUnlisted)
            Q_EMIT listedChanged(false);
    }
}

Task<bool> StatusNotifierItem::isListed() {
    try {
        const auto question = questionFor(QStringLiteral("RegisteredStatusNotifierItems"));
        const QDBusMessage answer = co_await DBusCall(bus_, question, clock_);
        const QString own = bus_.baseService();
        // The two spellings that watchers have for an item that came by its path.
        const QStringList all = propertyIn(answer).toStringList();
        co_return all.contains(own + object_.path()) || all.contains(own + u'@' + object_.path());
    } catch (const ServiceError&) {
        // A watcher that does not say may well list it.
        co_return true;
    }
}

void StatusNotifierItem::registerWithWatcher() {
    auto call = QDBusMessage::createMethodCall(watcherService, watcherPath, watcherService,
                                               QStringLiteral("RegisterStatusNotifierItem"));
    call.setAutoStartService(false);
    // Not waited for: some watchers ask the item back before they answer.
    // By path: a name of the item's own would make two items of it for panels that also look round,
    // and some lose the race for the name's owner.
    bus_.asyncCall(call << object_.path());
}

} // namespace platform
