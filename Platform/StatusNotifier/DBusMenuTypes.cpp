// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/DBusMenuTypes.h"

#include <QDBusMetaType>
#include <QDBusVariant>

namespace platform {

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item) {
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const MenuLayoutItem& child : item.children)
        argument << QDBusVariant(QVariant::fromValue(child));
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item) {
    QVariantList children;
    argument.beginStructure();
    argument >> item.id >> item.properties >> children;
    argument.endStructure();
    item.children.clear();
    for (const QVariant& child : children)
        item.children.append(qdbus_cast<MenuLayoutItem>(child));
    return argument;
}

void registerDBusMenuTypes() {
    qDBusRegisterMetaType<MenuLayoutItem>();
    qDBusRegisterMetaType<MenuItemProperties>();
    qDBusRegisterMetaType<QList<MenuItemProperties>>();
}

} // namespace platform
