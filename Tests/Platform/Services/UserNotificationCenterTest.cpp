// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/UserNotificationCenter.h"

#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ServiceError.h"
#include "Tests/Support/Bus/FakeNotificationService.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"

#include <QDBusArgument>

#include <gtest/gtest.h>

using namespace platform;
using namespace std::chrono_literals;
using Habit = test::FakeNotificationService::Habit;

namespace {

const auto markup = QStringLiteral("body-markup");
const auto getServerInformation = QStringLiteral("GetServerInformation");
const auto getCapabilities = QStringLiteral("GetCapabilities");
const auto notifyMethod = QStringLiteral("Notify");

class UserNotificationCenterTest : public testing::Test {
protected:
    void startService(const QStringList& capabilities = {}) {
        service_ = std::make_unique<test::FakeNotificationService>(bus_.connect(), capabilities);
    }

    void add(const QString& title, const QString& body = QStringLiteral("body")) {
        test::runTask(center_.add({.title = title, .body = body, .soundName = {}}));
    }

    /// What `add` says where it fails; empty where it does not.
    QString failure() { return failureOf(test::Running(center_.add({}))); }

    static QString failureOf(test::Running<void>&& adding) {
        try {
            adding.result();
            return {};
        } catch (const ServiceError& error) {
            return error.localizedDescription();
        }
    }

    /// One of the eight arguments of the notification that came last.
    QVariant argument(int index) const {
        return service_->notifications()
            .value(service_->notifications().size() - 1)
            .arguments()
            .value(index);
    }
    QString lastTitle() const { return argument(3).toString(); }
    QString lastBody() const { return argument(4).toString(); }

