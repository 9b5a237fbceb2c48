// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemColors.h"
#include "Quorvel/Model/PriceColors.h"
#include "Tests/Quorvel/Panel/PanelFixture.h"

#include <QApplication>

using namespace quorvel;
using testing::Contains;
using testing::Not;

namespace {

class Sparkline : public test::PanelFixture {
protected:
    static constexpr int lineWidth = 50; ///< of the area that the line is drawn in
    static constexpr int lineHeight = 20;

    /// A view of BTC on a plain ground, without a panel around it.
    QImage draw() {
        SparklineView view({"BTC", "USDT"}, *model_);
        view.setAutoFillBackground(true);
        view.resize(lineWidth + 2 * SparklineView::margin, lineHeight + 2 * SparklineView::margin);
        return picture(view);
    }

    /// The colour that the line has at a place in its area, laid over the ground in part.
    static QColor at(const QImage& image, int x, int y) {
        return image.pixelColor(x + SparklineView::margin, y + SparklineView::margin);
    }

    static int difference(const QColor& left, const QColor& right) {
        return std::abs(left.red() - right.red()) + std::abs(left.green() - right.green()) +
               std::abs(left.blue() - right.blue());
    }
};

TEST_F(Sparkline, RunsEvenlyFromEdgeToEdgeWithTheHighestAtTheTop) {
    struct Case {
        std::vector<double> heights;
        QPolygonF points;
    };
    const QSizeF size(60, 20);
    for (const auto& [heights, points] :
         {Case{{}, {}}, Case{{0.5}, {{0, 10}}}, Case{{0, 1}, {{0, 20}, {60, 0}}},
          Case{{0, 1, 0.25, 0.5}, {{0, 20}, {20, 0}, {40, 15}, {60, 10}}}})
        EXPECT_EQ(SparklineView::points(heights, size), points);
}

TEST_F(Sparkline, DrawsAKnownSeriesInTheColourOfItsTrend) {
    make();
    const QColor ground = QApplication::palette().color(QPalette::Window);
    storeCandles("BTC", {1, 3, 2});
    const QImage image = draw();
    const QColor red = *directionColor(PriceDirection::up, PriceColorScheme::redUpGreenDown,
                                       platform::appearanceOf(QApplication::palette()));
    for (const QPoint onLine : {QPoint(0, 19), QPoint(24, 0), QPoint(12, 10), QPoint(49, 9)})
        EXPECT_LT(difference(at(image, onLine.x(), onLine.y()), red),
                  difference(at(image, onLine.x(), onLine.y()), ground))
            << onLine.x();
    for (const QPoint beside : {QPoint(0, 0), QPoint(24, 19), QPoint(49, 19), QPoint(49, 0)})
        EXPECT_EQ(at(image, beside.x(), beside.y()), ground) << beside.x();
}

TEST_F(Sparkline, DrawsAFlatSeriesAlongTheMiddleInTheColourOfText) {
    make();
    storeCandles("BTC", {10, 10, 10});
    const QImage image = draw();
    const QColor ground = QApplication::palette().color(QPalette::Window);
    for (int x = 0; x < lineWidth; ++x) {
        const QColor color = at(image, x, lineHeight / 2);
        EXPECT_GT(difference(color, ground), 150) << x;
        EXPECT_LT(std::abs(color.red() - color.green()), 10) << x;
        EXPECT_EQ(at(image, x, lineHeight / 2 - 3), ground) << x;
    }
}

TEST_F(Sparkline, StaysEmptyWithoutALine) {
    make();
    const QImage empty = draw();
    storeCandles("BTC", {10});
    EXPECT_EQ(draw(), empty);
    storeCandles("BTC", {10, 20});
    EXPECT_NE(draw(), empty);
    clock_.setNow(clock_.now() + platform::TimeInterval(301));
    EXPECT_EQ(draw(), empty) << "a series that is too old";
}

TEST_F(Sparkline, LoadsWhenItAppearsAndWhenThePeriodChanges) {
    show({"BTC"});
    const auto isBtc = [](const std::string& call) { return call == "candles BTC"; };
    const auto loads = [&] { return std::ranges::count_if(provider_->calls, isBtc); };
    EXPECT_EQ(loads(), 1);
    provider_->candleRequests["BTC"].setException(
        std::make_exception_ptr(std::runtime_error("offline")));
    provider_->candleRequests["BTC"].finish();
    test::drainEvents();
    apply("BTC", "5", "1");
    rows().row(0).update();
    test::drainEvents();
    EXPECT_EQ(loads(), 1) << "not at every repaint";
    reopen();
    EXPECT_EQ(loads(), 2);
    DisplaySettings display = settings_.display();
    display.chartPeriod = ChartPeriod::week;
    settings_.setDisplay(display);
    test::drainEvents();
    EXPECT_EQ(loads(), 3);
    const QImage empty = picture(row("BTC"));
    storeCandles("BTC", {1, 2});
    EXPECT_NE(picture(row("BTC")), empty);
}

} // namespace
