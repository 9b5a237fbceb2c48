// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/AsyncStream.h"
#include "Platform/Async/Mailbox.h"
#include "Platform/Async/SleepFor.h"
#include "Platform/Async/WorkerThread.h"
#include "Platform/Foundation/SystemClock.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/WaitUntil.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace platform;
using namespace std::chrono_literals;

namespace {

/// Lives on another thread and tells where and in which order it was called.
class Remote {
public:
    explicit Remote(std::atomic<int>& alive) : alive_(alive) { ++alive_; }
    Remote(const Remote&) = delete;
    Remote& operator=(const Remote&) = delete;
    ~Remote() { --alive_; }

    QThread* thread() const { return QThread::currentThread(); }

    Task<std::string> append(std::string text, TimeInterval delay) {
        order_ += text + "[";
        co_await sleepFor(clock_, delay);
        order_ += text + "]";
        co_return order_;
    }

private:
    std::atomic<int>& alive_;
    SystemClock clock_;
    std::string order_;
};

class MailboxTest : public testing::Test {
protected:
    template <typename T>
    bool finishes(const QFuture<T>& future) {
        const bool hasFinished = test::waitUntil([&] { return future.isFinished(); });
        acquireFromOtherThread(&throughQt);
        return hasFinished;
    }

    auto append(const char* text, TimeInterval delay) {
        return mailbox_->call([text, delay](Remote& remote) { return remote.append(text, delay); });
    }

    std::atomic<int> alive_ = 0;
    WorkerThread thread_{QStringLiteral("worker")};
    std::unique_ptr<Mailbox<Remote>> mailbox_ = std::make_unique<Mailbox<Remote>>(
        thread_.thread(), [this] { return std::make_unique<Remote>(alive_); });
};

Task<> consume(AsyncStream<int> stream, std::vector<int>& items, bool& ended) {
    while (const auto item = co_await stream.next())
        items.push_back(*item);
    ended = true;
}

Task<> drain(AsyncStream<int>& stream, int& count) {
    while (co_await stream.next()) {
        ++count;
        const auto until = std::chrono::steady_clock::now() + 20us;
        while (std::chrono::steady_clock::now() < until) {
        }
    }
}

} // namespace

TEST_F(MailboxTest, CallsOnTheOtherThreadInOrderInterleavingWhereTheySuspend) {
    const auto where = mailbox_->call([](Remote& remote) { return remote.thread(); });
    const auto first = append("a", 40ms);
    const auto second = append("b", 0s);
    ASSERT_TRUE(finishes(first));
    EXPECT_EQ(where.result(), &thread_.thread());
    EXPECT_EQ(second.result(), "a[b[b]");
    EXPECT_EQ(first.result(), "a[b[b]a]");
}

TEST_F(MailboxTest, EndsOrSkipsACallWhoseFutureIsCancelled) {
    auto running = append("a", 1h);
    ASSERT_TRUE(finishes(append("b", 0s)));
    running.cancel();
    auto skipped = append("c", 0s);
    skipped.cancel();
    const auto after = append("d", 0s);
    ASSERT_TRUE(finishes(after) && finishes(running) && finishes(skipped));
    const std::string order = after.result();
    EXPECT_EQ(order.find("a]"), std::string::npos);
    EXPECT_TRUE(running.isCanceled());
    EXPECT_TRUE(skipped.isCanceled());
}

TEST_F(MailboxTest, CancelsEveryCallWhenTheThreadEndsNowAndLater) {
    const auto running = append("a", 1h);
    ASSERT_TRUE(finishes(append("b", 0s)));
    thread_.stop();
    EXPECT_EQ(alive_, 0) << "the object outlived its thread";
    const auto later = append("c", 0s);
    EXPECT_TRUE(running.isFinished() && running.isCanceled());
    EXPECT_TRUE(later.isFinished() && later.isCanceled());
}

TEST_F(MailboxTest, DestroysTheObjectOnItsThreadWhenItGoes) {
    const auto running = append("a", 1h);
    ASSERT_TRUE(finishes(append("b", 0s)));
    mailbox_.reset();
    EXPECT_TRUE(finishes(running));
    EXPECT_TRUE(running.isCanceled());
    EXPECT_TRUE(test::waitUntil([&] { return alive_ == 0; }));
}

TEST_F(MailboxTest, SurvivesAnEndAmongManyCalls) {
    std::vector<QFuture<std::string>> calls;
    std::jthread ender([this] {
        std::this_thread::sleep_for(3ms);
        thread_.thread().quit();
    });
    for (int i = 0; i < 2000; ++i)
        calls.push_back(append("x", 0s));
    ender.join();
    thread_.stop();
    for (const auto& call : calls)
        ASSERT_TRUE(call.isFinished());
}

TEST(AsyncStream, KeepsEachWritersOrderAndLosesNothing) {
    constexpr int writers = 3;
    constexpr int each = 20'000;
    std::vector<int> items;
    bool ended = false;
    TaskHandle consumer;
    {
        auto [stream, writer] = AsyncStream<int>::make();
        consumer = startTask(consume(std::move(stream), items, ended));
        std::vector<std::jthread> threads;
        for (int w = 0; w < writers; ++w)
            threads.emplace_back([copy = writer, w] {
                for (int i = 0; i < each; ++i)
                    ASSERT_TRUE(copy.push(w * each + i));
            });
    }
    ASSERT_TRUE(test::waitUntil([&] { return ended; }));
    ASSERT_EQ(items.size(), static_cast<std::size_t>(writers * each));
    for (int w = 0; w < writers; ++w) {
        std::vector<int> own;
        std::ranges::copy_if(items, std::back_inserter(own), [w](int i) { return i / each == w; });
        EXPECT_TRUE(std::ranges::is_sorted(own));
    }
}

TEST(AsyncStream, GivesQueuedItemsBeforeItsEnd) {
    std::vector<int> items;
    bool ended = false;
    auto [stream, writer] = AsyncStream<int>::make();
    writer.push(1);
    writer.push(2);
    writer.finish();
    EXPECT_FALSE(writer.push(3));
    const auto consumer = startTask(consume(std::move(stream), items, ended));
    test::drainEvents();
    EXPECT_TRUE(ended);
    EXPECT_EQ(items, (std::vector{1, 2}));
}

TEST(AsyncStream, RefusesItemsWhenItsConsumerIsGone) {
    auto made = std::make_unique<std::pair<AsyncStream<int>, AsyncStreamWriter<int>>>(
        AsyncStream<int>::make());
    const auto writer = made->second;
    EXPECT_TRUE(writer.push(1));
    made.reset();
    EXPECT_FALSE(writer.push(2));
}

TEST(AsyncStream, GivesWayToTheEventLoopDuringAFlood) {
    auto [stream, writer] = AsyncStream<int>::make();
    for (int i = 0; i < 5000; ++i) // 100 ms of work
        writer.push(i);
    int count = 0;
    int countAtTimer = 0;
    const QObject waiting;
    QTimer::singleShot(1ms, &waiting, [&] { countAtTimer = count; });
    const auto consumer = startTask(drain(stream, count));
    ASSERT_TRUE(test::waitUntil([&] { return count == 5000; }));
    EXPECT_GT(countAtTimer, 0);
    EXPECT_LT(countAtTimer, 2500) << "a timer that was due had to wait for half of the flood";
}
