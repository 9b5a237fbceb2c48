// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Bus/FakeStatusNotifierWatcher.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <gtest/gtest.h>

namespace test {

namespace {

const auto name = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto objectPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

FakeStatusNotifierWatcher::FakeStatusNotifierWatcher(const QDBusConnection& bus, bool hasHost)
    : bus_(bus), hasHost_(hasHost) {
    bus_.registerVirtualObject(objectPath, this);
    bus_.interface()->registerService(name, QDBusConnectionInterface::ReplaceExistingService,
                                      QDBusConnectionInterface::AllowReplacement);
}

FakeStatusNotifierWatcher::~FakeStatusNotifierWatcher() {
    bus_.unregisterService(name);
    bus_.unregisterObject(objectPath);
}

void FakeStatusNotifierWatcher::addHost() {
    hasHost_ = true;
    bus_.send(QDBusMessage::createSignal(objectPath, name,
                                         QStringLiteral("StatusNotifierHostRegistered")));
}

bool FakeStatusNotifierWatcher::handleMessage(const QDBusMessage& message, const QDBusConnection&) {
    if (message.member() == QStringLiteral("Get") &&
        message.arguments().value(1) == QStringLiteral("IsStatusNotifierHostRegistered")) {
        bus_.send(message.createReply(QVariant::fromValue(QDBusVariant(hasHost_))));
        return true;
    }
    if (message.member() == QStringLiteral("Get") &&
        message.arguments().value(1) == QStringLiteral("RegisteredStatusNotifierItems")) {
        bus_.send(message.createReply(QVariant::fromValue(QDBusVariant(listed_))));
        return true;
    }
    if (message.member() != QStringLiteral("RegisterStatusNotifierItem")) {
        ADD_FAILURE() << "Unexpected call of " << qPrintable(message.member());
        return false;
    }
    const QString path = message.arguments().value(0).toString();
    EXPECT_TRUE(path.startsWith(QStringLiteral("/StatusNotifierItem")));
    registered_.append(message.service());
    if (!losesItems_)
        listed_.append(message.service() + path);
    if (!readsBeforeAnswering_) {
        answer(message);
        return true;
    }
    auto read = QDBusMessage::createMethodCall(
        registered_.back(), QStringLiteral("/StatusNotifierItem"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
    read << QStringLiteral("org.kde.StatusNotifierItem");
    auto* pending = new QDBusPendingCallWatcher(bus_.asyncCall(read), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [this, message] { answer(message); });
    return true;
}

void FakeStatusNotifierWatcher::answer(const QDBusMessage& message) {
    bus_.send(message.createReply());
    ++answerCount_;
}

QString FakeStatusNotifierWatcher::introspect(const QString&) const {
    return {};
}

} // namespace test
