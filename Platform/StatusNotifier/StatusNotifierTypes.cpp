// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QImage>
#include <QtEndian>

namespace platform {

IconPixmap IconPixmap::fromImage(const QImage& image) {
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    const qsizetype rowSize = qsizetype{4} * source.width();
    QByteArray bytes(rowSize * source.height(), Qt::Uninitialized);
    for (int y = 0; y < source.height(); ++y)
        qToBigEndian<quint32>(source.constScanLine(y), source.width(), bytes.data() + y * rowSize);
    return {source.width(), source.height(), bytes};
}

QDBusArgument& operator<<(QDBusArgument& argument, const IconPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, IconPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmaps << toolTip.title << toolTip.body;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmaps >> toolTip.title >> toolTip.body;
    argument.endStructure();
    return argument;
}

void registerStatusNotifierTypes() {
    qDBusRegisterMetaType<IconPixmap>();
    qDBusRegisterMetaType<IconPixmapList>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

} // namespace platform
