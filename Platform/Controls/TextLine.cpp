// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/TextLine.h"

#include "Platform/Appearance/SystemColors.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

/// The advance that every digit gets.
double digitAdvance(const QFontMetricsF& metrics) {
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// Calls `place` with each stretch of `text` that is set as a whole, and its advance.
void forEachRun(const QString& text, const QFontMetricsF& metrics, auto place) {
    const double digit = digitAdvance(metrics);
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start + 1;
        if (!isDigit(text[start])) {
            while (end < text.size() && !isDigit(text[end]))
                ++end;
        }
        const QString run = text.mid(start, end - start);
        place(run, isDigit(run[0]) ? digit : metrics.horizontalAdvance(run));
        start = end;
    }
}

double advance(const QString& text, const QFontMetricsF& metrics) {
    double sum = 0;
    forEachRun(text, metrics, [&sum](const QString&, double width) { sum += width; });
    return sum;
}

QColor color(TextLine::Strength strength, const SystemColors& colors) {
    switch (strength) {
    case TextLine::Strength::secondary:
        return colors.secondaryLabel;
    case TextLine::Strength::tertiary:
        return colors.tertiaryLabel;
    case TextLine::Strength::primary:
        break;
    }
    return colors.label;
}

} // namespace

TextLine::TextLine(const QString& text, Strength strength, QWidget* parent)
    : QLabel(parent), strength_(strength) {
    setTextFormat(Qt::PlainText);
    setText(text);
}

void TextLine::setStrength(Strength strength) {
    if (std::exchange(strength_, strength) != strength)
        update();
}

QSize TextLine::sizeHint() const {
    const QFontMetricsF metrics(font());
    return QSize(qCeil(advance(text(), metrics)), qCeil(metrics.height()))
        .grownBy(contentsMargins());
}

void TextLine::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    setToolTip(sizeHint().width() > width() ? text() : QString());
}

void TextLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(color(strength_, SystemColors::of(palette())));
    const QFontMetricsF metrics(font());
    const QRectF area = contentsRect();
    const bool isCut = advance(text(), metrics) > area.width() + 1;
    const QString line = isCut ? metrics.elidedText(text(), Qt::ElideRight, area.width()) : text();
    QPointF origin(area.left(),
                   std::round(area.center().y() + (metrics.ascent() - metrics.descent()) / 2));
    forEachRun(line, metrics, [&](const QString& run, double width) {
        const double slack = width - metrics.horizontalAdvance(run);
        painter.drawText(origin + QPointF(slack / 2, 0), run);
        origin.rx() += width;
    });
}

} // namespace platform
