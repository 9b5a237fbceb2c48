// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"
#include "Platform/StatusContent/MenuEntry.h"
#include "Platform/StatusContent/StatusItemEvents.h"

#include <vector>

namespace platform {

/// A flat menu that panels read and draw: interface `com.canonical.dbusmenu`. It stays as it is, so
/// there is nothing for it to announce.
class DBusMenu final : public DBusObject {
    Q_OBJECT

public:
    /// @param events must outlive the menu; hears of an entry chosen after the panel has its answer
    DBusMenu(std::vector<MenuEntry> entries, StatusItemEvents& events);

protected:
    QVariantMap properties() const override;

private:
    void addMethods();
    QVariantList layout(int parent, int depth, const QStringList& names) const;
    QVariantList groupProperties(const QList<int>& ids, const QStringList& names) const;
    QVariantMap itemProperties(int id, const QStringList& names) const;
    /// Whether there is such an item.
    bool takeEvent(int id, const QString& name);
    bool isKnown(int id) const { return id >= 0 && id <= count(); }
    void requireKnown(int id) const;
    int count() const { return static_cast<int>(entries_.size()); }

    /// On the bus they count from 1; 0 is the menu itself.
    std::vector<MenuEntry> entries_;
    StatusItemEvents& events_;
};

} // namespace platform
