// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusContent/StatusItemPresentation.h"
#include "Platform/StatusNotifier/DBusMenu.h"
#include "Platform/StatusNotifier/StatusNotifierObject.h"
#include "Platform/StatusNotifier/StatusNotifierRendering.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QTimer>

#include <memory>

namespace platform {

/// The presentation for panels that follow the status notifier protocol. What they are shown is up
/// to a `StatusNotifierRendering`.
///
/// Makes itself known whenever a panel's watcher appears, which may be before, after or several
/// times during the life of the item, and once a panel listens to that watcher: one that is just
/// starting may miss an item that comes between its first look and its listening. Never waits for
/// an answer of a panel, nor longer than two seconds for one that listens.
class StatusNotifierItem final : public StatusItemPresentation {
    Q_OBJECT

public:
    StatusNotifierItem(const StatusItemIdentity& identity,
                       std::unique_ptr<StatusNotifierRendering> rendering,
                       const QDBusConnection& bus, QObject* parent = nullptr);
    ~StatusNotifierItem() override;

    void show(const StatusItemContent& content) override;

private Q_SLOTS:
    void registerForHost();

private:
    void appear();
    void findHost();
    void registerWithWatcher();
    QDBusMessage busCall(const QString& method) const;

    std::unique_ptr<StatusNotifierRendering> rendering_;
    QDBusConnection bus_;
    QString serviceName_;
    StatusNotifierObject object_;
    DBusMenu menu_;
    QDBusServiceWatcher watcher_;
    QTimer hostPatience_; ///< runs while a panel that listens is waited for
    StatusItemContent content_;
    bool isOnBus_ = false;
};

} // namespace platform
