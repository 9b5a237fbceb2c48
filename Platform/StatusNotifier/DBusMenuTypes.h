// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QStringList>
#include <QVariantMap>

namespace platform {

/// A menu item with the items below it, `(ia{sv}av)`.
struct MenuLayoutItem {
    int id = 0;
    QVariantMap properties;
    QList<MenuLayoutItem> children;
};

/// The properties of one menu item, `(ia{sv})`.
struct MenuItemProperties {
    int id = 0;
    QVariantMap properties;
};
using MenuItemPropertiesList = QList<MenuItemProperties>;

/// The names of properties that one menu item no longer has, `(ias)`.
struct MenuItemRemovedProperties {
    int id = 0;
    QStringList names;
};
using MenuItemRemovedPropertiesList = QList<MenuItemRemovedProperties>;

/// Something that happened to a menu item in the panel, `(isvu)`.
struct MenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};
using MenuEventList = QList<MenuEvent>;

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemProperties& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemProperties& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemRemovedProperties& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemRemovedProperties& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

/// Makes the types above known to Qt's bus connection. Must have been called before one of them is
/// sent; may be called again.
void registerDBusMenuTypes();

} // namespace platform

Q_DECLARE_METATYPE(platform::MenuLayoutItem)
Q_DECLARE_METATYPE(platform::MenuItemProperties)
Q_DECLARE_METATYPE(platform::MenuItemRemovedProperties)
Q_DECLARE_METATYPE(platform::MenuEvent)
