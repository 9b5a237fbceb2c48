// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusArgument>
#include <QList>
#include <QVariantMap>

#include <utility>

namespace platform {

/// A menu item with the items below it, `(ia{sv}av)`.
struct MenuLayoutItem {
    int id = 0;
    QVariantMap properties;
    QList<MenuLayoutItem> children;
};

/// The number and the properties of one menu item, `(ia{sv})`.
using MenuItemProperties = std::pair<int, QVariantMap>;

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item);

/// Makes the types above known to Qt's bus connection. Must have been called before one of them is
/// sent; may be called again.
void registerDBusMenuTypes();

} // namespace platform

Q_DECLARE_METATYPE(platform::MenuLayoutItem)
