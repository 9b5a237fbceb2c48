// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/StripWindow.h"

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QTest>

#include <gmock/gmock.h>

using namespace platform;
using Edge = StripPosition::Edge;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int margin = 4; // between the strip and the edges

class StripWindows : public testing::Test {
protected:
    StripWindows() {
        QObject::connect(&events_, &StatusItemEvents::clicked, [this] { ++clicks_; });
        QObject::connect(&events_, &StatusItemEvents::menuTriggered,
                         [this](int id) { chosen_.push_back(id); });
        QObject::connect(&events_, &StatusItemEvents::stripMoved,
                         [this](StripPosition position) { moves_.push_back(position); });
    }

    void open(StripPosition position = {}) {
        strip_ = std::make_unique<StripWindow>(identity_, events_, position);
        setText("BTC 65,432.10 +1.23%");
    }

    void setText(const char* text) {
        StatusItemContent content{.image = {}, .title = {}, .toolTip = QString::fromLatin1(text)};
        content.title.runs.push_back({content.toolTip, std::nullopt, 0});
        strip_->setContent(content);
    }

    /// Presses a button on the strip, moves by that much, and lets go. Where it was pressed stays
    /// below the pointer when the strip follows.
    void drag(QPoint way, Qt::MouseButton button = Qt::LeftButton) {
        const QPoint start = strip_->mapToGlobal(strip_->rect().center());
        send(QEvent::MouseButtonPress, start, button);
        send(QEvent::MouseMove, start + way, button);
        send(QEvent::MouseButtonRelease, start + way, button);
    }

    void send(QEvent::Type type, QPoint point, Qt::MouseButton button) {
        const bool isMove = type == QEvent::MouseMove;
        const bool isRelease = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, strip_->mapFromGlobal(point), point, isMove ? Qt::NoButton : button,
                          isRelease ? Qt::NoButton : Qt::MouseButtons(button), Qt::NoModifier);
        QApplication::sendEvent(strip_.get(), &event);
    }

    QRect room() {
        return strip_->screen()->availableGeometry().adjusted(margin, margin, -margin, -margin);
    }

    StatusItemIdentity identity_{.id = QStringLiteral("quorvel"),
                                 .title = QStringLiteral("Quorvel"),
                                 .iconDirectory = {},
                                 .menu = {{7, QStringLiteral("Rise & Fall")},
                                          MenuEntry::separator(),
                                          {8, QStringLiteral("Quit")}}};
    StatusItemEvents events_;
    std::unique_ptr<StripWindow> strip_;
    int clicks_ = 0;
    std::vector<int> chosen_;
    std::vector<StripPosition> moves_;
};

TEST_F(StripWindows, LieAtTheirEdgeAndStayThereWhenTheTextGrows) {
    open({Edge::top, 1});
    EXPECT_EQ(strip_->geometry().topRight(), room().topRight());
    const int width = strip_->width();
    setText("BTC 65,432.10 +1.23%  ETH 2,345.67 +8.90%");
    EXPECT_GT(strip_->width(), width);
    EXPECT_EQ(strip_->geometry().topRight(), room().topRight());
    EXPECT_EQ(strip_->frame(), strip_->geometry());
    strip_->hide();
    EXPECT_EQ(strip_->frame(), std::nullopt);
}

TEST_F(StripWindows, AskTheWindowManagerForAPlaceAboveOthersWithoutTheKeyboard) {
    open();
    constexpr auto asked = Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
    EXPECT_EQ(strip_->windowFlags() & (asked | Qt::BypassWindowManagerHint), asked);
}

TEST_F(StripWindows, TellAClickFromADrag) {
    open();
    const QPoint place = strip_->pos();
    const int least = QApplication::startDragDistance();
    drag({});
    drag({0, least - 1});
    EXPECT_EQ(clicks_, 2);
    EXPECT_EQ(strip_->pos(), place);
    EXPECT_THAT(moves_, IsEmpty());
    drag({-least, 0});
    EXPECT_EQ(clicks_, 2);
    EXPECT_EQ(strip_->pos(), place - QPoint(least, 0));
    EXPECT_THAT(moves_, testing::SizeIs(1));
    drag({});
    EXPECT_EQ(clicks_, 3) << "the drag is over";
}

