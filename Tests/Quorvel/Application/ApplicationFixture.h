// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Quorvel/Application/ComposedApplication.h"

#include <gtest/gtest.h>

namespace test {

/// The program with two pairs in its watchlist, and a price for each, once it is launched.
class ApplicationFixture : public testing::Test {
protected:
    void launch() {
        app.haveWatchlist({"BTC", "ETH"});
        app.launch({"BTC", "ETH", "SOL", "SOLV"});
        app.quote("BTC", "70000");
        app.quote("ETH", "3500", "-2");
        app.pass(std::chrono::seconds(1));
    }

    static bool isDark(const WindowUser& user) {
        return user.picture(user.window()).pixelColor(user.window().rect().center()).lightness() <
               128;
    }

    ComposedApplication app;
};

} // namespace test
