// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/X11.h"
#include "Tests/Quorvel/Application/ComposedApplication.h"
#include "Tests/Support/WaitUntil.h"

#include <QCursor>
#include <QScreen>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <xcb/xcb.h>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using namespace platform;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

namespace {

/// Another program's, so none of the toolkit's, and the one that the user works in.
class OtherWindow {
public:
    OtherWindow() : id_(xcb_generate_id(x11::connection())) {
        xcb_create_window(x11::connection(), XCB_COPY_FROM_PARENT, id_, x11::rootWindow(), 0, 0,
                          1280, 800, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0,
                          nullptr);
        x11::setProperty(x11::rootWindow(), "_NET_ACTIVE_WINDOW", "WINDOW", {id_});
    }

    void setStates(const std::vector<quint32>& states) const {
        x11::setProperty(id_, "_NET_WM_STATE", "ATOM", states);
        xcb_flush(x11::connection());
    }

private:
    quint32 id_;
};

class Strip : public testing::Test {
protected:
    void launch(const QByteArray& preferences = "") {
        app.havePreferences("statusItem.presentation=strip\n" + preferences);
        app.haveWatchlist({"BTC", "ETH"});
        app.launch({"BTC", "ETH"});
        EXPECT_TRUE(test::waitUntil([this] { return app.isStripShown(); }));
        app.quote("BTC", "70000");
        app.pass(1s);
    }

    QWidget& strip() { return app.strip().window(); }
    QRect screen() { return strip().screen()->geometry(); }

    /// Drags the strip by its middle, as far as that.
    void drag(QPoint way) {
        const QPoint grip = strip().rect().center();
        app.strip().drag(strip(), grip, grip + way);
    }

