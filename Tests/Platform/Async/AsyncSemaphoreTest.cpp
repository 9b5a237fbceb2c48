// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/AsyncSemaphore.h"

#include "Platform/Async/FutureAwaiter.h"
#include "Platform/Async/TaskHandle.h"
#include "Tests/Support/ManualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using namespace platform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Semaphore : public testing::Test {
protected:
    using Permit = AsyncSemaphore::Permit;

    TaskHandle start(std::string name) { return startTask(acquire(std::move(name))); }

    Task<> acquire(std::string name) { held_.emplace_back(name, co_await semaphore_.acquire()); }

    std::vector<std::string> holders() const {
        std::vector<std::string> names;
        for (const auto& [name, permit] : held_)
            names.push_back(name);
        return names;
    }

    void releaseOldest() {
        held_.erase(held_.begin());
        test::drainEvents();
    }

    AsyncSemaphore semaphore_{2};
    std::vector<std::pair<std::string, Permit>> held_;
};

} // namespace

TEST_F(Semaphore, LetsTheLongestWaitingGoOnForEachThatIsDone) {
    const TaskHandle tasks[] = {start("a"), start("b"), start("c"), start("d")};
    test::drainEvents();
    EXPECT_THAT(holders(), ElementsAre("a", "b"));
    releaseOldest();
    EXPECT_THAT(holders(), ElementsAre("b", "c"));
    releaseOldest();
    EXPECT_THAT(holders(), ElementsAre("c", "d"));
    releaseOldest();
    releaseOldest();
    EXPECT_THAT(holders(), IsEmpty());
    [[maybe_unused]] const auto again = {start("e"), start("f"), start("g")};
    test::drainEvents();
    EXPECT_THAT(holders(), ElementsAre("e", "f"));
}

TEST_F(Semaphore, LosesNoPermitToThoseThatGiveUp) {
    const TaskHandle first[] = {start("a"), start("b")};
    TaskHandle waiting = start("given up while waiting");
    TaskHandle granted = start("given up once granted");
    const TaskHandle last = start("c");
    test::drainEvents();
    waiting.cancel();
    held_.erase(held_.begin()); // its permit is on its way, and nobody has run since
    granted.cancel();
    test::drainEvents();
    EXPECT_THAT(holders(), ElementsAre("b", "c"));
}
