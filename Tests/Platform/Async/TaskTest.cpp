// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/FutureAwaiter.h"
#include "Platform/Async/SleepFor.h"
#include "Platform/Async/TaskScope.h"
#include "Tests/Support/ManualClock.h"

#include <QEventLoop>
#include <QPromise>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace platform;
using namespace std::chrono_literals;

static_assert(!std::is_copy_constructible_v<Task<int>>);
static_assert(!std::is_copy_constructible_v<TaskHandle>);

namespace {

template <typename Promise, typename Awaited>
concept CanAwait = requires(Promise promise, Awaited awaited) {
    promise.await_transform(std::forward<Awaited>(awaited));
};
using Promise = Task<>::promise_type;
static_assert(CanAwait<Promise, Task<int>> && CanAwait<Promise, QFuture<int>> &&
              CanAwait<Promise, Sleep>);
static_assert(!CanAwait<Promise, std::suspend_never> && !CanAwait<Promise, int>);
static_assert(!CanAwait<Promise, Task<int>&>, "a task is awaited as an rvalue, once");

Task<int> immediate(int value) {
    co_return value;
}

Task<> add(int count, int& sum) {
    for (int i = 0; i < count; ++i)
        sum += co_await immediate(1);
}

Task<int> depth(int levels) {
    if (levels == 0)
        co_return 0;
    const int below = co_await depth(levels - 1);
    co_return below + 1;
}

Task<> store(Task<int> task, int& result) {
    result = co_await std::move(task);
}

/// Writes its name when it is destroyed.
struct Trace {
    std::string& order;
    const char* name;
    ~Trace() { order += name; }
};

Task<> inner(Clock& clock, std::string& order) {
    const Trace trace{order, "inner "};
    co_await sleepFor(clock, 1s);
}

Task<> outer(Clock& clock, std::string& order) {
    const Trace trace{order, "outer "};
    co_await inner(clock, order);
}

Task<> throwing(const char* text) {
    throw std::runtime_error(text);
    co_return;
}

std::string caught;

void catchError(const std::exception_ptr& error) noexcept {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& exception) {
        caught = exception.what();
    }
}

Task<> cancelInNestedLoop(TaskHandle& self, bool& wentOn, QFuture<int> ready) {
    QEventLoop loop;
    QMetaObject::invokeMethod(
        &loop,
        [&] {
            self.cancel();
            loop.quit();
        },
        Qt::QueuedConnection);
    loop.exec();
    wentOn = true; // still running: the frame is not taken from under it
    co_await ready;
    ADD_FAILURE() << "went past an await after it was cancelled";
}

Task<> waitForEnd(const TaskHandle& task, std::vector<TaskOutcome>& outcomes) {
    outcomes.push_back(co_await task.finished());
}

} // namespace

TEST(Task, AwaitsAMillionReadyTasksOnAFlatStack) {
    int sum = 0;
    const auto handle = startTask(add(1'000'000, sum));
    test::drainEvents();
    EXPECT_EQ(sum, 1'000'000);
}

TEST(Task, ReturnsThroughManyLevelsOnAFlatStack) {
    int result = 0;
    const auto handle = startTask(store(depth(10'000), result));
    test::drainEvents();
    EXPECT_EQ(result, 10'000);
}

TEST(Task, IsNotDestroyedWhileItRuns) {
    QPromise<int> promise;
    promise.start();
    promise.addResult(1);
    promise.finish();
    bool wentOn = false;
    TaskHandle handle;
    handle = startTask(cancelInNestedLoop(handle, wentOn, promise.future()));
    test::drainEvents();
    EXPECT_TRUE(wentOn);
    EXPECT_FALSE(handle.isRunning());
}

TEST(Task, GivesAnErrorThatLeavesItToTheHookAndTellsItsWaiters) {
    const auto before = TaskControl::setUnhandledErrorHook(catchError);
    std::vector<TaskOutcome> outcomes;
    const auto handle = startTask(throwing("lost"));
    const auto waiter = startTask(waitForEnd(handle, outcomes));
    test::drainEvents();
    TaskControl::setUnhandledErrorHook(before);
    EXPECT_EQ(caught, "lost");
    EXPECT_EQ(outcomes, std::vector{TaskOutcome::failed});
}

TEST(TaskHandle, ResumesWaitersByAnEventAlsoWhenItIsGone) {
    test::ManualClock clock;
    std::string order;
    std::vector<TaskOutcome> outcomes;
    auto handle = startTask(inner(clock, order));
    const auto first = startTask(waitForEnd(handle, outcomes));
    const auto second = startTask(waitForEnd(handle, outcomes));
    test::drainEvents();
    handle = {};
    EXPECT_TRUE(outcomes.empty()) << "resumed inside cancel";
    test::drainEvents();
    EXPECT_EQ(outcomes, (std::vector{TaskOutcome::cancelled, TaskOutcome::cancelled}));
}

TEST(TaskScope, CancelsWhatStillRunsInnermostFramesFirst) {
    test::ManualClock clock;
    std::string order;
    {
        TaskScope scope;
        scope.start(inner(clock, order));
        scope.start(outer(clock, order));
        test::drainEvents();
        EXPECT_TRUE(scope.isRunning());
        EXPECT_EQ(clock.timerCount(), 2u);
    }
    EXPECT_EQ(order, "inner inner outer ");
    EXPECT_EQ(clock.timerCount(), 0u);
}

TEST(Sleep, RoundsUpToMilliseconds) {
    test::ManualClock clock;
    const auto nap = [](Clock& on, TimeInterval duration, bool& awake) -> Task<> {
        co_await sleepFor(on, duration);
        awake = true;
    };
    for (const auto& [duration, lasts] :
         {std::pair(0.0101, 11ms), std::pair(0.0, 0ms), std::pair(-5.0, 0ms),
          std::pair(std::numeric_limits<double>::quiet_NaN(), 0ms)}) {
        bool awake = false;
        const auto handle = startTask(nap(clock, TimeInterval(duration), awake));
        EXPECT_FALSE(awake);
        if (lasts > 0ms)
            clock.advance(lasts - 1ms);
        EXPECT_FALSE(awake);
        clock.advance(lasts > 0ms ? 1ms : 0ms);
        EXPECT_TRUE(awake) << duration;
    }
}

TEST(FutureAwaiter, ThrowsWhenThereIsNoResult) {
    const auto awaitIt = [](QFuture<int> future, bool& cancelled) -> Task<> {
        try {
            co_await future;
        } catch (const CancelledError&) {
            cancelled = true;
        }
    };
    bool broken = false;
    bool invalid = false;
    auto promise = std::make_unique<QPromise<int>>();
    promise->start();
    const auto first = startTask(awaitIt(promise->future(), broken));
    const auto second = startTask(awaitIt(QFuture<int>(), invalid));
    test::drainEvents();
    EXPECT_FALSE(broken);
    promise.reset();
    test::drainEvents();
    EXPECT_TRUE(broken);
    EXPECT_TRUE(invalid);
}
