// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/StripWindow.h"

#include <QApplication>
#include <QMouseEvent>

#include <gtest/gtest.h>

using namespace platform;

namespace {

class StripWindows : public testing::Test {
protected:
    StripWindows() {
        QObject::connect(&events_, &StatusItemEvents::clicked, [this] { ++clicks_; });
        QObject::connect(&events_, &StatusItemEvents::stripMoved, [this] { ++moves_; });
        content_.title.runs.push_back({content_.toolTip, std::nullopt, 0});
        strip_.setContent(content_);
    }

    /// Presses a button on the strip, moves by that much, and lets go.
    void drag(QPoint way, Qt::MouseButton button) {
        const QPoint start = strip_.mapToGlobal(strip_.rect().center());
        send(QEvent::MouseButtonPress, start, button);
        send(QEvent::MouseMove, start + way, button);
        send(QEvent::MouseButtonRelease, start + way, button);
    }

    void send(QEvent::Type type, QPoint point, Qt::MouseButton button) {
        const bool isMove = type == QEvent::MouseMove;
        const bool isRelease = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, strip_.mapFromGlobal(point), point, isMove ? Qt::NoButton : button,
                          isRelease ? Qt::NoButton : Qt::MouseButtons(button), Qt::NoModifier);
        QApplication::sendEvent(&strip_, &event);
    }

    StatusItemEvents events_;
    StatusItemContent content_{.toolTip = QStringLiteral("BTC 65,432.10")};
    StripWindow strip_{{}, events_, {StripPosition::Edge::bottom, 1}};
    int clicks_ = 0;
    int moves_ = 0;
};

TEST_F(StripWindows, CountNoClickThatEndsOutsideOrIsOfAnotherButton) {
    const QPoint place = strip_.pos();
    const QPoint inside = strip_.mapToGlobal(strip_.rect().center());
    send(QEvent::MouseButtonRelease, inside - QPoint(0, 200), Qt::LeftButton);
    EXPECT_EQ(clicks_, 0);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        drag({}, button);
        drag({-100, 0}, button);
    }
    send(QEvent::MouseMove, inside - QPoint(100, 0), Qt::NoButton);
    EXPECT_EQ(clicks_, 0);
    EXPECT_EQ(moves_, 0);
    EXPECT_EQ(strip_.pos(), place);
    // Another button let go does not end a drag.
    send(QEvent::MouseButtonPress, inside, Qt::LeftButton);
    send(QEvent::MouseMove, inside - QPoint(100, 0), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, inside - QPoint(100, 0), Qt::RightButton);
    EXPECT_EQ(moves_, 0);
}

TEST_F(StripWindows, TellTheirTextToWhoDoesNotSeeIt) {
    EXPECT_EQ(strip_.accessibleName(), QStringLiteral("BTC 65,432.10"));
    EXPECT_EQ(strip_.toolTip(), QString());
    content_.notice = QStringLiteral("No connection");
    strip_.setContent(content_);
    EXPECT_EQ(strip_.accessibleDescription(), QStringLiteral("No connection"));
    EXPECT_EQ(strip_.toolTip(), QStringLiteral("No connection"));
    strip_.setContent({.toolTip = QStringLiteral("Quorvel")});
    EXPECT_EQ(strip_.accessibleName(), QStringLiteral("Quorvel"));
    EXPECT_EQ(strip_.toolTip(), QStringLiteral("Quorvel"));
}

} // namespace
