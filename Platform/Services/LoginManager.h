// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"
#include "Platform/Foundation/Clock.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>

namespace platform {

/// The machine's login manager, `org.freedesktop.login1` on the system bus, as far as it tells of
/// sleep. Part of `Workspace`; main thread.
class LoginManager : public QObject {
    Q_OBJECT

public:
    /// @param bus   the system bus; one that is not connected counts as one without the manager
    /// @param clock counts how long the manager takes; outlives this object
    LoginManager(const QDBusConnection& bus, Clock& clock);

    /// Takes a lock that delays the machine's sleep until every copy of the descriptor is closed,
    /// or the manager waits no longer (`InhibitDelayMaxSec`, 5 s unless set).
    /// @param who what the manager lists the lock under
    /// @param why what is to be done before the machine sleeps
    /// @throws ServiceError where the manager is missing, silent or refuses
    Task<QDBusUnixFileDescriptor> delaySleep(QString who, QString why);

Q_SIGNALS:
    /// The machine is about to sleep, or has woken; also where the sleep did not come about.
    void prepareForSleep(bool isAboutToSleep);

    /// The manager has come, gone or been replaced.
    void ownerChanged(bool isThere);

private:
    QDBusConnection bus_;
    Clock& clock_;
    QDBusServiceWatcher watcher_;
};

} // namespace platform
