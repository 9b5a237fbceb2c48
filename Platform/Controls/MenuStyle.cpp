// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/MenuStyle.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWidget>

namespace platform {

namespace {

constexpr int cornerRadius = 8;
constexpr int separatorHeight = 9;
constexpr int tickSize = 12;
constexpr int trailingPadding = 12;

void paintPanel(QPainter& painter, const QStyleOption& option, const QWidget* menu) {
    const auto colors = SystemColors::of(option.palette);
    const bool isTranslucent = menu && menu->testAttribute(Qt::WA_TranslucentBackground);
    const double radius = isTranslucent ? cornerRadius : 0;
    const double line = 1 / painter.device()->devicePixelRatioF();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // Stronger than a hairline within a window: it may be all that sets the menu off from one.
    QColor edge = colors.label;
    edge.setAlphaF(0.25F);
    painter.setPen(QPen(edge, line));
    painter.setBrush(colors.card);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                            radius, radius);
    painter.restore();
}

void paintSeparator(QPainter& painter, const QStyleOption& option) {
    const QRectF row(option.rect);
    painter.fillRect(QRectF(row.left() + ControlMarks::cornerRadius, row.center().y(),
                            row.width() - 2 * ControlMarks::cornerRadius,
                            1 / painter.device()->devicePixelRatioF()),
                     SystemColors::of(option.palette).separator);
}

void paintRow(QPainter& painter, const QStyleOptionMenuItem& item) {
    const bool isSelected = item.state & QStyle::State_Selected;
    const bool isEnabled = item.state & QStyle::State_Enabled;
    const auto accent = AccentColors::of(item.palette);
    QColor foreground =
        item.palette.color(isEnabled ? QPalette::Active : QPalette::Disabled, QPalette::Text);
    painter.save();
    if (isSelected && isEnabled) {
        ControlMarks::paintFill(painter, item.rect, accent.fill);
        foreground = accent.mark;
    }
    if (item.checked) {
        const QRect place(item.rect.topLeft(), QSize(MenuStyle::textInset, item.rect.height()));
        ControlMarks::paintSymbol(painter, SymbolImage(QStringLiteral("checkmark")), place,
                                  tickSize, foreground);
    }
    const bool hasTicks = item.checkType != QStyleOptionMenuItem::NotCheckable;
    const int left = hasTicks ? MenuStyle::textInset : trailingPadding;
    painter.setFont(item.font);
    painter.setPen(foreground);
    painter.drawText(item.rect.adjusted(left, 0, -trailingPadding, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     item.text);
    painter.restore();
}

} // namespace

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return inset;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !item)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator)
        return {textInset, separatorHeight}; // without a width it is left out
    const QFontMetrics metrics(item->font);
    return {textInset + metrics.size(Qt::TextHideMnemonic, item->text).width() + trailingPadding,
            rowHeight};
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelMenu)
        paintPanel(*painter, *option, widget);
    else if (element != PE_FrameMenu)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item) {
        if (item->menuItemType == QStyleOptionMenuItem::Separator)
            paintSeparator(*painter, *item);
        else
            paintRow(*painter, *item);
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

} // namespace platform
