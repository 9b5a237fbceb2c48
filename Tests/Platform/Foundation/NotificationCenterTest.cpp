// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/NotificationCenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using platform::NotificationCenter;
using testing::ElementsAre;

namespace {

class Notifications : public testing::Test {
protected:
    using Token = NotificationCenter::Token;

    /// Registers a block that notes a word and then does more.
    Token
    observe(const QString& name, const char* word, const std::function<void()>& more = [] {}) {
        return center_.addObserver(name, [this, word, more] {
            told_.emplace_back(word);
            more();
        });
    }

    const QString sleep_ = QStringLiteral("sleep");
    const QString wake_ = QStringLiteral("wake");
    NotificationCenter center_;
    std::vector<std::string> told_;
};

TEST_F(Notifications, ReachThoseRegisteredForTheirNameInOrder) {
    const Token first = observe(sleep_, "a");
    observe(wake_, "b");
    observe(sleep_, "c");
    center_.post(sleep_);
    EXPECT_THAT(told_, ElementsAre("a", "c"));
    center_.removeObserver(first);
    center_.removeObserver(first);
    center_.post(sleep_);
    center_.post(wake_);
    EXPECT_THAT(told_, ElementsAre("a", "c", "c", "b"));
}

TEST_F(Notifications, MayChangeWhoIsRegistered) {
    std::optional<Token> self;
    std::optional<Token> later;
    self = observe(sleep_, "once", [&] {
        center_.removeObserver(*self);
        center_.removeObserver(*later);
        observe(sleep_, "new");
        center_.post(wake_);
    });
    later = observe(sleep_, "removed before its turn");
    observe(sleep_, "last");
    observe(wake_, "inner");
    center_.post(sleep_);
    EXPECT_THAT(told_, ElementsAre("once", "inner", "last"));
    told_.clear();
    center_.post(sleep_);
    EXPECT_THAT(told_, ElementsAre("last", "new"));
}

} // namespace
