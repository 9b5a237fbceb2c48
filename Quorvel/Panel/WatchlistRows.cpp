// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/WatchlistRows.h"

#include "Platform/Foundation/StringTable.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <chrono>

namespace quorvel {

namespace {

constexpr std::chrono::milliseconds dragStep{16};

} // namespace

WatchlistRows::WatchlistRows(AppModel& model, std::function<void()> onOpenSettings, QWidget* parent)
    : QWidget(parent), model_(model), onOpenSettings_(std::move(onOpenSettings)) {
    setObjectName(QStringLiteral("watchlist"));
    setAccessibleName(platform::localized("Quorvel", "Watchlist"));
    followStores();
}

void WatchlistRows::followStores() {
    connect(&model_.watchlist(), &WatchlistStore::itemsChanged, this, [this] {
        if (isVisible())
            sync();
    });
    connect(&model_.quotes(), &QuoteStore::quotesChanged, this, &WatchlistRows::refreshQuote);
    connect(&model_.quotes(), &QuoteStore::isStaleChanged, this, &WatchlistRows::repaintRows);
    connect(&model_.feed(), &FeedStatus::outageChanged, this, &WatchlistRows::repaintRows);
    connect(&model_.feed(), &FeedStatus::tradedChanged, this, &WatchlistRows::repaintRows);
    connect(&model_.alerts(), &AlertStore::rulesChanged, this, &WatchlistRows::repaintRows);
    connect(&model_.settings(), &SettingsStore::displayChanged, this, &WatchlistRows::repaintRows);
}

QSize WatchlistRows::sizeHint() const {
    // By the store, so that a popover has its size before its rows are made.
    const auto rows = static_cast<int>(model_.watchlist().items().size());
    return {0, std::max(0, rows * pitch - rowSpacing)};
}

void WatchlistRows::showEvent(QShowEvent* event) {
    sync();
    QWidget::showEvent(event);
}

void WatchlistRows::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    endDrag(false);
}

void WatchlistRows::sync() {
    endDrag(false);
    const auto focused = focusedRow();
    auto rows = takeRowsFor(model_.watchlist().items());
    const bool hasGrown = rows.size() > rows_.size() && !rows_.empty();
    std::swap(rows_, rows);
    rowsBySymbol_.clear();
    const auto symbols = model_.watchlist().symbols();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        rows_[i]->setIndex(i);
        rows_[i]->refreshName(symbols);
        rowsBySymbol_.emplace(rows_[i]->symbol(), rows_[i]);
    }
    resize(width(), sizeHint().height());
    updateGeometry();
    layOut();
    keepFocus(focused);
    if (hasGrown)
        Q_EMIT revealWanted(rows_.back()->geometry());
}

void WatchlistRows::keepFocus(std::optional<std::size_t> wasFocused) {
    if (const auto focused = focusedRow()) {
        Q_EMIT revealWanted(rows_[*focused]->geometry());
    } else if (wasFocused && rows_.empty()) {
        Q_EMIT focusLost();
    } else if (wasFocused) {
        focusRow(std::min(*wasFocused, rows_.size() - 1));
    } else if (!current_ || current_->isHidden()) {
        current_ = rows_.empty() ? nullptr : rows_.front();
    }
}

std::vector<WatchlistRow*> WatchlistRows::takeRowsFor(const std::vector<WatchlistItem>& items) {
    std::vector<WatchlistRow*> rows;
    rows.reserve(items.size());
    for (const WatchlistItem& item : items) {
        const auto found = rowsBySymbol_.find(item.symbol);
        if (found == rowsBySymbol_.end()) {
            rows.push_back(makeRow(item.symbol));
            continue;
        }
        rows.push_back(found->second);
        rowsBySymbol_.erase(found);
    }
    for (const auto& [symbol, row] : rowsBySymbol_) {
        // Its own menu or button may be what removed it.
        row->hide();
        row->deleteLater();
    }
    return rows;
}

WatchlistRow* WatchlistRows::makeRow(const Symbol& symbol) {
    auto* const row = new WatchlistRow(symbol, model_, onOpenSettings_, this);
    connect(row, &WatchlistRow::focused, this, [this, row] {
        current_ = row;
        Q_EMIT revealWanted(row->geometry());
    });
    return row;
}

void WatchlistRows::focusRow(std::size_t index) {
    rows_[index]->setFocus(Qt::OtherFocusReason);
}

std::optional<std::size_t> WatchlistRows::focusedRow() const {
    const QWidget* const focus = window()->focusWidget();
    for (const WatchlistRow* const row : rows_) {
        if (focus && (row == focus || row->isAncestorOf(focus)))
            return row->index();
    }
    return std::nullopt;
}

void WatchlistRows::layOut() {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const int top = !drag_             ? static_cast<int>(i) * pitch
                        : i == drag_->from ? drag_->top()
                                           : drag_->topOf(i);
        rows_[i]->setGeometry(0, top, width(), WatchlistRow::rowHeight);
        rows_[i]->show();
    }
}

void WatchlistRows::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        layOut();
}

void WatchlistRows::refreshQuote(const Symbol& symbol) {
    if (!isVisible())
        return;
    const auto [first, last] = rowsBySymbol_.equal_range(symbol);
    std::for_each(first, last, [](const auto& entry) { entry.second->refreshQuote(); });
}

void WatchlistRows::repaintRows() {
    for (WatchlistRow* const row : rows_)
        row->update();
}

void WatchlistRows::keyPressEvent(QKeyEvent* event) {
    if (drag_ && event->matches(QKeySequence::Cancel))
        endDrag(false);
    else
        QWidget::keyPressEvent(event);
}

void WatchlistRows::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        pressedAt_ = event->position().toPoint();
}

void WatchlistRows::mouseMoveEvent(QMouseEvent* event) {
    pointer_ = event->globalPosition().toPoint();
    const int way = pressedAt_ ? (event->position().toPoint() - *pressedAt_).manhattanLength() : 0;
    if (!drag_ && way >= QApplication::startDragDistance() && rows_.size() > 1)
        beginDrag();
    if (drag_)
        moveDrag();
}

void WatchlistRows::beginDrag() {
    const int from = pressedAt_->y() / pitch;
    drag_ = RowDrag{.from = static_cast<std::size_t>(from),
                    .count = rows_.size(),
                    .pitch = pitch,
                    .grip = pressedAt_->y() - from * pitch,
                    .pointer = pressedAt_->y()};
    rows_[drag_->from]->setLifted(true);
    rows_[drag_->from]->raise();
    takeDragStep();
}

void WatchlistRows::takeDragStep() {
    moveDrag();
    dragStep_ = model_.clock().startTimer(dragStep, [this] { takeDragStep(); });
}

void WatchlistRows::moveDrag() {
    drag_->pointer = mapFromGlobal(pointer_).y();
    layOut();
    Q_EMIT revealWanted(rows_[drag_->from]->geometry());
}

void WatchlistRows::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        endDrag(true);
}

void WatchlistRows::endDrag(bool isDropped) {
    pressedAt_.reset();
    if (!drag_)
        return;
    const RowDrag drag = *std::exchange(drag_, std::nullopt);
    dragStep_.reset();
    rows_[drag.from]->setLifted(false);
    layOut();
    const std::size_t to = drag.target();
    if (isDropped && to != drag.from)
        model_.watchlist().move({drag.from}, to > drag.from ? to + 1 : to);
}

} // namespace quorvel
