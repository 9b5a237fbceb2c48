// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/SingleInstance.h"

#include "Platform/Foundation/SystemClock.h"
#include "Tests/Support/Bus/BusPeer.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace std::chrono_literals;
using platform::FileLock;
using platform::SingleInstance;
using Outcome = SingleInstance::Outcome;

namespace {

/// Starts of one program, in this process and with each on a bus connection of its own.
class Instances : public testing::Test {
protected:
    Instances() {
        for (const char* const name : {"a", "b"})
            directory_.mkdir(QString::fromLatin1(name));
    }

    std::unique_ptr<SingleInstance> make(const char* directory) {
        return make(directory, bus_.connect());
    }

    std::unique_ptr<SingleInstance> make(const char* directory, const QDBusConnection& bus,
                                         const char* lockFile = "program.lock") {
        return std::make_unique<SingleInstance>(
            SingleInstance::Identity{QStringLiteral("org.example.Program"), QStringLiteral("Show"),
                                     QString::fromLatin1(lockFile)},
            directory_.filePath(QString::fromLatin1(directory)), bus, clock_);
    }

    static Outcome claim(const std::unique_ptr<SingleInstance>& instance) {
        return test::runTask(instance->claim());
    }

    /// For one that finds another, which does not answer.
    static Outcome claimInVain(const std::unique_ptr<SingleInstance>& instance) {
        return test::runTask(instance->claim(60ms));
    }

    QString lockFile() const { return directory_.filePath(QStringLiteral("a/program.lock")); }

    QTemporaryDir temporary_;
    QDir directory_{temporary_.path()};
    platform::SystemClock clock_;
    test::PrivateBus bus_;
    const QDBusConnection noBus_{QStringLiteral("none")};
};

TEST_F(Instances, AreCalledUnderAnInterfaceOfTheirOwn) {
    const auto first = make("a");
    ASSERT_EQ(claim(first), Outcome::first);
    EXPECT_EQ(first->firstProcess(), ::getpid());
    const QSignalSpy spy(first.get(), &SingleInstance::called);
    test::BusPeer peer(bus_.connect());
    const auto call = [&](const char* method) {
        return peer
            .call(first->serviceName(), QStringLiteral("/org/example/Program"),
                  QStringLiteral("org.example.Program"), QString::fromLatin1(method))
            .type();
    };
    EXPECT_EQ(call("Show"), QDBusMessage::ReplyMessage);
    test::drainEvents();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(call("Hide"), QDBusMessage::ErrorMessage);
    first->stopListening();
    EXPECT_EQ(call("Show"), QDBusMessage::ErrorMessage);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(Instances, AreOnePerDirectoryHoweverItIsReached) {
    ASSERT_TRUE(QFile::link(QStringLiteral("a"), directory_.filePath(QStringLiteral("link"))));
    const auto first = make("a");
    const auto second = make("link/../a");
    const auto linked = make("link");
    const auto other = make("b");
    EXPECT_EQ(claim(first), Outcome::first);
    EXPECT_EQ(second->serviceName(), first->serviceName());
    EXPECT_EQ(linked->serviceName(), first->serviceName());
    EXPECT_EQ(claim(linked), Outcome::handedOver);
    EXPECT_NE(other->serviceName(), first->serviceName());
    EXPECT_EQ(claim(other), Outcome::first);
}

/// What the first and a later start can have of the two signs.
struct Signs {
    const char* name;
    bool hasBus;
    bool hasLock;
};

class EachSign : public Instances, public testing::WithParamInterface<Signs> {};

TEST_P(EachSign, KeepsALaterStartOutUntilTheFirstHasGone) {
    const char* const directory = GetParam().hasLock ? "a" : "missing";
    const auto start = [&] {
        return GetParam().hasBus ? make(directory) : make(directory, noBus_);
    };
    auto first = start();
    const auto second = start();
    // A call needs the bus.
    const Outcome whileItRuns = GetParam().hasBus ? Outcome::handedOver : Outcome::unanswered;
    ASSERT_EQ(claim(first), Outcome::first);
    EXPECT_EQ(claimInVain(second), whileItRuns);
    first->release();
    EXPECT_EQ(claim(second), Outcome::first);
    EXPECT_EQ(claimInVain(first), whileItRuns);
}

INSTANTIATE_TEST_SUITE_P(SingleInstance, EachSign,
                         testing::Values(Signs{"Both", true, true},
                                         Signs{"TheNameAlone", true, false},
                                         Signs{"TheLockAlone", false, true}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Instances, NeedNoSignAtAll) {
    EXPECT_EQ(claim(make("missing", noBus_)), Outcome::first);
}

TEST_F(Instances, HoldTheLockUntilTheyHaveEndedAlthoughTheyListenNoMore) {
    auto first = make("a");
    const auto second = make("a");
    ASSERT_EQ(claim(first), Outcome::first);
    first->stopListening();
    EXPECT_EQ(claimInVain(second), Outcome::unanswered);
    first.reset();
    EXPECT_EQ(claim(second), Outcome::first);
}

TEST_F(Instances, AreKnownByTheirNameWhereTheLocksFileWasRemoved) {
    const auto first = make("a");
    ASSERT_EQ(claim(first), Outcome::first);
    ASSERT_TRUE(QFile::remove(lockFile()));
    EXPECT_EQ(claim(make("a")), Outcome::handedOver);
}

/// Longer than a test may take, so that what comes has been told and was not found by looking.
constexpr std::chrono::hours noLimit{1};

TEST_F(Instances, AreCalledOnceTheyCanBe) {
    FileLock lock(lockFile());
    ASSERT_EQ(lock.tryTake(), FileLock::State::held);
    const auto second = make("a");
    test::Running<Outcome> claiming(second->claim(noLimit));
    test::drainEvents();
    const auto first = make("a", bus_.connect(), "another.lock");
    ASSERT_EQ(claim(first), Outcome::first);
    EXPECT_EQ(claiming.result(), Outcome::handedOver);
}

TEST_F(Instances, FollowAProcessAsSoonAsItHasEnded) {
    test::ChildProcess ending;
    ending.start({"flock", "--no-fork", lockFile().toStdString(), "sh", "-c",
                  "echo $$ >$0; echo ready; exec sleep 1000", lockFile().toStdString()});
    ASSERT_EQ(ending.readLine(10s), "ready");
    const auto second = make("a");
    test::Running<Outcome> claiming(second->claim(noLimit));
    test::drainEvents();
    ASSERT_TRUE(claiming.isRunning());
    ending.kill();
    EXPECT_EQ(claiming.result(), Outcome::first);
}

} // namespace
