// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/SingleInstance.h"

#include "Platform/Async/SignalAwaiter.h"
#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/DBusObject.h"
#include "Platform/DBus/ServiceError.h"

#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QFile>
#include <QSocketNotifier>

#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace platform {

using namespace std::chrono_literals;

namespace {

/// A name for the directory, whichever way it was reached.
QString serviceNameOf(const QString& interface, const QString& directory) {
    const QString canonical = QDir(directory).canonicalPath();
    const QByteArray hash = QCryptographicHash::hash(
        QFile::encodeName(canonical.isEmpty() ? directory : canonical), QCryptographicHash::Sha256);
    constexpr qsizetype enough = 8; // bytes; a user has few directories
    // No part of a bus name may begin with a digit.
    return interface + QStringLiteral(".d") + QString::fromLatin1(hash.first(enough).toHex());
}

QString pathOf(const QString& interface) {
    return u'/' + QString(interface).replace(u'.', u'/');
}

} // namespace

/// What is called on the bus.
class SingleInstance::Object final : public DBusObject {
public:
    Object(const Identity& identity, SingleInstance& owner)
        : DBusObject(identity.interface, nullptr) {
        addMethod(identity.method.toLatin1().constData(), "", "", [&owner](const QVariantList&) {
            // The caller gets its answer whatever comes of it, even the end of this object.
            QMetaObject::invokeMethod(&owner, &SingleInstance::called, Qt::QueuedConnection);
            return QVariantList();
        });
    }

protected:
    QVariantMap properties() const override { return {}; }
};

/// Tells a later start when it is worth trying again.
class SingleInstance::FirstWatch {
public:
    explicit FirstWatch(SingleInstance& start)
        : name_(start.serviceName_, *start.bus_, QDBusServiceWatcher::WatchForRegistration),
          process_(descriptorOf(start.firstProcess())) {
        const auto tell = [&start] { Q_EMIT start.firstChanged(QPrivateSignal()); };
        QObject::connect(&name_, &QDBusServiceWatcher::serviceRegistered, &name_, tell);
        if (process_ < 0)
            return;
        // The system frees the locks of a process before it tells of its end.
        end_ = std::make_unique<QSocketNotifier>(process_, QSocketNotifier::Read);
        QObject::connect(end_.get(), &QSocketNotifier::activated, end_.get(), [this, tell] {
            end_->setEnabled(false); // else it tells for ever
            tell();
        });
    }
    FirstWatch(const FirstWatch&) = delete;
    FirstWatch& operator=(const FirstWatch&) = delete;
    ~FirstWatch() {
        end_.reset();
        if (process_ >= 0)
            ::close(process_);
    }

private:
    /// Negative where the process is unknown, has ended, or is none that can be seen from here.
    static int descriptorOf(std::optional<std::int64_t> process) {
        return process ? static_cast<int>(::syscall(SYS_pidfd_open, *process, 0)) : -1;
    }

    QDBusServiceWatcher name_;
    int process_;
    std::unique_ptr<QSocketNotifier> end_;
};

SingleInstance::SingleInstance(Identity identity, const QString& directory,
                               const QDBusConnection& sessionBus, Clock& clock)
    : identity_(std::move(identity)),
      lock_(directory + u'/' + identity_.lockFile),
      serviceName_(serviceNameOf(identity_.interface, directory)),
      bus_(std::make_unique<QDBusConnection>(sessionBus)),
      clock_(clock) {}

SingleInstance::~SingleInstance() {
    release();
}

Task<SingleInstance::Outcome> SingleInstance::claim(std::chrono::milliseconds patience) {
    const auto deadline = clock_.uptime() + patience;
    const auto left = [&] {
        return std::chrono::ceil<std::chrono::milliseconds>(deadline - clock_.uptime());
    };
    for (;;) {
        // Before each try, so that nothing is missed between the try and the wait.
        const FirstWatch watch(*this);
        SignalAwaiter change(*this, &SingleInstance::firstChanged, clock_, left());
        if (co_await becomeFirst())
            co_return Outcome::first;
        if (left() <= 0ms)
            co_return Outcome::unanswered;
        if (co_await callFirst(left()))
            co_return Outcome::handedOver;
        // It may be just starting, and have no name yet, or ending, and have no lock soon.
        co_await change;
    }
}

Task<bool> SingleInstance::becomeFirst() {
    const FileLock::State lock = lock_.tryTake();
    if (lock == FileLock::State::heldElsewhere)
        co_return false;
    if (!bus_->isConnected() || co_await startListening()) {
        if (lock == FileLock::State::held)
            lock_.writeHolder();
        co_return true;
    }
    // Somebody has the name: the lock's file was removed, or there are no locks here.
    lock_.release();
    co_return false;
}

Task<bool> SingleInstance::startListening() {
    object_ = std::make_unique<Object>(identity_, *this);
    // The object first: whoever sees the name may call at once.
    bus_->registerVirtualObject(pathOf(identity_.interface), object_.get());
    constexpr uint doNotQueue = 4;
    constexpr uint existsElsewhere = 3;
    bool isTaken = false;
    try {
        const auto request = callOfBus(QStringLiteral("RequestName")) << serviceName_ << doNotQueue;
        const QDBusMessage answer = co_await DBusCall(*bus_, request, clock_);
        isTaken = answer.arguments().value(0).toUInt() == existsElsewhere;
    } catch (const ServiceError&) {
        co_return true; // a bus without names says nothing
    }
    if (isTaken) {
        bus_->unregisterObject(pathOf(identity_.interface));
        object_.reset();
    }
    co_return !isTaken;
}

Task<bool> SingleInstance::callFirst(std::chrono::milliseconds limit) {
    auto message = QDBusMessage::createMethodCall(serviceName_, pathOf(identity_.interface),
                                                  identity_.interface, identity_.method);
    message.setAutoStartService(false);
    try {
        co_await DBusCall(*bus_, message, clock_, limit);
        co_return true;
    } catch (const ServiceError&) {
        co_return false;
    }
}

void SingleInstance::stopListening() {
    if (!object_)
        return;
    bus_->send(callOfBus(QStringLiteral("ReleaseName")) << serviceName_);
    bus_->unregisterObject(pathOf(identity_.interface));
    object_.reset();
}

void SingleInstance::release() {
    stopListening();
    lock_.release();
}

} // namespace platform
