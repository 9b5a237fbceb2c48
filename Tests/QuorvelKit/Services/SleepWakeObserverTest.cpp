// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Services/SleepWakeObserver.h"

#include "Platform/Services/Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

using quorvel::SleepWakeObserver;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SleepWake : public testing::Test {
protected:
    void post() {
        center_.post(platform::Workspace::willSleepNotification);
        center_.post(platform::Workspace::didWakeNotification);
    }

    std::vector<std::string> takeCalls() { return std::exchange(calls_, {}); }

    platform::NotificationCenter center_;
    std::vector<std::string> calls_;
    std::optional<SleepWakeObserver> observer_{std::in_place, center_,
                                               [this] { calls_.emplace_back("sleep"); },
                                               [this] { calls_.emplace_back("wake"); }};
};

TEST_F(SleepWake, CallsEachActionOncePerNotificationWhileStarted) {
    post();
    observer_->stop();
    EXPECT_THAT(takeCalls(), IsEmpty());
    observer_->start();
    observer_->start();
    post();
    EXPECT_THAT(takeCalls(), ElementsAre("sleep", "wake"));
    observer_->stop();
    post();
    EXPECT_THAT(takeCalls(), IsEmpty());
    observer_->start();
    post();
    EXPECT_THAT(takeCalls(), ElementsAre("sleep", "wake"));
    observer_.reset();
    post();
    EXPECT_THAT(takeCalls(), IsEmpty());
}

TEST_F(SleepWake, MayEndByItsOwnAction) {
    const std::string text = "a text that an action owns, too long to be kept inside the object";
    observer_.emplace(
        center_,
        [this, text] {
            observer_.reset();
            calls_.push_back(text);
        },
        [this] { calls_.emplace_back("wake"); });
    observer_->start();
    post();
    EXPECT_THAT(takeCalls(), ElementsAre(text));
}

} // namespace
