// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Alerts/SystemNotificationDelivering.h"

#include "Platform/DBus/ServiceError.h"
#include "Platform/Services/UserNotificationCenter.h"
#include "Tests/Support/Bus/FakeNotificationService.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"

#include <QDBusArgument>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <memory>

using namespace quorvel;

namespace {

TEST(SystemNotificationDelivering, DeliversWithASoundToAServiceThatComesAndGoes) {
    test::ManualClock clock;
    test::PrivateBus bus;
    platform::UserNotificationCenter center({}, bus.connect(), clock);
    SystemNotificationDelivering delivering(center);
    auto service = std::make_unique<test::FakeNotificationService>(bus.connect());

    EXPECT_TRUE(test::runTask(delivering.requestAuthorization()));
    test::runTask(delivering.deliver(QStringLiteral("title"), QStringLiteral("body")));
    ASSERT_EQ(service->notifications().size(), 1);
    const QVariantList arguments = service->notifications()[0].arguments();
    EXPECT_EQ(arguments.value(3), QStringLiteral("title"));
    EXPECT_EQ(arguments.value(4), QStringLiteral("body"));
    EXPECT_EQ(qdbus_cast<QVariantMap>(arguments.value(6))[QStringLiteral("sound-name")],
              QStringLiteral("message-new-instant"));

    service.reset();
    EXPECT_FALSE(test::runTask(delivering.requestAuthorization()));
    EXPECT_THROW(test::runTask(delivering.deliver({}, {})), platform::ServiceError);
}

} // namespace
