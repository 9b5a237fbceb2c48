// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemColors.h"
#include "Quorvel/Panel/FittedText.h"
#include "Quorvel/Panel/RowDrag.h"
#include "Tests/Quorvel/Panel/PanelFixture.h"
#include "Tests/Support/FullDisk.h"

#include <QApplication>
#include <QHelpEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolTip>

#include <array>
#include <cmath>
#include <map>

using namespace quorvel;
using platform::Appearance;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string hint = "Right-click a coin to reorder";

class PanelContent : public test::PanelFixture {
protected:
    ~PanelContent() override { QApplication::setPalette(desktopPalette_); }

    void adopt(Appearance appearance) {
        QApplication::setPalette(platform::systemPalette(appearance, desktopPalette_));
        test::drainEvents();
    }

    void setScheme(PriceColorScheme scheme) {
        DisplaySettings display = settings_.display();
        display.colorScheme = scheme;
        settings_.setDisplay(display);
    }

    /// How much more red than green there is where a row's price and change stand.
    int redness(const char* base) {
        const QImage image = prices(base);
        int sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                sum += qRed(pixel) - qGreen(pixel);
            }
        }
        return sum;
    }

private:
    QImage prices(const char* base) {
        QImage image = picture(row(base));
        return image.copy(image.width() - 133, 0, 104, image.height());
    }

    QPalette desktopPalette_ = QApplication::palette();
};

TEST_F(PanelContent, WarnsOnlyWhereAnAlertCannotBeDelivered) {
    const std::string warning = "Notifications are off — alerts can't be delivered";
    show({"BTC"});
    delivering_->grants = false;
    addAlert("BTC", false);
    EXPECT_THAT(messages(), IsEmpty()) << "nobody has asked yet";
    test::runTask(model_->notifications().requestAuthorizationIfNeeded());
    EXPECT_THAT(messages(), ElementsAre(warning));
    model_->alerts().removeAll({"BTC", "USDT"});
    EXPECT_THAT(messages(), IsEmpty()) << "there is no alert";
}

TEST_F(PanelContent, SaysWhatIsMissingAndWhatWentWrong) {
    show({});
    EXPECT_THAT(messages(), ElementsAre("No coins yet — search to add one"));
    model_->addSymbol({"BTC", "USDT"});
    EXPECT_THAT(messages(), IsEmpty());
    startTask_ = platform::startTask(model_->loadAvailableSymbols());
    test::drainEvents();
    provider_->pairs.setException(std::make_exception_ptr(std::runtime_error("offline")));
    provider_->pairs.finish();
    test::drainEvents();
    {
        const test::FullDisk full(0);
        model_->addSymbol({"ETH", "USDT"});
    }
    EXPECT_THAT(messages(), ElementsAre(testing::StartsWith("Couldn't save watchlist: "),
                                        "Couldn't load coin list — search is unavailable", hint));
    model_->togglePinned({"BTC", "USDT"});
    EXPECT_EQ(messages().size(), 2u) << "a later success clears the message";
}

TEST_F(PanelContent, ReadsEachRowAsPairPriceAndChange) {
    show({"BTC", "ETH"});
    apply("BTC", "63686.84", "-3.86");
    EXPECT_EQ(row("BTC").spokenName(), QStringLiteral("BTCUSDT, 63,686.84, -3.86%"));
    EXPECT_EQ(row("ETH").spokenName(), QStringLiteral("ETHUSDT, no price yet"));
    model_->quotes().markStale(true);
    EXPECT_EQ(row("BTC").spokenName(), QStringLiteral("BTCUSDT, 63,686.84, -3.86%, out of date"));
    model_->togglePinned({"ETH", "USDT"});
    addAlert("ETH", false);
    EXPECT_EQ(row("ETH").spokenDescription(), QStringLiteral("Pinned to menu bar"));
    addAlert("ETH");
    EXPECT_EQ(row("ETH").spokenDescription(), QStringLiteral("Pinned to menu bar, Alert set"));
}

struct Change {
    const char* change;
    PriceColorScheme scheme;
    int sign; ///< above zero where red prevails, below where green does
};

class EachChange : public PanelContent,
                   public testing::WithParamInterface<std::tuple<Change, Appearance>> {};

TEST_P(EachChange, IsColouredByDirectionAndScheme) {
    const auto& [change, appearance] = GetParam();
    adopt(appearance);
    show({"BTC"});
    setScheme(change.scheme);
    apply("BTC", "5", change.change);
    const int neutral = 60 * 2; // rounding of antialiased grey
    const int found = redness("BTC");
    EXPECT_EQ(std::abs(found) < neutral ? 0 : found > 0 ? 1 : -1, change.sign) << found;
}

using enum PriceColorScheme;

INSTANTIATE_TEST_SUITE_P(Changes, EachChange,
                         testing::Combine(testing::Values(Change{"0.01", redUpGreenDown, 1},
                                                          Change{"-0.01", redUpGreenDown, -1},
                                                          Change{"0.01", greenUpRedDown, -1},
                                                          Change{"-0.01", greenUpRedDown, 1},
                                                          Change{"0", redUpGreenDown, 0}),
                                          testing::Values(Appearance::light, Appearance::dark)));

/// Counts what is painted of the rows.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(WatchlistRows& rows) {
        for (std::size_t i = 0; i < rows.count(); ++i)
            rows.row(i).installEventFilter(this);
    }

    std::map<std::string, int> take() {
        test::drainEvents();
        return std::exchange(counts_, {});
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++counts_[static_cast<WatchlistRow*>(object)->symbol().base];
        return false;
    }

