// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SymbolImage.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace platform {

namespace {

QPixmap render(const QString& name, QSize pixels, const QColor& color) {
    QPixmap pixmap(pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(QStringLiteral(":/symbols/%1.svg").arg(name)).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    return pixmap;
}

} // namespace

void SymbolImage::paint(QPainter& painter, const QRectF& area, const QColor& color) const {
    const QRectF onDevice = painter.deviceTransform().mapRect(area);
    const QSize pixels = onDevice.size().toSize();
    const QString key = QStringLiteral("symbol/%1/%2x%3/%4")
                            .arg(name_)
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(color.name(QColor::HexArgb));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = render(name_, pixels, color);
        QPixmapCache::insert(key, pixmap);
    }
    // Between two pixels it would be smeared over both.
    painter.save();
    painter.setWorldMatrixEnabled(false);
    const QTransform toLogical = painter.deviceTransform().inverted();
    painter.drawPixmap(toLogical.mapRect(QRectF(onDevice.topLeft().toPoint(), pixels)), pixmap,
                       QRectF(pixmap.rect()));
    painter.restore();
}

} // namespace platform
