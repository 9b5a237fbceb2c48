// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Popover/Popover.h"

#include "Platform/Popover/PopoverPlacement.h"
#include "Tests/Support/ManualClock.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

using namespace platform;
using namespace std::chrono_literals;

namespace {

struct Placed {
    const char* name;
    QRect available; ///< of a screen of 1000 x 800 whose corner is at (1000, 0)
    QPoint anchor;
    QSize size;
    QPoint corner;
};

class EachPlace : public testing::TestWithParam<Placed> {};

TEST_P(EachPlace, HangsOnThePanelAndStaysOnTheScreen) {
    const Placed& c = GetParam();
    EXPECT_EQ(PopoverPlacement::position(c.anchor, c.size, {{1000, 0, 1000, 800}, c.available}),
              c.corner);
}

constexpr QSize card(320, 400);

INSTANTIATE_TEST_SUITE_P(
    Screens, EachPlace,
    testing::Values(
        Placed{"belowATopPanel", {1000, 28, 1000, 772}, {1500, 14}, card, {1340, 32}},
        Placed{"farRight", {1000, 28, 1000, 772}, {1990, 14}, card, {1676, 32}},
        Placed{"farLeft", {1000, 28, 1000, 772}, {1003, 14}, card, {1004, 32}},
        Placed{"fromAMenu", {1000, 28, 1000, 772}, {1500, 50}, card, {1340, 32}},
        Placed{"aboveABottomPanel", {1000, 0, 1000, 760}, {1500, 790}, card, {1340, 356}},
        Placed{"besideALeftPanel", {1040, 0, 960, 800}, {1010, 300}, card, {1044, 100}},
        Placed{"besideARightPanel", {1000, 0, 960, 800}, {1990, 700}, card, {1636, 396}},
        Placed{"withoutAPanel", {1000, 0, 1000, 800}, {1500, 20}, card, {1340, 24}},
        Placed{"tooHigh", {1000, 28, 1000, 772}, {1500, 14}, {320, 900}, {1340, 32}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(PopoverPlacementOfItems, LeavesTheItemInSight) {
    struct Case {
        QRect item;
        QPoint corner;
    };
    // A strip lies within the available area, a docked item on the panel.
    for (const auto& [item, corner] : {
             Case{{700, 32, 280, 26}, {676, 62}},
             Case{{500, 3, 200, 22}, {440, 32}},
             Case{{4, 770, 280, 26}, {4, 366}},
             Case{{4, 400, 280, 26}, {288, 213}},
             Case{{716, 400, 280, 26}, {392, 213}},
         }) {
        EXPECT_EQ(PopoverPlacement::position(item, card, {{0, 0, 1000, 800}, {0, 28, 1000, 772}}),
                  corner)
            << item.x() << ", " << item.y();
    }
}

TEST(PopoverPlacementOfPoints, TellsClicksOnPanelsFromOthers) {
    const ScreenArea screen{{0, 0, 1000, 800}, {0, 28, 1000, 772}};
    EXPECT_TRUE(PopoverPlacement::isAtEdge({500, 14}, screen));
    EXPECT_TRUE(PopoverPlacement::isAtEdge({500, 790}, screen));
    EXPECT_FALSE(PopoverPlacement::isAtEdge({500, 400}, screen));
    EXPECT_EQ(PopoverPlacement::panelCorner(screen), QPoint(999, 0));
    EXPECT_EQ(PopoverPlacement::panelCorner({{0, 0, 1000, 800}, {0, 0, 1000, 770}}),
              QPoint(999, 799));
}

class OpenPopover : public testing::Test {
protected:
    OpenPopover() {
        content_->setMinimumSize(200, 100);
        content_->setFocusPolicy(Qt::StrongFocus);
        popover_.setContent(content_);
        popover_.showBeside({300, 0});
        EXPECT_TRUE(QTest::qWaitForWindowActive(&popover_));
    }

    test::ManualClock clock_;
    Popover popover_{clock_};
    QLabel* content_ = new QLabel(QStringLiteral("content"));
};

TEST_F(OpenPopover, ClosesByEscape) {
    content_->setFocus();
    QTest::keyClick(popover_.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(popover_.isVisible());
    EXPECT_FALSE(popover_.wasJustDismissed());
}

TEST_F(OpenPopover, ClosesWhenTheUserTurnsAwayAndRemembersForAMoment) {
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(popover_.isVisible());
    clock_.advance(299ms);
    EXPECT_TRUE(popover_.wasJustDismissed());
    clock_.advance(1ms);
    EXPECT_FALSE(popover_.wasJustDismissed());
}

TEST_F(OpenPopover, ClosesByAClickIntoItsShadow) {
    QTest::mouseClick(popover_.windowHandle(), Qt::LeftButton, {}, {40, 50});
    EXPECT_TRUE(popover_.isVisible());
    QTest::mouseClick(popover_.windowHandle(), Qt::LeftButton, {}, {3, 50});
    EXPECT_FALSE(popover_.isVisible());
}

TEST_F(OpenPopover, GrowsWithItsContentAndNotBeyondTheScreen) {
    const QRect before = popover_.geometry();
    content_->setMinimumSize(200, 300);
    test::drainEvents();
    EXPECT_EQ(popover_.height(), before.height() + 200);
    EXPECT_EQ(popover_.geometry().top(), before.top());
    content_->setMinimumSize(200, 0);
    content_->setText(QStringLiteral("\n").repeated(200));
    test::drainEvents();
    const QRect shown = popover_.geometry().marginsRemoved(PopoverFrame::margins(true));
    EXPECT_TRUE(popover_.screen()->availableGeometry().contains(shown));
}

} // namespace
