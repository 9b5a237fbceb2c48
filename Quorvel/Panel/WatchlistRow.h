// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Panel/SparklineView.h"

#include <QWidget>

#include <functional>
#include <span>

class QPushButton;

namespace quorvel {

/// One pair of the watchlist: its names and marks, its sparkline, its price, and a button that
/// removes it. Reads what it shows from the model when it is painted; the list of rows tells it
/// when that has changed.
class WatchlistRow final : public QWidget {
    Q_OBJECT

public:
    static constexpr int rowHeight = 44;

    /// @param model          must outlive the row
    /// @param onOpenSettings opens the settings window
    WatchlistRow(Symbol symbol, AppModel& model, std::function<void()> onOpenSettings,
                 QWidget* parent = nullptr);

    const Symbol& symbol() const { return symbol_; }

    /// The row's place in the watchlist.
    std::size_t index() const { return index_; }
    void setIndex(std::size_t index) { index_ = index; }

    /// Names the pair as it is told apart from those in sight. To be called before the row is seen.
    void refreshName(std::span<const Symbol> inSight);

    /// Whether the row is being dragged, above the others.
    void setLifted(bool isLifted);

    /// Opens the row's menu. @param at global coordinates
    void openMenu(QPoint at);

    /// Repaints the price if it differs from what was painted last.
    void refreshQuote();

    /// What assistive technology reads: pair, price and change.
    QString spokenName() const;

    /// And besides: whether it is pinned, whether alerts are set.
    QString spokenDescription() const;

    /// What else the keyboard reaches here.
    QPushButton& removeButton() const { return *removeButton_; }

Q_SIGNALS:
    /// The row or its button has the keyboard now.
    void focused();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// What of a quote is seen.
    struct ShownQuote {
        Decimal lastPrice;
        Decimal changePercent24h;
        bool isStale; ///< or otherwise not live
        bool isTraded;

        bool operator==(const ShownQuote&) const = default;
    };

    std::optional<ShownQuote> currentQuote() const;
    bool hasEnabledAlert() const;
    void setHovering(bool isHovering);
    void showRemoveButton();
    bool isTraded() const;
    QString priceText() const;
    QString toolTipText() const;
    QString cutTexts() const;
    double nameRoom() const;
    QRect nameColumn() const;
    QRect priceColumn() const;
    void paintNames(QPainter& painter) const;
    void paintMarks(QPainter& painter, double left) const;
    void paintQuote(QPainter& painter);

    Symbol symbol_;
    AppModel& model_;
    std::function<void()> onOpenSettings_;
    std::size_t index_ = 0;
    SparklineView* sparkline_;
    QPushButton* removeButton_;
    std::optional<ShownQuote> painted_;
    bool isHovering_ = false;
    bool isLifted_ = false;
};

} // namespace quorvel
