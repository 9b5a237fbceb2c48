// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/StatusItemView.h"

#include "Platform/Controls/AccessibleRole.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

namespace platform {

namespace {

constexpr int lineHeight = 22;

/// Shows each character as it is.
QString withoutAccessKeys(QString text) {
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

StatusItemView::StatusItemView(const StatusItemIdentity& identity, StatusItemEvents& events,
                               Qt::WindowFlags flags, QMargins inset)
    : QWidget(nullptr, flags), identity_(identity), events_(events), inset_(inset) {
    setWindowTitle(identity.title);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleRole(*this, QAccessible::Button);
}

void StatusItemView::setContent(const StatusItemContent& content) {
    painter_.emplace(content, lineHeight);
    setAccessibleName(content.toolTip);
    setAccessibleDescription(content.notice.value_or(QString()));
    // The text need not be told to somebody who is looking at it.
    const bool isText = !content.title.plainText().isEmpty();
    setToolTip(content.notice.value_or(isText ? QString() : content.toolTip));
    const QSize size = painter_->size().grownBy(inset_);
    if (size != this->size())
        takeRoom(size);
    update();
}

void StatusItemView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT events_.clicked();
}

void StatusItemView::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuEntry& entry : identity_.menu) {
        if (entry.isSeparator) {
            menu->addSeparator();
            continue;
        }
        connect(
            menu->addAction(withoutAccessKeys(entry.text)), &QAction::triggered, this,
            [this, id = entry.id] { Q_EMIT events_.menuTriggered(id); }, Qt::QueuedConnection);
    }
    menu->popup(event->globalPos());
}

void StatusItemView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintGround(painter);
    if (!painter_)
        return;
    // A tray may give more room than was asked for.
    const QSize free = size().shrunkBy(inset_) - painter_->size();
    const QPoint origin(inset_.left() + std::max(0, free.width() / 2),
                        inset_.top() + free.height() / 2);
    painter.translate(origin);
    painter_->paint(painter, colors());
}

} // namespace platform