private:
    std::map<std::string, int> counts_;
};

TEST_F(PanelContent, RepaintsOnlyTheRowThatChangedAndNothingWhileClosed) {
    show({"BTC", "ETH", "SOL"});
    PaintCounter painted(rows());
    painted.take();
    apply("ETH", "5", "1");
    EXPECT_THAT(painted.take(), ElementsAre(testing::Pair("ETH", 1)));
    apply("ETH", "5.0", "1");
    EXPECT_THAT(painted.take(), IsEmpty()) << "the same price, later";
    popover_.hide();
    apply("ETH", "6", "1");
    model_->quotes().markStale(true);
    EXPECT_THAT(painted.take(), IsEmpty());
    reopen();
    EXPECT_EQ(painted.take().size(), 3u);
    EXPECT_EQ(row("ETH").spokenName(), QStringLiteral("ETHUSDT, 6.0000, +1.00%, out of date"));
}

TEST_F(PanelContent, TellsInATooltipOnlyWhatWasTooLongForItsColumn) {
    show({"BTC", "ETH"});
    apply("BTC", "65000", "1");
    apply("ETH", "12345678901234567890", "1");
    const auto tooltipOf = [this](const char* base) {
        QHelpEvent help(QEvent::ToolTip, QPoint(20, 20), QPoint(20, 20));
        QApplication::sendEvent(&row(base), &help);
        return QToolTip::text();
    };
    EXPECT_EQ(tooltipOf("BTC"), QString());
    EXPECT_EQ(tooltipOf("ETH"), QStringLiteral("12,345,678,901,234,567,890.00"));
    QToolTip::hideText();
}

TEST_F(PanelContent, ScrollsWhenTheScreenIsTooSmallAndKeepsTheFocusedRowInSight) {
    std::vector<std::string> names;
    for (int i = 0; i < 60; ++i)
        names.push_back("C" + std::to_string(i));
    show({"BTC"});
    for (const std::string& name : names)
        model_->addSymbol({name, "USDT"});
    test::drainEvents();
    EXPECT_TRUE(popover_.screen()->availableGeometry().contains(
        popover_.geometry().marginsRemoved(platform::PopoverFrame::margins(true))));
    const QWidget* const viewport = panel_->findChild<QScrollArea*>()->viewport();
    const auto isInSight = [&](const char* base) {
        return viewport->rect().contains(
            QRect(row(base).mapTo(viewport, QPoint(0, 0)), row(base).size()));
    };
    EXPECT_TRUE(isInSight("C59")) << "what was added is shown";
    rows().focusRow(0);
    EXPECT_TRUE(isInSight("BTC"));
    for (int i = 0; i < 40; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(focus(), "row C39");
    EXPECT_TRUE(isInSight("C39"));
    press(Qt::Key_End);
    EXPECT_EQ(focus(), "row C59");
    press(Qt::Key_PageUp);
    EXPECT_TRUE(isInSight(focus().substr(4).c_str()));
    EXPECT_NE(focus(), "row C58");
    press(Qt::Key_Home);
    EXPECT_EQ(focus(), "row BTC");
}

TEST_F(PanelContent, ScrollsOnWhileADraggedRowRestsAtTheEdge) {
    show({"BTC"});
    for (int i = 0; i < 60; ++i)
        model_->addSymbol({"C" + std::to_string(i), "USDT"});
    rows().focusRow(0);
    test::drainEvents();
    QScrollBar& bar = *panel_->findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_EQ(bar.value(), 0);
    const QPoint start = row("BTC").mapTo(&popover_, row("BTC").rect().center());
    const QPoint edge = bar.mapTo(&popover_, bar.rect().bottomLeft()) - QPoint(20, 0);
    QTest::mousePress(popover_.windowHandle(), Qt::LeftButton, {}, start);
    QTest::mouseMove(popover_.windowHandle(), edge);
    const int reached = bar.value();
    clock_.advance(std::chrono::milliseconds(160));
    test::drainEvents();
    EXPECT_GT(bar.value(), reached);
    QTest::mouseRelease(popover_.windowHandle(), Qt::LeftButton, {}, edge);
    EXPECT_NE(bases().front(), "BTC");
}

TEST(FittedTextOfARow, ShrinksToFourFifthsAndNoFurther) {
    struct Case {
        double advance;
        double scale;
    };
    for (const auto& [advance, scale] :
         {Case{50, 1}, Case{104, 1}, Case{115.5, 104 / 115.5}, Case{130, 0.8}, Case{300, 0.8}})
        EXPECT_DOUBLE_EQ(FittedText::scale(advance, 104), scale) << advance;
}

TEST(DragOfARow, MakesRoomWhereTheRowWouldGo) {
    struct Case {
        int pointer;
        std::size_t target;
        std::array<int, 4> tops; ///< in pitches, the dragged row's own in its place
    };
    for (const auto& [pointer, target, tops] : {
             Case{55, 1, {0, 1, 2, 3}},
             Case{76, 2, {0, 2, 1, 3}},
             Case{500, 3, {0, 3, 1, 2}},
             Case{-70, 0, {1, 0, 2, 3}},
         }) {
        const RowDrag drag{.from = 1, .count = 4, .pitch = 40, .grip = 15, .pointer = pointer};
        EXPECT_EQ(drag.target(), target) << pointer;
        for (const std::size_t other : {0u, 2u, 3u})
            EXPECT_EQ(drag.topOf(other), tops[other] * 40) << pointer << ", row " << other;
        EXPECT_GE(drag.top(), 0);
        EXPECT_LE(drag.top(), 120);
    }
}

} // namespace
