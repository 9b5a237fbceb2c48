// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/WatchlistList.h"

#include "Platform/Controls/ControlStyle.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace quorvel {

namespace {

constexpr int fewestRows = 2;

} // namespace

WatchlistList::WatchlistList(WatchlistRows* rows, QWidget* parent)
    : QScrollArea(parent), rows_(rows) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(WatchlistRows::pitch);
    verticalScrollBar()->setAccessibleName(rows->accessibleName());
    setWidget(rows);
    // A scroll area gives itself and its widget a background of their own.
    viewport()->setAutoFillBackground(false);
    rows->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    connect(rows, &WatchlistRows::revealWanted, this, &WatchlistList::reveal);
}

QSize WatchlistList::sizeHint() const {
    return rows_->sizeHint();
}

QSize WatchlistList::minimumSizeHint() const {
    return {0, std::min(sizeHint().height(), fewestRows * WatchlistRows::pitch)};
}

void WatchlistList::resizeEvent(QResizeEvent* event) {
    rows_->resize(width() - platform::ControlStyle::scrollBarBreadth, rows_->sizeHint().height());
    QScrollArea::resizeEvent(event);
}

int WatchlistList::rowsInSight() const {
    return std::max(1, viewport()->height() / WatchlistRows::pitch);
}

void WatchlistList::keyPressEvent(QKeyEvent* event) {
    // A scroll area would scroll, and keep the key from the panel, which moves the focus.
    event->ignore();
}

void WatchlistList::reveal(const QRect& area) {
    QScrollBar& bar = *verticalScrollBar();
    if (area.top() < bar.value())
        bar.setValue(area.top());
    else if (area.bottom() >= bar.value() + viewport()->height())
        bar.setValue(area.bottom() + 1 - viewport()->height());
}

} // namespace quorvel
