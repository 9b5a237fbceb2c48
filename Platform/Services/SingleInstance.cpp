// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/SingleInstance.h"

#include "Platform/DBus/DBusObject.h"

#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <utility>

namespace platform {

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

SingleInstance::SingleInstance(Identity identity, const QString& directory,
                               const QDBusConnection& sessionBus)
    : identity_(std::move(identity)),
      lock_(directory + u'/' + identity_.lockFile),
      serviceName_(serviceNameOf(identity_.interface, directory)),
      bus_(std::make_unique<QDBusConnection>(sessionBus)) {}

SingleInstance::~SingleInstance() {
    release();
}

SingleInstance::Outcome SingleInstance::claim(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    for (;;) {
        if (becomeFirst())
            return Outcome::first;
        // The bus takes a limit of 0 for none.
        const std::chrono::milliseconds left(std::max<qint64>(deadline.remainingTime(), 1));
        if (callFirst(left))
            return Outcome::handedOver;
        if (deadline.hasExpired())
            return Outcome::unanswered;
        // The first may be just starting, and have no name yet, or ending, and have no lock soon.
        constexpr unsigned long pause = 20; // milliseconds
        QThread::msleep(pause);
    }
}

bool SingleInstance::becomeFirst() {
    const FileLock::State lock = lock_.tryTake();
    if (lock == FileLock::State::heldElsewhere)
        return false;
    if (!bus_->isConnected() || startListening()) {
        if (lock == FileLock::State::held)
            lock_.writeHolder();
        return true;
    }
    // Somebody has the name: the lock's file was removed, or there are no locks here.
    lock_.release();
    return false;
}

bool SingleInstance::startListening() {
    object_ = std::make_unique<Object>(identity_, *this);
    // The object first: whoever sees the name may call at once.
    bus_->registerVirtualObject(pathOf(identity_.interface), object_.get());
    if (bus_->registerService(serviceName_))
        return true;
    bus_->unregisterObject(pathOf(identity_.interface));
    object_.reset();
    return false;
}

bool SingleInstance::callFirst(std::chrono::milliseconds limit) {
    auto message = QDBusMessage::createMethodCall(serviceName_, pathOf(identity_.interface),
                                                  identity_.interface, identity_.method);
    message.setAutoStartService(false);
    return bus_->call(message, QDBus::Block, static_cast<int>(limit.count())).type() ==
           QDBusMessage::ReplyMessage;
}

void SingleInstance::stopListening() {
    if (!object_)
        return;
    bus_->unregisterService(serviceName_);
    bus_->unregisterObject(pathOf(identity_.interface));
    object_.reset();
}

void SingleInstance::release() {
    stopListening();
    lock_.release();
}

} // namespace platform
