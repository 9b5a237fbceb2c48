// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Application/ApplicationFixture.h"
#include "Tests/Support/Bus/FakePlasmaShell.h"
#include "Tests/Support/WaitUntil.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

/// A panel's widget that shows the line.
class Service : public test::ApplicationFixture {
protected:
    QDBusMessage call(const char* interface, const char* member,
                      const QVariantList& arguments = {}) {
        return widget_->call(u"org.quorvel.Quorvel1"_s, u"/org/quorvel/Quorvel1"_s,
                             QString::fromLatin1(interface), QString::fromLatin1(member),
                             arguments);
    }

    void tell(const char* member, const QVariantList& arguments = {}) {
        EXPECT_EQ(call("org.quorvel.Quorvel1", member, arguments).type(),
                  QDBusMessage::ReplyMessage);
        app.pass(0s);
    }

    QVariant property(const char* name) {
        return call("org.freedesktop.DBus.Properties", "Get",
                    {u"org.quorvel.Quorvel1"_s, QString::fromLatin1(name)})
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }

    /// Each segment's text and direction.
    std::vector<std::string> segments() {
        std::vector<std::string> all;
        const auto list = property("Segments").value<QDBusArgument>();
        list.beginArray();
        while (!list.atEnd()) {
            QString text;
            QString direction;
            list.beginStructure();
            list >> text >> direction;
            list.endStructure();
            all.push_back((text + u' ' + direction).toStdString());
        }
        list.endArray();
        return all;
    }

    std::string status(int ordinal) {
        app.pass(0s);
        return app.itemProperty("Status", ordinal).toStdString();
    }

    void leaveBus() {
        const QString name = widgetsBus_->name();
        widget_.reset();
        widgetsBus_.reset();
        QDBusConnection::disconnectFromBus(name);
    }

    std::optional<QDBusConnection> widgetsBus_ = app.bus().connect();
    std::optional<test::BusPeer> widget_{*widgetsBus_};
};

TEST_F(Service, TellsTheLineAndWhyItIsNotLive) {
    app.havePreferences("display.mode=sideBySide");
    launch();
    app.report({ConnectionEvent::Kind::opened});
    EXPECT_THAT(segments(), ElementsAre("BTC 70,000.00 +1.00% up", "ETH 3,500.00 -2.00% down"));
    EXPECT_EQ(property("IsLive"), true);
    EXPECT_EQ(property("NotLiveSince").toLongLong(), 0);

    app.report({.kind = ConnectionEvent::Kind::lost, .reason = u"The wire is cut."_s});
    app.pass(20s);
    EXPECT_EQ(property("IsLive"), false);
    EXPECT_GT(property("NotLiveSince").toLongLong(), 0);
    EXPECT_EQ(property("NotLiveReason"), u"The wire is cut."_s);
    EXPECT_EQ(property("NextTry").toLongLong(), 0);
}

TEST_F(Service, OpensThePanel) {
    launch();
    tell("OpenPanel");
    EXPECT_TRUE(app.isPanelOpen());
    tell("OpenPanel");
    EXPECT_TRUE(app.isPanelOpen());
    tell("TogglePanelAt", {100, 10});
    EXPECT_FALSE(app.isPanelOpen());
}

TEST_F(Service, PutsTheItemAwayWhileSomebodyElseShowsTheLine) {
    launch();
    EXPECT_EQ(status(1), "Active");
    tell("ShowLine");
    EXPECT_EQ(property("LineShownBy").toStringList().size(), 1);
    EXPECT_TRUE(test::waitUntil([&] { return status(2) == "Passive"; }));
    EXPECT_EQ(app.itemProperty("XAyatanaLabel", 2), QString());
    tell("HideLine");
    EXPECT_TRUE(test::waitUntil([&] { return status(3) == "Active"; }));
    tell("ShowLine");
    EXPECT_TRUE(test::waitUntil([&] { return status(4) == "Passive"; }));
    leaveBus();
    EXPECT_TRUE(test::waitUntil([&] { return status(5) == "Active"; })) << "gone with its client";
}

TEST_F(Service, FollowsThePlasmaWidgetAndOffersItOnce) {
    const QString folder = app.path("config");
    QDir().mkpath(folder);
    qputenv("XDG_CONFIG_HOME", folder.toUtf8());
    const QString layout = folder + u"/plasma-org.kde.plasma.desktop-appletsrc"_s;
    launch();
    const auto offers = [this] {
        app.pass(0s);
        return app.notifications().notifications().size();
    };
    auto shell = std::make_unique<test::FakePlasmaShell>(app.bus().connect(), u"org.quorvel.line"_s,
                                                         u"absent"_s);
    shell->change(u"offered"_s, layout);
    EXPECT_TRUE(test::waitUntil([&] { return offers() == 1; }));
    EXPECT_EQ(app.itemProperty("AttentionMovieName", 1), u"redUpGreenDown"_s);

    const auto changeTo = [&](const QString& answer, const char* wanted, int ordinal) {
        shell->change(answer, layout);
        EXPECT_TRUE(test::waitUntil([&] {
            app.pass(200ms); // until the writes have come to rest
            return status(ordinal) == wanted;
        })) << answer.toStdString();
    };
    changeTo(u"shown"_s, "Passive", 2);
    changeTo(u"offered"_s, "Active", 3);
    changeTo(u"shown"_s, "Passive", 4);
    shell.reset();
    EXPECT_TRUE(test::waitUntil([&] { return status(5) == "Active"; })) << "the shell has gone";
    EXPECT_EQ(offers(), 1);
    qunsetenv("XDG_CONFIG_HOME");
}

} // namespace
