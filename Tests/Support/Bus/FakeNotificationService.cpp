// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Bus/FakeNotificationService.h"

#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

#include <utility>

namespace test {

namespace {

const auto name = QStringLiteral("org.freedesktop.Notifications");
const auto objectPath = QStringLiteral("/org/freedesktop/Notifications");

} // namespace

FakeNotificationService::FakeNotificationService(const QDBusConnection& bus,
                                                 QStringList capabilities)
    : bus_(bus), capabilities_(std::move(capabilities)) {
    bus_.registerVirtualObject(objectPath, this);
    bus_.interface()->registerService(name, QDBusConnectionInterface::ReplaceExistingService,
                                      QDBusConnectionInterface::AllowReplacement);
}

FakeNotificationService::~FakeNotificationService() {
    bus_.unregisterService(name);
    bus_.unregisterObject(objectPath);
}

void FakeNotificationService::answerHeld() {
    for (const QDBusMessage& call : std::exchange(held_, {}))
        answer(call);
}

void FakeNotificationService::refuseHeld() {
    for (const QDBusMessage& call : std::exchange(held_, {}))
        refuse(call);
}

bool FakeNotificationService::handleMessage(const QDBusMessage& message, const QDBusConnection&) {
    called_.append(message.member());
    if (message.member() == QStringLiteral("Notify"))
        notifications_.append(message);
    switch (habits_.value(message.member(), Habit::answer)) {
    case Habit::answer:
        answer(message);
        break;
    case Habit::refuse:
        refuse(message);
        break;
    case Habit::hold:
        held_.append(message);
        break;
    }
    return true;
}

void FakeNotificationService::answer(const QDBusMessage& call) {
    if (call.member() == QStringLiteral("GetServerInformation")) {
        const auto text = QStringLiteral("fake");
        bus_.send(call.createReply({text, text, text, text}));
    } else if (call.member() == QStringLiteral("GetCapabilities")) {
        bus_.send(call.createReply(QVariant(capabilities_)));
    } else if (call.member() == QStringLiteral("Notify")) {
        bus_.send(call.createReply(QVariant(static_cast<uint>(notifications_.size()))));
    } else {
        ADD_FAILURE() << "Unexpected call of " << qPrintable(call.member());
        refuse(call);
    }
}

void FakeNotificationService::refuse(const QDBusMessage& call) {
    bus_.send(call.createErrorReply(QStringLiteral("org.freedesktop.Notifications.Error.TooMany"),
                                    QStringLiteral("Too many\nnotifications")));
}

} // namespace test
