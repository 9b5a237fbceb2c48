// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QString>

class QImage;

namespace platform {

/// One size of an icon as it goes over the bus, `(iiay)`: rows from the top, four bytes a pixel in
/// the order alpha, red, green, blue, not premultiplied.
struct IconPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;

    static IconPixmap fromImage(const QImage& image);

    bool operator==(const IconPixmap&) const = default;
};

/// An icon in several sizes, `a(iiay)`.
using IconPixmapList = QList<IconPixmap>;

/// A tooltip as it goes over the bus, `(sa(iiay)ss)`.
struct NotifierToolTip {
    QString iconName;
    IconPixmapList iconPixmaps;
    QString title;
    QString body;

    bool operator==(const NotifierToolTip&) const = default;
};

QDBusArgument& operator<<(QDBusArgument& argument, const IconPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, IconPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// Makes the types above known to Qt's bus connection. Must have been called before one of them is
/// sent; may be called again.
void registerStatusNotifierTypes();

} // namespace platform

Q_DECLARE_METATYPE(platform::IconPixmap)
Q_DECLARE_METATYPE(platform::NotifierToolTip)
