// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Quorvel/Model/AppModel.h"

#include <QPolygonF>
#include <QWidget>

#include <span>

namespace quorvel {

/// The small line of a pair's closing prices over the chart period, in the colour of where the last
/// of them lies against the first. Empty as long as there are fewer than two.
///
/// Draws what the candle cache has, and asks the model to load what it has not: once each time it
/// comes into sight, and when the chart period changes.
class SparklineView final : public QWidget {
    Q_OBJECT

public:
    static constexpr double lineWidth = 1.2;

    /// Room around the line's area, so that the line has its whole width at the edges too.
    static constexpr int margin = 1;

    /// @param model must outlive the view
    SparklineView(Symbol symbol, AppModel& model, QWidget* parent = nullptr);

    /// Where the line runs in an area of `size`: evenly from its left to its right edge, height 1
    /// at the top.
    static QPolygonF points(std::span<const double> heights, const QSizeF& size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void loadOnce();
    void adoptSettings();

    Symbol symbol_;
    AppModel& model_;
    ChartPeriod period_;
    PriceColorScheme colorScheme_;
    bool hasLoaded_ = false; ///< since it came into sight, for this period
    platform::TaskHandle loading_;
};

} // namespace quorvel
