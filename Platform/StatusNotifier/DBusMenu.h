// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"
#include "Platform/StatusContent/MenuEntry.h"
#include "Platform/StatusNotifier/DBusMenuTypes.h"

#include <QDBusConnection>

#include <vector>

namespace platform {

/// A flat menu that panels read and draw: interface `com.canonical.dbusmenu`.
///
/// On the bus each entry has a number of its own, never used again for another entry, so that a
/// click into a menu that has meanwhile changed cannot hit the wrong entry.
class DBusMenu final : public DBusObject {
    Q_OBJECT

public:
    /// @param path where the owner registers this object on `bus`
    DBusMenu(const QDBusConnection& bus, QString path, QObject* parent);

    /// Shows `entries` from now on and tells panels what changed: the properties of entries when
    /// the same ids stay in the same order, else the layout.
    void setEntries(std::vector<MenuEntry> entries);

Q_SIGNALS:
    /// The user chose the enabled entry with this id (that of the `MenuEntry`). Emitted after the
    /// panel has its answer.
    void triggered(int id);

protected:
    QVariantMap properties() const override;

private:
    void addMethods();
    QVariantList layout(const QVariantList& arguments) const;
    QVariantList groupProperties(const QVariantList& arguments) const;
    QVariantList property(const QVariantList& arguments) const;
    QVariantList answerEvent(const QVariantList& arguments);
    QVariantList answerEventGroup(const QVariantList& arguments);
    QVariantList aboutToShow(const QVariantList& arguments) const;
    QVariantList aboutToShowGroup(const QVariantList& arguments) const;

    void replaceLayout(std::vector<MenuEntry> entries);
    void updateProperties(std::vector<MenuEntry> entries);
    void handleEvent(int busId, const QString& name);
    bool isKnown(int busId) const;
    QList<int> unknownAmong(const QList<int>& busIds) const;
    QVariantMap itemProperties(int busId, const QStringList& names) const;
    int busIdAt(std::size_t index) const { return firstBusId_ + static_cast<int>(index); }

    QDBusConnection bus_;
    QString path_;
    std::vector<MenuEntry> entries_;
    /// The bus's number of the first entry; the others follow. 0 is the menu itself.
    int firstBusId_ = 1;
    uint revision_ = 1;
};

} // namespace platform
