// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/NotificationCenter.h"

#include <QString>

#include <chrono>
#include <memory>

class QDBusConnection;

namespace platform {

class LoginManager;

/// Delays the machine's sleep while any copy of it exists; null delays nothing.
using SleepAssertion = std::shared_ptr<const void>;

/// The session and the machine that the program runs in: tells when the machine falls asleep and
/// wakes, lets the program finish something before it sleeps, and starts the program anew.
///
/// While the program runs, a lock of the login manager delays sleep. When sleep is near, it is
/// released as soon as everybody has been told and no `SleepAssertion` is left; on waking another
/// is taken. A login manager that is missing or refuses means that sleep is not delayed, or not
/// announced at all; nothing else changes. One that is restarted is asked anew, and a sleep it had
/// announced counts as over.
///
/// Main thread.
class Workspace {
public:
    /// Posted when the machine is about to sleep, and when it has woken.
    static const QString willSleepNotification;
    static const QString didWakeNotification;

    /// How long assertions delay sleep at most. The login manager waits for 5 s, unless set
    /// otherwise (`InhibitDelayMaxSec`), and complains of those that take all of it.
    static constexpr std::chrono::seconds longestDelay{4};

    struct Program {
        QString name;        ///< what the login manager lists its lock under
        QString sleepReason; ///< what the program does before the machine sleeps
        QString executable;  ///< absolute path
    };

    /// @param systemBus where the login manager is; one that is not connected counts as one
    ///                  without it
    /// @param clock     counts the delays; outlives this object
    Workspace(Program program, const QDBusConnection& systemBus, Clock& clock);
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace();

    /// Where sleep and wake are posted.
    NotificationCenter& notificationCenter() { return center_; }

    /// For work that has to end before the machine sleeps. To be asked for while the coming sleep
    /// is told of, and kept by the work until it has ended.
    SleepAssertion delaySleep() const { return lock_; }

    /// Starts the program's executable in a process of its own, with the arguments, environment
    /// and working directory that an ordinary start from this session would have. Whether it could
    /// be started; it may end right after.
    bool openNewInstance() const;

private:
    class Lock;

    void takeLock();
    Task<> waitForLock();
    void announceSleep();
    void announceWake();

    Program program_;
    Clock& clock_;
    NotificationCenter center_;
    std::unique_ptr<LoginManager> loginManager_;
    /// None while the machine sleeps or falls asleep, and where the manager has given none.
    std::shared_ptr<Lock> lock_;
    /// The lock that delays the sleep that has been announced.
    std::weak_ptr<Lock> fadingLock_;
    std::unique_ptr<ClockTimer> deadline_;
    bool isAsleep_ = false;
    TaskHandle lockTask_; // last, so that it ends first
};

} // namespace platform
