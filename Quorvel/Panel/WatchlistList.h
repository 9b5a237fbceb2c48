// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Panel/WatchlistRows.h"

#include <QScrollArea>

namespace quorvel {

/// The rows of the watchlist in a frame that scrolls once they do not fit. Its right edge lies
/// beyond that of the rows, by the place in which the scroll bar appears.
class WatchlistList final : public QScrollArea {
    Q_OBJECT

public:
    /// Takes `rows` over.
    explicit WatchlistList(WatchlistRows* rows, QWidget* parent = nullptr);

    /// How many rows are in sight at a time, at least one.
    int rowsInSight() const;

    /// As high as all rows; less is possible.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void reveal(const QRect& area);

    WatchlistRows* rows_;
};

} // namespace quorvel