TEST_F(StripWindows, CountNoClickThatEndsOutsideOrIsOfAnotherButton) {
    open({Edge::bottom, 1});
    const QPoint place = strip_->pos();
    const QPoint inside = strip_->mapToGlobal(strip_->rect().center());
    send(QEvent::MouseButtonRelease, inside - QPoint(0, 200), Qt::LeftButton);
    EXPECT_EQ(clicks_, 0);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        drag({}, button);
        drag({-100, 0}, button);
    }
    send(QEvent::MouseMove, inside - QPoint(100, 0), Qt::NoButton);
    EXPECT_EQ(clicks_, 0);
    EXPECT_THAT(moves_, IsEmpty());
    EXPECT_EQ(strip_->pos(), place);
    // Another button let go does not end a drag.
    send(QEvent::MouseButtonPress, inside, Qt::LeftButton);
    send(QEvent::MouseMove, inside - QPoint(100, 0), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, inside - QPoint(100, 0), Qt::RightButton);
    EXPECT_THAT(moves_, IsEmpty());
}

TEST_F(StripWindows, TellWhereTheyWereDraggedTo) {
    open({Edge::top, 1});
    drag({-5'000, 5'000});
    drag({300, -50});
    EXPECT_EQ(strip_->geometry().bottom(), room().bottom());
    ASSERT_THAT(moves_, testing::SizeIs(2));
    EXPECT_THAT(moves_[0].edge, testing::AnyOf(Edge::left, Edge::bottom));
    EXPECT_EQ(moves_[1].edge, Edge::bottom);
    EXPECT_NEAR(moves_[1].fraction, 300.0 / (room().width() - strip_->width()), 0.001);
    const QPoint place = strip_->pos();
    setText("BTC 65,432.10 +1.23%");
    EXPECT_EQ(strip_->pos(), place);
}

TEST_F(StripWindows, OpenTheirMenuOnTheRightButton) {
    open();
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, strip_->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(strip_.get(), &event);
    auto* const menu = strip_->findChild<QMenu*>();
    ASSERT_TRUE(menu && menu->isVisible());
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("Rise && Fall"));
    EXPECT_TRUE(menu->actions()[1]->isSeparator());
    menu->actions()[2]->trigger();
    EXPECT_THAT(chosen_, IsEmpty()) << "whoever hears may end the strip";
    QCoreApplication::processEvents();
    EXPECT_THAT(chosen_, ElementsAre(8));
}

TEST_F(StripWindows, TellTheirTextToWhoDoesNotSeeIt) {
    open();
    EXPECT_EQ(strip_->accessibleName(), QStringLiteral("BTC 65,432.10 +1.23%"));
    EXPECT_EQ(strip_->toolTip(), QString());
    strip_->setContent({.image = {}, .title = {}, .toolTip = QStringLiteral("Quorvel")});
    EXPECT_EQ(strip_->accessibleName(), QStringLiteral("Quorvel"));
    EXPECT_EQ(strip_->toolTip(), QStringLiteral("Quorvel"));
}

TEST_F(StripWindows, ShowTheirTextInTheColoursOfTheDesktop) {
    open();
    const auto lightest = [this] {
        const QImage picture = strip_->grab().toImage();
        const QRect middle = picture.rect().adjusted(11, 3, -11, -3);
        int most = 0;
        int least = 255;
        for (int x = middle.left(); x <= middle.right(); ++x) {
            for (int y = middle.top(); y <= middle.bottom(); ++y) {
                most = std::max(most, qGray(picture.pixel(x, y)));
                least = std::min(least, qGray(picture.pixel(x, y)));
            }
        }
        return std::pair(least, most);
    };
    for (const bool isDark : {false, true}) {
        QPalette palette;
        palette.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
        palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
        strip_->setPalette(palette);
        const auto [least, most] = lightest();
        EXPECT_LT(least, 100) << isDark;
        EXPECT_GT(most, 180) << isDark;
        const QImage picture = strip_->grab().toImage();
        EXPECT_EQ(qGray(picture.pixel(picture.width() / 2, 3)) < 128, isDark);
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << "round corners";
    }
}

} // namespace
