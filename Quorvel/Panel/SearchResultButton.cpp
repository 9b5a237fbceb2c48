// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/SearchResultButton.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Foundation/StringTable.h"

#include <QPainter>

namespace quorvel {

using platform::localized;

namespace {

constexpr int fontSize = 13;
constexpr int symbolSize = 14;
constexpr int reasonSize = 10;
constexpr int reasonSpacing = 8;

QString reason() {
    return localized("Quorvel", "Can't be saved in the watchlist");
}

} // namespace

SearchResultButton::SearchResultButton(QWidget* parent) : PlainButton({}, parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFont(platform::systemFont(fontSize));
    setSymbol(platform::SymbolImage(QStringLiteral("plus-circle")), symbolSize);
}

void SearchResultButton::setPair(const Symbol& symbol) {
    symbol_ = symbol;
    const QString base = QString::fromStdString(symbol.base);
    setText(base);
    setEnabled(symbol.isStorable());
    setAccessibleName(localized("Quorvel", "Add %1").arg(base));
    setAccessibleDescription(isEnabled() ? QString() : reason());
    setToolTip(accessibleDescription());
}

void SearchResultButton::setDefault(bool isDefault) {
    if (std::exchange(isDefault_, isDefault) != isDefault)
        update();
}

QColor SearchResultButton::foreground() const {
    const auto colors = platform::SystemColors::of(palette());
    return isEnabled() ? colors.label : colors.tertiaryLabel;
}

void SearchResultButton::paintEvent(QPaintEvent* event) {
    const auto colors = platform::SystemColors::of(palette());
    if (isDefault_ && !underMouse()) {
        QPainter painter(this);
        platform::ControlMarks::paintFill(painter, rect(), colors.hover);
    }
    PlainButton::paintEvent(event);
    if (isEnabled())
        return;
    QPainter painter(this);
    painter.setFont(platform::systemFont(reasonSize));
    painter.setPen(colors.tertiaryLabel);
    const int left = PlainButton::sizeHint().width() - horizontalPadding + reasonSpacing;
    painter.drawText(rect().adjusted(left, 0, -horizontalPadding, 0),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, reason());
}

} // namespace quorvel
