// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Panel/RowDrag.h"
#include "Quorvel/Panel/WatchlistRow.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvel {

/// The rows of the watchlist in their order, one below the other: follows the stores, moves the
/// keyboard from row to row, and lets a row be dragged to another place.
///
/// While it is not shown it does nothing; it catches up when it is.
class WatchlistRows final : public QWidget {
    Q_OBJECT

public:
    static constexpr int rowSpacing = 1;
    static constexpr int pitch = WatchlistRow::rowHeight + rowSpacing;

    /// @param model          must outlive the rows
    /// @param onOpenSettings opens the settings window
    WatchlistRows(AppModel& model, std::function<void()> onOpenSettings, QWidget* parent = nullptr);

    std::size_t count() const { return rows_.size(); }

    /// The row at this place, which exists.
    WatchlistRow& row(std::size_t index) const { return *rows_[index]; }

    /// Gives the keyboard to the row at this place, which exists.
    void focusRow(std::size_t index);

    /// The row that has the keyboard, itself or through its button; absent where none has.
    std::optional<std::size_t> focusedRow() const;

    /// The row at which the Tab key stops: the last that had the keyboard, else the first. Null
    /// where there is none.
    WatchlistRow* currentRow() const { return current_; }

    /// As high as its rows.
    QSize sizeHint() const override;

Q_SIGNALS:
    /// This part should be in sight.
    void revealWanted(const QRect& area);

    /// The row that had the keyboard is gone, and no other can take it.
    void focusLost();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void followStores();
    void sync();
    std::vector<WatchlistRow*> takeRowsFor(const std::vector<WatchlistItem>& items);
    WatchlistRow* makeRow(const Symbol& symbol);
    void keepFocus(std::optional<std::size_t> wasFocused);
    void layOut();
    void refreshQuote(const Symbol& symbol);
    void repaintRows();
    void beginDrag();
    void moveDrag();
    void takeDragStep();
    void endDrag(bool isDropped);

    AppModel& model_;
    std::function<void()> onOpenSettings_;
    std::vector<WatchlistRow*> rows_;
    /// A damaged file may name a pair twice.
    std::unordered_multimap<Symbol, WatchlistRow*> rowsBySymbol_;
    QPointer<WatchlistRow> current_;
    std::optional<QPoint> pressedAt_; ///< a drag may begin here
    QPoint pointer_;                  ///< global
    std::optional<RowDrag> drag_;
    /// Lets the list scroll on while the pointer rests at its edge.
    std::unique_ptr<platform::ClockTimer> dragStep_;
};

} // namespace quorvel
