// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/LiveSession.h"
#include "Tests/Support/FakeLoginManager.h"
#include "Tests/Support/WaitUntil.h"

#include <csignal>

namespace {

/// The session's bus is the machine's as well: the login manager is found by its name.
class Sleep : public test::LiveSession {
protected:
    Sleep() { qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus_.address().toLocal8Bit()); }
    ~Sleep() override { qunsetenv("DBUS_SYSTEM_BUS_ADDRESS"); }

    qsizetype snapshotCount() const { return requestCount(u"/api/v3/ticker/24hr"); }

    test::FakeLoginManager loginManager_{bus_.connect()};
};

TEST_F(Sleep, WaitsForTheStreamToBeDroppedAndWakingTakesItUpOnce) {
    start();
    ASSERT_TRUE(showsPrices());
    ASSERT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }));
    ASSERT_TRUE(test::waitUntil([this] { return loginManager_.heldLocks() == 1; }));

    loginManager_.announce(true);
    EXPECT_TRUE(test::waitUntil([this] { return loginManager_.heldLocks() == 0; }));
    EXPECT_TRUE(test::waitUntil([this] { return connectionCount() == 0; }));
    EXPECT_EQ(closeCode(), 1001);
    EXPECT_EQ(snapshotCount(), 1);

    push("BTCUSDT", "70000", "8");
    loginManager_.announce(false);
    EXPECT_TRUE(showsLabel("BTC 70,000.00 +8.00% ▲", std::chrono::seconds(5)));
    EXPECT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }));
    EXPECT_TRUE(test::waitUntil([this] { return loginManager_.heldLocks() == 1; }));
    EXPECT_EQ(snapshotCount(), 2);
    EXPECT_EQ(simulator_.details(QStringLiteral("streamOpened")).size(), 2);

    quorvel_.sendSignal(SIGTERM);
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
    EXPECT_EQ(loginManager_.heldLocks(), 0);
}

} // namespace
