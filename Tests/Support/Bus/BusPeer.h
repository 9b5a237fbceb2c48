// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QVariant>

namespace test {

/// Another program on the bus: calls objects and writes down the signals it hears. Waiting lets the
/// event loop run, so the object it calls may live in the same thread.
class BusPeer : public QObject {
    Q_OBJECT

public:
    explicit BusPeer(const QDBusConnection& bus) : bus_(bus) {}

    /// The answer, an error reply included; the test fails when none comes within five seconds.
    QDBusMessage call(const QString& service, const QString& path, const QString& interface,
                      const QString& member, const QVariantList& arguments = {});

    /// Writes down every signal of `interface` that the owner of `service` sends from now on.
    void listenTo(const QString& service, const QString& interface);

    /// The signals heard since the last call of this, oldest first. Those sent before the peer got
    /// its last answer from the same program are among them.
    QList<QDBusMessage> takeSignals();

private Q_SLOTS:
    void note(const QDBusMessage& message) { signals_.append(message); }

private:
    QDBusConnection bus_;
    QList<QDBusMessage> signals_;
};

} // namespace test
