// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Picker.h"

#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/AccessiblePicker.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Controls/PopupMenu.h"

#include <QPainter>
#include <QWheelEvent>

namespace platform {

namespace {

constexpr int textInset = 10;
constexpr int chevronSize = 12;
constexpr int chevronInset = 8;
constexpr int menuGap = 4;

} // namespace

Picker::Picker(QWidget* parent) : QComboBox(parent) {
    installAccessiblePicker();
    constexpr int margin = ControlMarks::ringMargin;
    setContentsMargins(margin, margin, margin, margin);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize Picker::sizeHint() const {
    return QSize(preferredWidth, preferredHeight).grownBy(contentsMargins());
}

QRect Picker::textArea() const {
    return contentsRect().adjusted(textInset, 0, -chevronInset - chevronSize, 0);
}

void Picker::showPopup() {
    auto* const menu = new PopupMenu(this);
    menu->setFont(font());
    menu->setMinimumWidth(contentsRect().width());
    for (int i = 0; i < count(); ++i) {
        auto* const action =
            menu->addAction(itemText(i).replace(u'&', QStringLiteral("&&")), this, [this, i] {
                setCurrentIndex(i);
                Q_EMIT activated(i);
            });
        action->setCheckable(true);
        action->setChecked(i == currentIndex());
        if (action->isChecked())
            menu->setActiveAction(action);
    }
    connect(menu, &QMenu::aboutToHide, this, [this] {
        isOpen_ = false;
        update();
    });
    isOpen_ = true;
    update();
    menu->popup(mapToGlobal(contentsRect().bottomLeft() + QPoint(0, menuGap)));
}

void Picker::wheelEvent(QWheelEvent* event) {
    // Who scrolls the window does not mean to choose.
    event->ignore();
}

void Picker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto colors = SystemColors::of(palette());
    const QRect area = contentsRect();
    ControlMarks::paintFill(painter, area, colors.field);
    if (isOpen_ || underMouse())
        ControlMarks::paintFill(painter, area, isOpen_ ? colors.pressed : colors.hover);
    painter.setPen(colors.label);
    painter.drawText(textArea(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, textArea().width()));
    const QRect chevron(area.right() + 1 - chevronInset - chevronSize, area.top(), chevronSize,
                        area.height());
    ControlMarks::paintSymbol(painter, SymbolImage(QStringLiteral("chevron-up-down")), chevron,
                              chevronSize, colors.secondaryLabel);
    if (focusMark_.isShown())
        ControlMarks::paintFocusAround(painter, area, colors.accent);
}

} // namespace platform
