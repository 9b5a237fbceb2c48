// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/Date.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(Date, CountsSecondsFromItsOwnEpoch) {
    EXPECT_EQ(dateSince1970(TimeInterval(978307200.0)).time_since_epoch().count(), 0.0);
    EXPECT_EQ(dateSince1970(TimeInterval(1700000000.123)).time_since_epoch().count(),
              1700000000.123 - 978307200.0);
    EXPECT_EQ(timeIntervalSince1970(Date(TimeInterval(-978307201.0))).count(), -1.0);
}
