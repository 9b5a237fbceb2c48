// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/Workspace.h"

#include "Platform/DBus/ServiceError.h"
#include "Platform/Services/LoginManager.h"

#include <QProcess>

#include <utility>

namespace platform {

const QString Workspace::willSleepNotification = QStringLiteral("willSleep");
const QString Workspace::didWakeNotification = QStringLiteral("didWake");

/// The descriptor of a lock: closed with the last reference, or before.
class Workspace::Lock {
public:
    explicit Lock(const QDBusUnixFileDescriptor& descriptor) : descriptor_(descriptor) {}

    void release() { descriptor_ = {}; }

private:
    QDBusUnixFileDescriptor descriptor_;
};

Workspace::Workspace(Program program, const QDBusConnection& systemBus, Clock& clock)
    : program_(std::move(program)),
      clock_(clock),
      loginManager_(std::make_unique<LoginManager>(systemBus, clock)) {
    QObject::connect(
        loginManager_.get(), &LoginManager::prepareForSleep, loginManager_.get(),
        [this](bool isAboutToSleep) { isAboutToSleep ? announceSleep() : announceWake(); });
    QObject::connect(loginManager_.get(), &LoginManager::ownerChanged, loginManager_.get(),
                     [this](bool isThere) {
                         // Nobody is left who would tell of the end of this sleep.
                         if (isAsleep_)
                             announceWake();
                         else if (isThere)
                             takeLock();
                     });
    takeLock();
}

Workspace::~Workspace() = default;

void Workspace::takeLock() {
    lockTask_ = startTask(waitForLock());
}

Task<> Workspace::waitForLock() {
    try {
        lock_ = std::make_shared<Lock>(
            co_await loginManager_->delaySleep(program_.name, program_.sleepReason));
    } catch (const ServiceError&) {
        // The machine then sleeps without waiting for this program.
    }
}

void Workspace::announceSleep() {
    if (std::exchange(isAsleep_, true))
        return;
    // A lock that comes only now would delay a sleep that nobody prepares for any more.
    lockTask_ = {};
    fadingLock_ = lock_;
    deadline_ = clock_.startTimer(longestDelay, [this] {
        if (const auto lock = fadingLock_.lock())
            lock->release();
    });
    center_.post(willSleepNotification);
    lock_.reset();
}

void Workspace::announceWake() {
    isAsleep_ = false;
    deadline_.reset();
    if (const auto lock = fadingLock_.lock())
        lock->release();
    takeLock();
    center_.post(didWakeNotification);
}

bool Workspace::openNewInstance() const {
    return QProcess::startDetached(program_.executable, {});
}

} // namespace platform
