// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusNotifier/StatusNotifierTypes.h"
#include "Tests/Platform/StatusBar/StatusItemFixture.h"

#include <QDBusObjectPath>
#include <QTest>

using namespace std::chrono_literals;
using namespace platform;

namespace {

class StatusNotifierItem : public StatusItemFixture {
protected:
    std::unique_ptr<test::FakeStatusNotifierWatcher> anotherWatcher() {
        return std::make_unique<test::FakeStatusNotifierWatcher>(bus_.connect());
    }
};

TEST_F(StatusNotifierItem, RegistersByItsPathAndSaysWhenItGoes) {
    showItem();
    EXPECT_TRUE(service_.startsWith(u':'));
    EXPECT_EQ(property("Id"), QStringLiteral("quorvel"));
    item_.reset();
    EXPECT_FALSE(property("Id").isValid());
    const auto told = panel_.takeSignals();
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().arguments(), QVariantList{QStringLiteral("Passive")});
}

TEST_F(StatusNotifierItem, RegistersAgainWhereTheWatcherDoesNotListIt) {
    const auto registrationsAfter = [this](std::chrono::milliseconds time) {
        clock_.advance(time);
        QTest::qWait(100); // questions and answers pass over the bus
        return watcher_->registered().size();
    };
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    watcher_->setLosesItems(true);
    makeItem();
    waitForRegistrations(1);
    EXPECT_EQ(registrationsAfter(5s), 1);
    EXPECT_EQ(registrationsAfter(4999ms), 1);
    watcher_->setLosesItems(false);
    EXPECT_EQ(registrationsAfter(1ms), 2);
    registrationsAfter(5s);
    EXPECT_EQ(registrationsAfter(1min), 2) << "it is listed";
}

TEST_F(StatusNotifierItem, RegistersWhenTheWatcherComesLateComesBackOrIsReplaced) {
    makeItem();
    clock_.advance(5s);
    watcher_ = anotherWatcher();
    waitForRegistrations(1);

    watcher_.reset();
    watcher_ = anotherWatcher();
    waitForRegistrations(1);

    const auto replaced = std::move(watcher_);
    watcher_ = anotherWatcher();
    waitForRegistrations(1);
    EXPECT_EQ(property("XAyatanaLabel"), QStringLiteral("BTC 1.00"));
    EXPECT_EQ(watcher_->registered().size(), 1);
}

TEST_F(StatusNotifierItem, WaitsForAPanelThatIsAboutToListenButNotForever) {
    constexpr bool hasHost = false;
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_, hasHost);
    makeItem();
    EXPECT_FALSE(QTest::qWaitFor([&] { return !watcher_->registered().empty(); }, 300));
    watcher_->addHost();
    waitForRegistrations(1);
    watcher_->addHost();
    clock_.advance(10s);
    EXPECT_EQ(watcher_->registered().size(), 1);

    watcher_.reset();
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(bus_.connect(), hasHost);
    ASSERT_TRUE(QTest::qWaitFor([&] { return clock_.untilNextTimer() == 2s; }, 5'000));
    EXPECT_FALSE(QTest::qWaitFor([&] { return !watcher_->registered().empty(); }, 100));
    clock_.advance(2s);
    waitForRegistrations(1);
    watcher_->addHost();
    test::drainEvents();
    EXPECT_EQ(watcher_->registered().size(), 1);
}

TEST_F(StatusNotifierItem, AnswersAWatcherThatReadsItBeforeAnsweringTheRegistration) {
    watcher_ = std::make_unique<test::FakeStatusNotifierWatcher>(panelBus_);
    watcher_->setReadsBeforeAnswering();
    makeItem();
    EXPECT_TRUE(QTest::qWaitFor([&] { return watcher_->answerCount() == 1; }, 5'000));
}

TEST_F(StatusNotifierItem, DoesNothingWithoutABusAndOutlivesIt) {
    StatusItem alone({QStringLiteral("quorvel"), QStringLiteral("Quorvel"), icons_.path()}, clock_,
                     QDBusConnection(QStringLiteral("no such connection")));
    alone.setTitle(title(QStringLiteral("BTC 1.00")));
    showItem();
    bus_.stop();
    for (const auto* text : {"BTC 2.00", "BTC 3.00"}) {
        item_->setTitle(title(QString::fromLatin1(text)));
        alone.setTitle(title(QString::fromLatin1(text)));
        clock_.advance(1s);
    }
    EXPECT_EQ(watcher_->registered().size(), 1);
}

TEST_F(StatusNotifierItem, DescribesItselfAsItIs) {
    showItem();
    const auto description = [this](const char* path) {
        return call(path, "org.freedesktop.DBus.Introspectable", "Introspect")
            .arguments()
            .value(0)
            .toString()
            .replace(QLatin1Char('"'), QLatin1Char('\''));
    };
    for (const auto* element :
         {"<property name='IconPixmap' type='a(iiay)' access='read'/>",
          "<property name='ToolTip' type='(sa(iiay)ss)' access='read'/>",
          "<property name='XAyatanaLabel' type='s' access='read'/>",
          "<method name='Scroll'><arg type='i' direction='in'/><arg type='s' direction='in'/></m",
          "<signal name='XAyatanaNewLabel'><arg type='s' direction='out'/><arg type='s' d"})
        EXPECT_TRUE(description("/StatusNotifierItem").contains(QLatin1StringView(element)))
            << element;
    EXPECT_TRUE(description("/MenuBar")
                    .contains(QStringLiteral("<arg type='u' direction='out'/><arg "
                                             "type='(ia{sv}av)' direction='out'/></method>")));
    EXPECT_EQ(property("Category"), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(property("Title"), QStringLiteral("Quorvel"));
    EXPECT_EQ(property("IconAccessibleDesc"), QStringLiteral("Quorvel"));
    EXPECT_EQ(property("Status"), QStringLiteral("Active"));
    EXPECT_EQ(property("ItemIsMenu"), false);
    EXPECT_EQ(property("Menu").value<QDBusObjectPath>().path(), QStringLiteral("/MenuBar"));
    EXPECT_EQ(qdbus_cast<NotifierToolTip>(property("ToolTip")),
              (NotifierToolTip{{}, {}, QStringLiteral("BTC 1.00"), {}}));
}

TEST_F(StatusNotifierItem, HasNoLabelPropertyWhileThereIsNoTitle) {
    showItem();
    item_->setTitle({}, Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabel")));
    EXPECT_FALSE(properties().contains(QStringLiteral("XAyatanaLabelGuide")));
    EXPECT_FALSE(property("XAyatanaLabel").isValid());

    item_->setTitle(title(QStringLiteral("ETH 2.00")), Urgency::immediate);
    clock_.advance(0ms);
    EXPECT_EQ(property("XAyatanaLabel"), QStringLiteral("ETH 2.00"));
    EXPECT_EQ(property("XAyatanaLabelGuide"), QStringLiteral("ETH 8.88"));
}

} // namespace
