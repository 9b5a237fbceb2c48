// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/SparklineView.h"

#include "Platform/Appearance/SystemColors.h"
#include "Quorvel/Model/PriceColors.h"
#include "QuorvelKit/StatusBar/SparklineGeometry.h"

#include <QPainter>

#include <algorithm>

namespace quorvel {

SparklineView::SparklineView(Symbol symbol, AppModel& model, QWidget* parent)
    : QWidget(parent),
      symbol_(std::move(symbol)),
      model_(model),
      period_(model.settings().display().chartPeriod),
      colorScheme_(model.settings().display().colorScheme) {
    setContentsMargins(margin, margin, margin, margin);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&model.candles(), &CandleCache::entriesChanged, this, [this](const Symbol& symbol) {
        if (symbol == symbol_)
            update();
    });
    connect(&model.settings(), &SettingsStore::displayChanged, this, &SparklineView::adoptSettings);
}

QPolygonF SparklineView::points(std::span<const double> heights, const QSizeF& size) {
    QPolygonF points;
    const double step = size.width() / static_cast<double>(std::max(heights.size(), 2uz) - 1);
    for (const double height : heights)
        points.append({step * static_cast<double>(points.size()), size.height() * (1 - height)});
    return points;
}

void SparklineView::adoptSettings() {
    const DisplaySettings& display = model_.settings().display();
    if (std::exchange(period_, display.chartPeriod) != display.chartPeriod) {
        loading_ = {};
        hasLoaded_ = false;
        update();
    }
    if (std::exchange(colorScheme_, display.colorScheme) != display.colorScheme)
        update();
}

void SparklineView::loadOnce() {
    if (std::exchange(hasLoaded_, true))
        return;
    loading_ = platform::startTask(model_.loadCandles(symbol_));
}

void SparklineView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    loading_ = {};
    hasLoaded_ = false;
}

void SparklineView::paintEvent(QPaintEvent*) {
    // What is painted has come into sight: of a long list that is only a part.
    loadOnce();
    const auto* const candles = model_.candles().candles(symbol_, period_, model_.now());
    if (!candles || candles->size() < 2)
        return;
    std::vector<Decimal> closes;
    std::ranges::transform(*candles, std::back_inserter(closes), &Candle::close);
    const auto direction = SparklineGeometry::trend(closes);
    const auto color = directionColor(direction, colorScheme_, platform::appearanceOf(palette()));
    QPen pen(color.value_or(platform::SystemColors::of(palette()).label), lineWidth, Qt::SolidLine,
             Qt::FlatCap, Qt::RoundJoin);
    pen.setMiterLimit(10);
    const QRect area = contentsRect();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.setPen(pen);
    painter.drawPolyline(points(SparklineGeometry::normalizedHeights(closes), area.size()));
}

} // namespace quorvel
