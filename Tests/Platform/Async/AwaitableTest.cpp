// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

// What every awaitable owes whoever awaits it, held against each of them.

#include "Platform/Async/AsyncStream.h"
#include "Platform/Async/Mailbox.h"
#include "Platform/Async/SignalAwaiter.h"
#include "Platform/Async/SleepFor.h"
#include "Platform/Async/TaskHandle.h"
#include "Platform/Async/WorkerThread.h"
#include "Platform/DBus/DBusCall.h"
#include "Tests/Support/Bus/FakeNotificationService.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/WaitUntil.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPromise>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace platform;
using namespace std::chrono_literals;

namespace {

/// One awaitable with its other end, so that a test can decide when and how the wait is over.
class Subject {
public:
    Subject() = default;
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;
    virtual ~Subject() = default;

    virtual Task<> wait() = 0;
    virtual void complete() = 0;
    /// For those that can fail.
    virtual void fail() { throw std::logic_error("this awaitable cannot fail"); }
};

class SleepSubject final : public Subject {
public:
    Task<> wait() override { co_await sleepFor(clock_, 10s); }
    void complete() override { clock_.advance(10s); }

private:
    test::ManualClock clock_;
};

class FutureSubject final : public Subject {
public:
    FutureSubject() { promise_.start(); }
    Task<> wait() override { EXPECT_EQ(co_await promise_.future(), 7); }
    void complete() override {
        promise_.addResult(7);
        promise_.finish();
    }
    void fail() override {
        promise_.setException(std::make_exception_ptr(std::runtime_error("refused")));
        promise_.finish();
    }

private:
    QPromise<int> promise_;
};

class StreamSubject final : public Subject {
public:
    Task<> wait() override { EXPECT_EQ(co_await stream_.first.next(), 7); }
    void complete() override { stream_.second.push(7); }

private:
    std::pair<AsyncStream<int>, AsyncStreamWriter<int>> stream_ = AsyncStream<int>::make();
};

class ChildTaskSubject final : public Subject {
public:
    Task<> wait() override { EXPECT_EQ(co_await child(), 8); }
    void complete() override { future_.complete(); }
    void fail() override { future_.fail(); }

private:
    Task<int> child() {
        co_await future_.wait();
        co_return 8;
    }
    FutureSubject future_;
};

class TaskEndSubject final : public Subject {
public:
    TaskEndSubject() : handle_(startTask(future_.wait())) {}
    Task<> wait() override { EXPECT_EQ(co_await handle_.finished(), TaskOutcome::completed); }
    void complete() override {
        future_.complete();
        test::drainEvents();
    }

private:
    FutureSubject future_;
    TaskHandle handle_;
};

class MailboxSubject final : public Subject {
public:
    Task<> wait() override {
        EXPECT_EQ(co_await mailbox_.call([](Remote& remote) { return remote.next(); }), 7);
    }
    void complete() override { writer().push(7); }
    void fail() override { writer().finish(); }

private:
    struct Remote {
        AsyncStream<int> stream;
        Task<int> next() {
            const auto item = co_await stream.next();
            if (!item)
                throw std::runtime_error("ended");
            co_return *item;
        }
    };
    AsyncStreamWriter<int>& writer() { return stream_.second; }

    std::pair<AsyncStream<int>, AsyncStreamWriter<int>> stream_ = AsyncStream<int>::make();
    WorkerThread thread_{QStringLiteral("remote")};
    Mailbox<Remote> mailbox_{thread_.thread(),
                             [this] { return std::make_unique<Remote>(std::move(stream_.first)); }};
};

class SignalSubject final : public Subject {
public:
    Task<> wait() override {
        const auto emission = std::move(emission_);
        EXPECT_EQ(std::get<0>((co_await *emission).value()), 7);
    }
    void complete() override { Q_EMIT sender_.bytesWritten(7); }

private:
    QBuffer sender_;
    std::unique_ptr<SignalAwaiter<qint64>> emission_ =
        std::make_unique<SignalAwaiter<qint64>>(sender_, &QIODevice::bytesWritten);
};

class DBusCallSubject final : public Subject {
public:
    DBusCallSubject() {
        service_.setHabit(method_, test::FakeNotificationService::Habit::hold);
        call_ = std::make_unique<DBusCall>(
            bus_.connect(),
            QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                           QStringLiteral("/org/freedesktop/Notifications"),
                                           QStringLiteral("org.freedesktop.Notifications"),
                                           method_),
            clock_);
        EXPECT_TRUE(test::waitUntil([&] { return service_.called().contains(method_); }));
    }
    Task<> wait() override {
        const auto call = std::move(call_);
        const QDBusMessage answer = co_await *call;
        EXPECT_EQ(answer.arguments().value(0), QStringLiteral("fake"));
    }
    void complete() override {
        service_.answerHeld();
        if (call_)
            EXPECT_TRUE(test::waitUntil([&] { return call_->isReady(); }));
    }
    void fail() override { service_.refuseHeld(); }

private:
    const QString method_ = QStringLiteral("GetServerInformation");
    test::ManualClock clock_;
    test::PrivateBus bus_;
    test::FakeNotificationService service_{bus_.connect()};
    std::unique_ptr<DBusCall> call_;
};

