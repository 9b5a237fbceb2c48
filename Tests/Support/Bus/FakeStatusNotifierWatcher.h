// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QStringList>

namespace test {

/// What a panel brings to the bus for status items to register with. Takes the well-known name over
/// from an earlier one; gone with this object.
class FakeStatusNotifierWatcher : public QDBusVirtualObject {
    Q_OBJECT

public:
    /// @param hasHost whether a panel listens to it already
    explicit FakeStatusNotifierWatcher(const QDBusConnection& bus, bool hasHost = true);
    ~FakeStatusNotifierWatcher() override;

    /// A panel begins to listen.
    void addHost();

    /// From now on takes registrations without listing what is registered.
    void setLosesItems(bool losesItems) { losesItems_ = losesItems; }

    /// Who registered an item, in order.
    const QStringList& registered() const { return registered_; }

    /// From now on reads an item's properties before it answers the item's registration.
    void setReadsBeforeAnswering() { readsBeforeAnswering_ = true; }

    /// How many registrations have been answered.
    int answerCount() const { return answerCount_; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString& path) const override;

private:
    void answer(const QDBusMessage& message);

    QDBusConnection bus_;
    bool hasHost_;
    QStringList registered_;
    QStringList listed_;
    bool losesItems_ = false;
    bool readsBeforeAnswering_ = false;
    int answerCount_ = 0;
};

} // namespace test
