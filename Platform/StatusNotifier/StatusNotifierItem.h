// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/StatusContent/StatusItemPresentation.h"
#include "Platform/StatusNotifier/DBusMenu.h"
#include "Platform/StatusNotifier/StatusNotifierObject.h"
#include "Platform/StatusNotifier/StatusNotifierRendering.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <chrono>
#include <memory>

namespace platform {

/// The presentation for panels that follow the status notifier protocol. What they are shown is up
/// to a `StatusNotifierRendering`.
///
/// Makes itself known whenever a panel's watcher appears, which may be before, after or several
/// times during the life of the item, and once a panel listens to that watcher: one that is just
/// starting may miss an item that comes between its first look and its listening. Never waits for
/// an answer of a panel, nor longer than `hostPatience` for one that listens. Then looks whether
/// the watcher lists the item, and makes it known again where it does not.
class StatusNotifierItem final : public QObject, public StatusItemPresentation {
    Q_OBJECT

public:
    static constexpr std::chrono::seconds hostPatience{2};

    /// How long a watcher has to list the item.
    static constexpr std::chrono::seconds listingPatience{5};

    /// The least time between two registrations with one watcher.
    static constexpr std::chrono::seconds registrationInterval{10};

    /// An item that is not listed for so long will hardly be seen.
    static constexpr std::chrono::seconds longestUnlisted{20};

    /// What is handed in by reference must outlive the item. For `ordinal` see the object's.
    StatusNotifierItem(const StatusItemIdentity& identity, StatusNotifierRendering rendering,
                       const QDBusConnection& bus, Clock& clock, StatusItemEvents& events,
                       int ordinal);
    ~StatusNotifierItem() override;

    void setContent(const StatusItemContent& content) override;

Q_SIGNALS:
    /// A watcher is there, and lists the item; or it has not done so for `longestUnlisted`.
    void listedChanged(bool isListed);

private Q_SLOTS:
    void registerForHost();

private:
    void appear();
    Task<> findHost();
    Task<> stayRegistered();
    Task<bool> isListed();
    void registerWithWatcher();

    StatusNotifierRendering rendering_;
    QDBusConnection bus_;
    Clock& clock_;
    StatusNotifierObject object_;
    DBusMenu menu_;
    QDBusServiceWatcher watcher_;
    StatusItemContent content_;
    bool isOnBus_ = false;
    std::unique_ptr<ClockTimer> patience_; ///< there while a panel that listens is waited for
    TaskHandle hostSearch_;
    TaskHandle registration_;
};

} // namespace platform