struct Kind {
    const char* name;
    std::unique_ptr<Subject> (*make)();
};

template <typename S>
Kind kind(const char* name) {
    return {name, [] { return std::unique_ptr<Subject>(std::make_unique<S>()); }};
}

class Awaitable : public testing::TestWithParam<Kind> {
protected:
    enum class Progress { begun, passed, failed };

    Task<> await() {
        const Ended atEnd{ended_};
        progress_ = Progress::begun;
        if (cancelFromInside_)
            handle_.cancel();
        try {
            co_await subject_->wait();
            progress_ = Progress::passed;
        } catch (const std::exception&) {
            progress_ = Progress::failed;
        }
    }

    void start() { handle_ = startTask(await()); }

    struct Ended {
        bool& flag;
        ~Ended() { flag = true; }
    };

    std::unique_ptr<Subject> subject_ = GetParam().make();
    std::optional<Progress> progress_;
    bool ended_ = false;
    bool cancelFromInside_ = false;
    TaskHandle handle_;
};

TEST_P(Awaitable, ResumesWhenItCompletes) {
    start();
    EXPECT_FALSE(progress_) << "started inside startTask";
    test::drainEvents();
    ASSERT_EQ(progress_, Progress::begun);
    subject_->complete();
    EXPECT_TRUE(test::waitUntil([&] { return ended_; }));
    EXPECT_EQ(progress_, Progress::passed);
    EXPECT_FALSE(handle_.isRunning());
}

/// Those that may be over before anybody waits.
class ReadyAwaitable : public Awaitable {};

TEST_P(ReadyAwaitable, DoesNotSuspend) {
    subject_->complete();
    start();
    QCoreApplication::sendPostedEvents(); // the first step, and nothing that it posts
    EXPECT_EQ(progress_, Progress::passed);
}

TEST_P(Awaitable, NeverBeginsWhenCancelledBefore) {
    start();
    handle_.cancel();
    subject_->complete();
    test::drainEvents();
    EXPECT_FALSE(progress_);
    EXPECT_FALSE(handle_.isRunning());
}

TEST_P(Awaitable, EndsAtOnceWhenCancelledDuring) {
    start();
    test::drainEvents();
    handle_.cancel();
    EXPECT_TRUE(ended_);
    subject_->complete();
    test::drainEvents();
    EXPECT_EQ(progress_, Progress::begun);
}

TEST_P(Awaitable, EndsAtTheAwaitWhenCancelledFromInside) {
    subject_->complete();
    cancelFromInside_ = true;
    start();
    test::drainEvents();
    EXPECT_TRUE(ended_);
    EXPECT_EQ(progress_, Progress::begun);
}

class FailingAwaitable : public Awaitable {};

TEST_P(FailingAwaitable, PassesTheErrorOn) {
    start();
    test::drainEvents();
    subject_->fail();
    EXPECT_TRUE(test::waitUntil([&] { return ended_; }));
    EXPECT_EQ(progress_, Progress::failed);
}

TEST_P(Awaitable, MayGoWhenItsTaskHasGone) {
    start();
    test::drainEvents();
    handle_ = {};
    subject_.reset();
    test::drainEvents();
    EXPECT_EQ(progress_, Progress::begun);
}

const Kind sleeping = kind<SleepSubject>("Sleep");
const Kind future = kind<FutureSubject>("Future");
const Kind stream = kind<StreamSubject>("Stream");
const Kind childTask = kind<ChildTaskSubject>("ChildTask");
const Kind taskEnd = kind<TaskEndSubject>("TaskEnd");
const Kind mailboxCall = kind<MailboxSubject>("MailboxCall");
const Kind signalEmission = kind<SignalSubject>("Signal");
const Kind dbusCall = kind<DBusCallSubject>("DBusCall");

std::string nameOf(const testing::TestParamInfo<Kind>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Each, Awaitable,
                         testing::Values(sleeping, future, stream, childTask, taskEnd, mailboxCall,
                                         signalEmission, dbusCall),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Each, ReadyAwaitable,
                         testing::Values(future, stream, childTask, taskEnd, signalEmission,
                                         dbusCall),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Each, FailingAwaitable,
                         testing::Values(future, childTask, mailboxCall, dbusCall), nameOf);

TEST(SignalAwaiter, GivesNothingWhereTheSenderGoesOrTheTimeIsUp) {
    const auto wait = [](std::unique_ptr<SignalAwaiter<qint64>> emission) -> Task<bool> {
        co_return (co_await *emission).has_value();
    };
    auto sender = std::make_unique<QBuffer>();
    test::Running<bool> orphaned(
        wait(std::make_unique<SignalAwaiter<qint64>>(*sender, &QIODevice::bytesWritten)));
    test::drainEvents();
    EXPECT_TRUE(orphaned.isRunning());
    sender.reset();
    EXPECT_FALSE(orphaned.result());

    test::ManualClock clock;
    QBuffer silent;
    test::Running<bool> late(
        wait(std::make_unique<SignalAwaiter<qint64>>(silent, &QIODevice::bytesWritten, clock, 2s)));
    test::drainEvents();
    clock.advance(1999ms);
    EXPECT_TRUE(late.isRunning());
    clock.advance(1ms);
    EXPECT_FALSE(late.result());
}

} // namespace
