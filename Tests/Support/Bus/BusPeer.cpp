// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Bus/BusPeer.h"

#include "Tests/Support/ManualClock.h"

#include <QDBusPendingCall>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>

namespace test {

QDBusMessage BusPeer::call(const QString& service, const QString& path, const QString& interface,
                           const QString& member, const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, member);
    message.setArguments(arguments);
    const QDBusPendingCall pending = bus_.asyncCall(message);
    if (!QTest::qWaitFor([&] { return pending.isFinished(); }, 5'000)) {
        ADD_FAILURE() << "No answer to " << qPrintable(member);
        return {};
    }
    return pending.reply();
}

void BusPeer::listenTo(const QString& service, const QString& interface) {
    const bool isListening =
        bus_.connect(service, QString(), interface, QString(), this, SLOT(note(QDBusMessage)));
    ASSERT_TRUE(isListening);
}

QList<QDBusMessage> BusPeer::takeSignals() {
    drainEvents();
    return std::exchange(signals_, {});
}

} // namespace test
