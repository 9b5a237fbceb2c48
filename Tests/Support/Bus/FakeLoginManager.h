// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QStringList>

#include <vector>

namespace test {

/// A login manager on the bus: hands out inhibitor locks, sees them released, and announces sleep.
/// Takes the well-known name over from an earlier one, and gives it back when it goes.
class FakeLoginManager : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Habit { grant, refuse, hold };

    /// @param bus a connection of its own, not the one of the program under test
    explicit FakeLoginManager(const QDBusConnection& bus);
    ~FakeLoginManager() override;

    /// What it does from now on when a lock is asked for.
    void setHabit(Habit habit) { habit_ = habit; }

    /// Grants the locks that it has held back.
    void grantHeld();

    /// What was asked for, each as the arguments of `Inhibit`.
    const QList<QStringList>& requests() const { return requests_; }

    /// How many of the locks handed out are held: any copy of the descriptor is open anywhere.
    int heldLocks() const;

    /// Announces sleep, or that it is over.
    void announce(bool isAboutToSleep);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

private:
    void grant(const QDBusMessage& call);

    QDBusConnection bus_;
    Habit habit_ = Habit::grant;
    QList<QStringList> requests_;
    QList<QDBusMessage> held_;
    /// The reading end of each lock's pipe: at its end once the lock is released.
    std::vector<int> locks_;
};

} // namespace test
