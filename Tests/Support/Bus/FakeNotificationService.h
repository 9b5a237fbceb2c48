// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QList>
#include <QStringList>

namespace test {

/// A notification service on the bus: writes down what it is called with, and answers, refuses or
/// keeps silent as it is told. Takes the well-known name over from an earlier one, which knows
/// nothing of that, and gives it back when it goes.
class FakeNotificationService : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Habit { answer, refuse, hold };

    /// @param bus          a connection of its own, not the one of the program under test
    /// @param capabilities what it says it can do
    explicit FakeNotificationService(const QDBusConnection& bus, QStringList capabilities = {});
    ~FakeNotificationService() override;

    /// What it does from now on when `method` is called. It answers what nothing is said of.
    void setHabit(const QString& method, Habit habit) { habits_[method] = habit; }

    /// The methods called, in order.
    const QStringList& called() const { return called_; }

    /// The calls of Notify, in order.
    const QList<QDBusMessage>& notifications() const { return notifications_; }

    /// Answers the calls it has held back.
    void answerHeld();

    /// Answers the calls it has held back with an error.
    void refuseHeld();

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

private:
    void answer(const QDBusMessage& call);
    void refuse(const QDBusMessage& call);

    QDBusConnection bus_;
    QStringList capabilities_;
    QHash<QString, Habit> habits_;
    QStringList called_;
    QList<QDBusMessage> notifications_;
    QList<QDBusMessage> held_;
};

} // namespace test