    test::ManualClock clock_;
    test::PrivateBus bus_;
    UserNotificationCenter center_{{.name = QStringLiteral("Quorvel"),
                                    .icon = QStringLiteral("quorvel-icon"),
                                    .desktopEntry = QStringLiteral("quorvel")},
                                   bus_.connect(),
                                   clock_};
    std::unique_ptr<test::FakeNotificationService> service_;
};

TEST_F(UserNotificationCenterTest, SendsAllArgumentsWithTheirTypes) {
    startService();
    test::runTask(center_.add({.title = QStringLiteral("BTC Rises above 70,000.00"),
                               .body = QStringLiteral("Now 70,012.35  +2.41%"),
                               .soundName = QStringLiteral("message-new-instant")}));
    ASSERT_EQ(service_->notifications().size(), 1);
    EXPECT_EQ(service_->notifications()[0].signature(), QStringLiteral("susssasa{sv}i"));
    EXPECT_EQ(argument(0), QStringLiteral("Quorvel"));
    EXPECT_EQ(argument(1), 0U);
    EXPECT_EQ(argument(2), QStringLiteral("quorvel-icon"));
    EXPECT_EQ(argument(3), QStringLiteral("BTC Rises above 70,000.00"));
    EXPECT_EQ(argument(4), QStringLiteral("Now 70,012.35  +2.41%"));
    EXPECT_EQ(argument(5), QStringList());
    const QVariantMap expectedHints{
        {QStringLiteral("desktop-entry"), QStringLiteral("quorvel")},
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
        {QStringLiteral("urgency"), QVariant::fromValue(uchar(1))}};
    EXPECT_EQ(qdbus_cast<QVariantMap>(argument(6)), expectedHints);
    EXPECT_EQ(argument(7), -1);
}

TEST_F(UserNotificationCenterTest, SendsTheIconFileAsAURL) {
    startService();
    UserNotificationCenter other{
        {.name = {}, .icon = QStringLiteral("/a b/icon.png"), .desktopEntry = {}},
        bus_.connect(),
        clock_};
    test::runTask(other.add({}));
    EXPECT_EQ(argument(2), QStringLiteral("file:///a%20b/icon.png"));
}

TEST_F(UserNotificationCenterTest, SendsWhatCanBeShown) {
    const QString loneSurrogate(QChar(0xd83d));
    const QString face = QString::fromUcs4(U"\U0001F600");
    struct Case {
        QString sent;
        QString title;
        QString body;
    };
    const Case cases[]{
        {QStringLiteral("5 < 6 & 7 > 6"), {}, {}},
        {face + QStringLiteral(" €"), {}, {}},
        {QStringLiteral("a\nb\tc"), QStringLiteral("a b c"), QStringLiteral("a\nb c")},
        {QStringLiteral("a") + loneSurrogate + QStringLiteral("b"), QStringLiteral("a\uFFFDb"),
         QStringLiteral("a\uFFFDb")},
        {QStringLiteral("a") + QChar(0) + QStringLiteral("b\x1b\u0085"), QStringLiteral("ab"),
         QStringLiteral("ab")},
    };
    startService();
    for (const Case& one : cases) {
        add(one.sent, one.sent);
        EXPECT_EQ(lastTitle(), one.title.isEmpty() ? one.sent : one.title);
        EXPECT_EQ(lastBody(), one.body.isEmpty() ? one.sent : one.body);
    }
}

TEST_F(UserNotificationCenterTest, EscapesTheBodyForAServiceThatReadsMarkup) {
    const auto text = QStringLiteral("<b> & &lt; \"'");
    startService({QStringLiteral("actions"), markup});
    add(text, text);
    EXPECT_EQ(lastTitle(), text);
    EXPECT_EQ(lastBody(), QStringLiteral("&lt;b&gt; &amp; &amp;lt; \"'"));
}

TEST_F(UserNotificationCenterTest, AsksEachOwnerOfTheServiceOnceForItsCapabilities) {
    const auto text = QStringLiteral("<");
    startService({markup});
    add(text, text);
    add(text, text);
    EXPECT_EQ(service_->called(), QStringList({getCapabilities, notifyMethod, notifyMethod}));
    EXPECT_EQ(lastBody(), QStringLiteral("&lt;"));

    startService(); // in its place, without a moment of absence
    add(text, text);
    EXPECT_EQ(service_->called(), QStringList({getCapabilities, notifyMethod}));
    EXPECT_EQ(lastBody(), QStringLiteral("<"));

    service_.reset();
    EXPECT_EQ(failure(), QStringLiteral("There is no notification service."));

    startService({markup});
    add(text, text);
    EXPECT_EQ(lastBody(), QStringLiteral("&lt;"));
}

TEST_F(UserNotificationCenterTest, DoesNotTakeTheCapabilitiesOfAReplacedServiceForTheNewOnes) {
    startService({markup});
    service_->setHabit(getCapabilities, Habit::hold);
    test::Running adding(center_.add({}));
    ASSERT_TRUE(test::waitUntil([&] { return service_->called().size() == 1; }));
    const auto replaced = std::move(service_);
    startService();
    test::drainEvents();
    replaced->answerHeld();
    adding.result();
    add(QStringLiteral("title"), QStringLiteral("<"));
    EXPECT_EQ(lastBody(), QStringLiteral("<"));
}

TEST_F(UserNotificationCenterTest, ShowsRequestsInTheirOrder) {
    startService();
    add(QStringLiteral("1"));
    add(QStringLiteral("2"));
    test::Running third(center_.add({.title = QStringLiteral("3"), .body = {}, .soundName = {}}));
    test::Running fourth(center_.add({.title = QStringLiteral("4"), .body = {}, .soundName = {}}));
    fourth.result();
    third.result();
    QStringList titles;
    for (const QDBusMessage& notification : service_->notifications())
        titles.append(notification.arguments().value(3).toString());
    EXPECT_EQ(titles, QStringList({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                                   QStringLiteral("4")}));
}

TEST_F(UserNotificationCenterTest, IsAuthorizedWhereTheServiceAnswers) {
    EXPECT_FALSE(test::runTask(center_.requestAuthorization())) << "absent";
    startService();
    EXPECT_TRUE(test::runTask(center_.requestAuthorization()));
    EXPECT_EQ(service_->called(), QStringList(getServerInformation));
    service_->setHabit(getServerInformation, Habit::refuse);
    EXPECT_FALSE(test::runTask(center_.requestAuthorization())) << "refused";

    service_->setHabit(getServerInformation, Habit::hold);
    test::Running asking(center_.requestAuthorization());
    ASSERT_TRUE(test::waitUntil([&] { return service_->called().size() == 3; }));
    clock_.advance(UserNotificationCenter::authorizationLimit - 1ms);
    EXPECT_TRUE(asking.isRunning());
    clock_.advance(1ms);
    EXPECT_FALSE(asking.isRunning());
    EXPECT_FALSE(asking.result()) << "hangs";
}

TEST_F(UserNotificationCenterTest, PassesOnThatTheServiceRefuses) {
    const auto text = QStringLiteral("The notification service refused: Too many notifications");
    for (const QString& method : {getCapabilities, notifyMethod}) {
        startService();
        service_->setHabit(method, Habit::refuse);
        EXPECT_EQ(failure(), text) << qPrintable(method);
    }
}

TEST_F(UserNotificationCenterTest, GivesUpAServiceThatHangsAtEitherCall) {
    for (const QString& method : {getCapabilities, notifyMethod}) {
        SCOPED_TRACE(qPrintable(method));
        startService();
        service_->setHabit(method, Habit::hold);
        test::Running adding(center_.add({}));
        ASSERT_TRUE(test::waitUntil([&] { return service_->called().contains(method); }));
        clock_.advance(DBusCall::usualLimit);
        ASSERT_FALSE(adding.isRunning());
        EXPECT_EQ(failureOf(std::move(adding)),
                  QStringLiteral("The notification service does not answer."));
        service_->answerHeld();
        service_->setHabit(method, Habit::answer);
        EXPECT_EQ(failure(), QString());
    }
}

TEST_F(UserNotificationCenterTest, HasNoServiceWithoutABus) {
    startService();
    bus_.stop();
    EXPECT_FALSE(test::runTask(center_.requestAuthorization()));
    EXPECT_EQ(failure(), QStringLiteral("There is no notification service."));

    UserNotificationCenter never{{}, QDBusConnection(QStringLiteral("never connected")), clock_};
    EXPECT_FALSE(test::runTask(never.requestAuthorization()));
}

} // namespace
