// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StatusItemPainter.h"

#include "Platform/Appearance/SystemFonts.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int iconSide = 16;
constexpr int iconGap = 6;

bool isDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

double widestDigit(const QFontMetricsF& metrics) {
    double widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

/// The text up to where digits end or begin; of digits, one.
QString firstPiece(const QString& text) {
    if (isDigit(text.front()))
        return text.first(1);
    return text.first(std::ranges::find_if(text, isDigit) - text.begin());
}

} // namespace

StatusItemColors StatusItemColors::on(Appearance ground) {
    return {ground == Appearance::dark ? QColor(Qt::white) : QColor(20, 20, 23), ground};
}

StatusItemColors StatusItemColors::with(const QColor& text) {
    return {text, qGray(text.rgb()) > 127 ? Appearance::dark : Appearance::light};
}

StatusItemPainter::StatusItemPainter(const StatusItemContent& content, int height)
    : icon_(content.image), isFaint_(content.notice.has_value()) {
    double x = 0;
    if (icon_.isShown && !icon_.renderings.empty()) {
        const int side = std::min(iconSide, height);
        iconPlace_ = QRect(0, (height - side) / 2, side, side);
        x = side + (content.title.plainText().isEmpty() ? 0 : iconGap);
    }
    const QFontMetricsF metrics(systemFont(fontSize));
    // Capitals and digits stand in the middle; whole pixels keep their edges sharp.
    baseline_ = std::round((height + metrics.capHeight()) / 2);
    for (const AttributedTitle::Run& run : content.title.runs)
        x = addRun(run, x);
    size_ = QSize(std::max(1, static_cast<int>(std::ceil(x))), height);
}

double StatusItemPainter::addRun(const AttributedTitle::Run& run, double x) {
    const QFont font = systemFont(std::max(1, fontSize + qRound(run.sizeDifference)));
    const QFontMetricsF metrics(font);
    const double digitWidth = widestDigit(metrics);
    for (QString rest = run.text; !rest.isEmpty();) {
        const QString text = firstPiece(rest);
        rest.remove(0, text.size());
        const double advance = metrics.horizontalAdvance(text);
        const double room = isDigit(text.front()) ? digitWidth : advance;
        pieces_.push_back({text, font, run.color, x + (room - advance) / 2});
        x += room;
    }
    return x;
}

void StatusItemPainter::paint(QPainter& painter, const StatusItemColors& colors) const {
    constexpr double faintness = 0.45;
    painter.setOpacity(isFaint_ ? faintness : 1);
    if (!iconPlace_.isEmpty()) {
        const double scale = painter.device()->devicePixelRatioF();
        painter.drawImage(QRectF(iconPlace_), icon_.atSize(qRound(iconPlace_.width() * scale)));
    }
    for (const Piece& piece : pieces_) {
        painter.setFont(piece.font);
        painter.setPen(piece.color ? piece.color->resolved(colors.appearance) : colors.text);
        painter.drawText(QPointF(piece.x, baseline_), piece.text);
    }
}

QImage StatusItemPainter::image(int scale, const StatusItemColors& colors) const {
    QImage image(size_ * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter, colors);
    return image;
}

} // namespace platform
