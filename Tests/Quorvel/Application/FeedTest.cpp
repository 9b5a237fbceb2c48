// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

// The program while the prices' way is blocked, broken or asleep.

#include "Tests/Quorvel/Application/ApplicationFixture.h"
#include "Tests/Support/WaitUntil.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Application = test::ApplicationFixture;
using Kind = quorvel::ConnectionEvent::Kind;

namespace {

TEST_F(Application, AsksForAListThatFailedAgainWhenThePanelOpens) {
    app.haveWatchlist({"BTC"});
    app.launch();
    app.exchange().pairs.setException(std::make_exception_ptr(std::runtime_error("no network")));
    app.exchange().pairs.finish();
    app.pass(0s);
    app.exchange().calls.clear();
    app.openPanel();
    app.pass(0s);
    EXPECT_THAT(app.exchange().calls, Contains("pairs"));
}

TEST_F(Application, HoldsSleepUpUntilTheStreamIsDropped) {
    launch();
    app.exchange().heldSubscription.emplace().start();
    app.loginManager().announce(true);
    EXPECT_TRUE(test::waitUntil([&] { return app.exchange().calls.back() == "subscribe"; }));
    EXPECT_EQ(app.loginManager().heldLocks(), 1);
    app.exchange().heldSubscription->finish();
    EXPECT_TRUE(test::waitUntil([&] { return app.loginManager().heldLocks() == 0; }));
    app.exchange().heldSubscription.reset();
    app.loginManager().announce(false);
    EXPECT_TRUE(
        test::waitUntil([&] { return app.exchange().calls.back() == "subscribe BTC ETH"; }));
    app.pass(300ms);
    EXPECT_EQ(app.exchange().calls.back(), "snapshot BTC ETH") << "of what was missed";
}

TEST_F(Application, SaysSinceWhenAndWhyPricesAreNotLive) {
    app.havePreferences("display.showsIcon=false");
    launch();
    auto user = app.openPanel();
    app.report({.kind = Kind::opened});
    const auto live = app.icon();
    for (int minute = 0; minute < 60; ++minute) {
        app.pass(1min);
        app.report({.kind = Kind::opened}); // and no trade
    }
    EXPECT_FALSE(app.isOutageShown()) << "quiet is not dead";
    app.report({.kind = Kind::lost, .reason = u"Connection refused"_s});
    app.pass(4s);
    EXPECT_FALSE(app.isOutageShown()) << "it may be back at once";
    app.pass(2s);
    EXPECT_THAT(user.texts(), Contains(app.toolTipBody().toStdString()));
    EXPECT_THAT(app.toolTipBody().toStdString(), StartsWith("No connection since "));
    EXPECT_THAT(app.toolTipBody().toStdString(),
                EndsWith("\nConnection refused\nIt is tried again every few seconds."));
    EXPECT_NE(app.icon(), live) << "crossed, also where the icon is switched off";
    EXPECT_EQ(app.label(), "ETH 3,500.00 -2.00% ▼") << "as ever";
    app.exchange().calls.clear();
    user.press(u"Try Again"_s);
    app.pass(300ms);
    EXPECT_THAT(app.exchange().calls, ElementsAre("snapshot BTC ETH"));
    app.report({.kind = Kind::refused, .status = 403});
    EXPECT_FALSE(user.find(u"Use the Data-Only Mirror"_s)) << "which is for another refusal";
    app.report({.kind = Kind::refused, .status = 451});
    EXPECT_THAT(user.texts(), Contains(HasSubstr("\nThe exchange does not serve this place.")));
    app.report({.kind = Kind::opened});
    EXPECT_FALSE(app.isOutageShown());
    EXPECT_FALSE(user.find(u"Try Again"_s));
    EXPECT_EQ(app.icon(), live);
    app.pass(16s);
    app.pass(5s);
    EXPECT_TRUE(app.isOutageShown()) << "open, and mute";
}

TEST_F(Application, OffersTheMirrorWhereTheExchangeDoesNotServeAndLeadsBack) {
    launch();
    auto user = app.openPanel();
    app.report({.kind = Kind::lost});
    app.report({.kind = Kind::refused, .status = 451});
    user.press(u"Use the Data-Only Mirror"_s);
    EXPECT_TRUE(app.delegate().isRelaunching());
    EXPECT_EQ(app.preference("exchange.restURL"), u"https://data-api.binance.vision"_s);
    EXPECT_EQ(app.preference("exchange.streamURL"), u"wss://data-stream.binance.vision/stream"_s);

    test::ComposedApplication next;
    next.havePreferences("exchange.restURL=https://data-api.binance.vision\n"
                         "exchange.streamURL=wss://data-stream.binance.vision/stream");
    next.launch();
    next.openSettings().activate(u"Use the Exchange Itself"_s);
    EXPECT_TRUE(next.delegate().isRelaunching());
    EXPECT_EQ(next.preference("exchange.restURL"), QString());
    EXPECT_EQ(next.preference("exchange.streamURL"), QString());
}

TEST_F(Application, ShowsNoOldPriceOfAPairThatIsNotTraded) {
    app.haveWatchlist({"BTC", "HALTED"});
    app.launch({"BTC"});
    app.quote("HALTED", "7");
    auto user = app.openPanel();
    EXPECT_TRUE(user.find(u"HALTEDUSDT, not traded"_s));
    EXPECT_FALSE(user.find(u"HALTEDUSDT, 7"_s));
    EXPECT_TRUE(user.find(u"BTCUSDT, no price yet"_s));
    app.quote("BTC", "70000");
    EXPECT_THAT(user.toolTip(app.row("BTC")).toStdString(), StartsWith("Price of "));
    const QImage traded = user.picture(app.row("BTC"));
    app.report({.kind = Kind::untraded, .pairs = {{"BTC", "USDT"}}});
    EXPECT_NE(user.picture(app.row("BTC")), traded);
    EXPECT_EQ(user.toolTip(app.row("BTC")), u"Not traded on the exchange"_s);
}

} // namespace
