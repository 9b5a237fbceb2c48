// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusIcon.h"

#include <QColor>
#include <QPainter>
#include <QRectF>

#include <array>

namespace quorvel {

namespace {

/// One candlestick in points; tops count downward from the icon's upper edge.
struct Candle {
    double x;
    double bodyTop;
    double bodyHeight;
    double wickTop;
    double wickHeight;
    bool isUp;
};

constexpr std::array<Candle, 3> candles{{
    {1.2, 4.7, 5.8, 2.9, 9.3, false},
    {5.8, 2.3, 7.0, 1.2, 10.5, true},
    {10.4, 4.1, 5.8, 2.3, 9.3, true},
}};

constexpr double bodyWidth = 2.6;
constexpr double bodyRadius = 0.7;
constexpr double wickWidth = 0.9;

constexpr QColor upColor{42, 199, 75};
constexpr QColor downColor{243, 44, 45};

void draw(QPainter& painter, const Candle& candle) {
    painter.setBrush(candle.isUp ? upColor : downColor);
    const QRectF wick(candle.x + (bodyWidth - wickWidth) / 2, candle.wickTop, wickWidth,
                      candle.wickHeight);
    painter.drawRoundedRect(wick, wickWidth / 2, wickWidth / 2);
    const QRectF body(candle.x, candle.bodyTop, bodyWidth, candle.bodyHeight);
    painter.drawRoundedRect(body, bodyRadius, bodyRadius);
}

/// Draws a stroke over the picture, set off by a gap: it has to be seen on any panel.
void cross(QImage& image) {
    constexpr double inset = 1.4;
    constexpr double gapWidth = 3.6;
    constexpr double strokeWidth = 1.6;
    constexpr QColor stroke{255, 149, 0};
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / StatusIcon::side, image.height() / StatusIcon::side);
    const QLineF line(inset, StatusIcon::side - inset, StatusIcon::side - inset, inset);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(QPen(Qt::black, gapWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(line);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(stroke, strokeWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(line);
}

} // namespace

QImage StatusIcon::image(int pixelSize, double devicePixelRatio) {
    QImage image(pixelSize, pixelSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.scale(pixelSize / side, pixelSize / side);
        for (const Candle& candle : candles)
            draw(painter, candle);
    }
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

platform::StatusItemImage StatusIcon::crossedImage() {
    platform::StatusItemImage crossed = statusItemImage(true);
    for (QImage& rendering : crossed.renderings)
        cross(rendering);
    return crossed;
}

platform::StatusItemImage StatusIcon::statusItemImage(bool isShown) {
    return {.renderings = {image(16), image(22), image(32), image(44)}, .isShown = isShown};
}

} // namespace quorvel