    test::ComposedApplication app;
};

TEST_F(Strip, LiesBesideTheButtonsOfWindowsAndOpensThePanelBesideIt) {
    launch();
    EXPECT_EQ(strip().accessibleName(), u"BTC 70,000.00 +1.00% ▲"_s);
    EXPECT_EQ(strip().y(), 4);
    EXPECT_GT(strip().x(), screen().width() / 2) << "beside the title of a window that is there";
    EXPECT_LT(strip().geometry().right(), screen().width() - 150) << "and its buttons";
    const int width = strip().width();
    app.quote("BTC", "7");
    app.pass(1s);
    EXPECT_LT(strip().width(), width) << "as wide as its text";
    app.strip().click(strip());
    ASSERT_TRUE(app.isPanelOpen());
    EXPECT_GT(app.panel().window().x(), screen().center().x());
    app.strip().click(strip());
    EXPECT_FALSE(app.isPanelOpen());
    app.strip().click(strip(), Qt::RightButton);
    app.strip().click(strip(), Qt::MiddleButton);
    EXPECT_FALSE(app.isPanelOpen());
}

TEST_F(Strip, IsADockOnEveryDesktopThatNeverHasTheKeyboard) {
    launch();
    const auto property = [this](const char* name) {
        return x11::property(static_cast<quint32>(strip().winId()), name);
    };
    EXPECT_THAT(property("_NET_WM_WINDOW_TYPE"),
                ElementsAre(x11::atom("_NET_WM_WINDOW_TYPE_DOCK")));
    EXPECT_THAT(property("_NET_WM_DESKTOP"), ElementsAre(0xffff'ffff));
    app.strip().click(strip());
    for (const QWidget* const window : {&strip(), &app.panel().window()})
        EXPECT_THAT(x11::property(static_cast<quint32>(window->winId()), "_NET_WM_STATE"),
                    testing::IsSupersetOf({x11::atom("_NET_WM_STATE_SKIP_TASKBAR"),
                                           x11::atom("_NET_WM_STATE_SKIP_PAGER")}));
    EXPECT_THAT(property("WM_PROTOCOLS"), Not(Contains(x11::atom("WM_TAKE_FOCUS"))));
}

TEST_F(Strip, HasTheItemsMenu) {
    launch();
    app.strip().chooseFromMenu(strip(), u"Settings…"_s);
    EXPECT_TRUE(app.isSettingsOpen());
    app.strip().chooseFromMenu(strip(), u"Quit"_s);
    app.pass(0s);
    EXPECT_TRUE(app.hasEnded());
}

TEST_F(Strip, StaysWhereItIsDraggedTo) {
    launch();
    drag({-1, 1});
    EXPECT_TRUE(app.isPanelOpen()) << "a click by an unsteady hand";
    app.strip().click(strip());
    drag({-strip().x(), 300});
    EXPECT_FALSE(app.isPanelOpen());
    EXPECT_THAT(app.preference("statusItem.stripPosition").toStdString(), StartsWith("left,0."));
    EXPECT_EQ(app.preference("statusItem.stripScreen"), strip().screen()->name());
    EXPECT_EQ(strip().x(), 4);
    app.strip().click(strip());
    EXPECT_LT(app.panel().window().x(), screen().center().x());
    EXPECT_LT(app.panel().window().y(), strip().y());
    app.strip().click(strip());
    const QPoint place = strip().pos();
    EXPECT_GT(place.y(), 200);
    app.pass(5s);
    EXPECT_EQ(strip().pos(), place);
    drag({0, 800});
    EXPECT_EQ(strip().geometry().bottomLeft(), screen().bottomLeft() + QPoint(4, -4));
}

TEST_F(Strip, ComesBackToItsPlace) {
    launch("statusItem.stripPosition=\"right,0.5\"\nstatusItem.stripScreen=gone");
    EXPECT_EQ(strip().geometry().right(), screen().right() - 4);
    EXPECT_NEAR(strip().geometry().center().y(), screen().center().y(), 1);
}

TEST_F(Strip, IsDimOverAMaximizedWindowUnlessPointedAt) {
    launch();
    const OtherWindow other;
    other.setStates({x11::atom("_NET_WM_STATE_MAXIMIZED_VERT")});
    test::drainEvents();
    EXPECT_EQ(strip().windowOpacity(), 1);
    other.setStates(
        {x11::atom("_NET_WM_STATE_MAXIMIZED_VERT"), x11::atom("_NET_WM_STATE_MAXIMIZED_HORZ")});
    EXPECT_TRUE(test::waitUntil([this] { return strip().windowOpacity() < 0.7; }));
    QCursor::setPos(strip().geometry().center());
    EXPECT_TRUE(test::waitUntil([this] { return strip().windowOpacity() == 1; }));
    QCursor::setPos(screen().center());
    EXPECT_TRUE(test::waitUntil([this] { return strip().windowOpacity() < 0.7; }));
    other.setStates({});
    EXPECT_TRUE(test::waitUntil([this] { return strip().windowOpacity() == 1; }));
}

TEST_F(Strip, MakesWayForAWindowThatFillsTheScreen) {
    launch();
    const OtherWindow other;
    const auto setFull = [&other](bool isFull) {
        other.setStates(isFull ? std::vector{x11::atom("_NET_WM_STATE_FULLSCREEN")}
                               : std::vector<quint32>());
    };
    setFull(true);
    EXPECT_TRUE(test::waitUntil([this] { return !app.isStripShown(); }));
    app.quote("BTC", "70001");
    app.pass(1s);
    EXPECT_FALSE(app.isStripShown());
    setFull(false);
    EXPECT_TRUE(test::waitUntil([this] { return app.isStripShown(); }));
}

TEST_F(Strip, IsThereWhileThePanelLosesTheItem) {
    app.watcher().setLosesItems(true);
    app.launch();
    for (const bool losesItems : {true, false}) {
        app.watcher().setLosesItems(losesItems);
        EXPECT_TRUE(test::waitUntil([&] {
            QTest::qWait(50); // a question and its answer pass over the bus
            app.pass(1s);
            return app.isStripShown() == losesItems;
        })) << losesItems;
    }
}

TEST_F(Strip, FollowsTheTheme) {
    launch("interfaceAppearance=dark");
    const auto ground = [this] {
        const auto user = app.strip();
        return user.picture(strip()).pixelColor(strip().width() / 2, 3).lightness();
    };
    EXPECT_LT(ground(), 100);
    const auto brightest = [this] {
        const QImage image = app.strip().picture(strip());
        int brightest = 0;
        for (int x = 0; x < image.width(); ++x)
            brightest = std::max(brightest, qGray(image.pixel(x, image.height() / 2)));
        return brightest;
    };
    EXPECT_GT(brightest(), 180) << "the text";
    app.openSettings().choose(u"Theme"_s, u"Light"_s);
    EXPECT_GT(ground(), 150);
}

} // namespace
