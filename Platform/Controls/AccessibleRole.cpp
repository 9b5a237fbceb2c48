// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace platform {

namespace {

constexpr const char* property = "accessibleRole";

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    const QVariant role = object->property(property);
    if (!role.isValid())
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object),
                                 static_cast<QAccessible::Role>(role.toInt()));
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
    widget.setProperty(property, static_cast<int>(role));
}

} // namespace platform
