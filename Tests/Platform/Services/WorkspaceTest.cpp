// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/Workspace.h"

#include "Platform/Foundation/FileManager.h"
#include "Tests/Support/Bus/FakeLoginManager.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

using namespace platform;
using namespace std::chrono_literals;
using test::FakeLoginManager;
using test::waitUntil;
using testing::ElementsAre;

namespace {

/// A workspace between a login manager and a program that writes down what it is told, and holds
/// sleep off where it is to.
class WorkspaceTest : public testing::Test {
protected:
    void start() {
        workspace_.emplace(Workspace::Program{QStringLiteral("Quorvel"), QStringLiteral("closing"),
                                              directory_.filePath(QStringLiteral("program"))},
                           bus_.connect(), clock_);
        observe(Workspace::willSleepNotification, "sleep");
        observe(Workspace::didWakeNotification, "wake");
    }

    void startWithLock() {
        start();
        ASSERT_TRUE(holdsLocks(1));
    }

    void observe(const QString& name, const char* note) {
        std::ignore = workspace_->notificationCenter().addObserver(name, [this, note] {
            told_.emplace_back(note);
            if (isBusy_)
                work_ = workspace_->delaySleep();
        });
    }

    /// Whether that many locks come to be held.
    bool holdsLocks(int count) const {
        return waitUntil([&] { return manager_->heldLocks() == count; }, 2s);
    }

    bool isTold(std::size_t count) const {
        return waitUntil([&] { return told_.size() == count; }, 2s);
    }

    test::PrivateBus bus_;
    test::ManualClock clock_;
    QTemporaryDir directory_;
    QDBusConnection managerBus_ = bus_.connect();
    std::optional<FakeLoginManager> manager_{managerBus_};
    std::optional<Workspace> workspace_;
    std::vector<std::string> told_;
    bool isBusy_ = false; ///< whether there is something to do before sleep
    SleepAssertion work_;
};

TEST_F(WorkspaceTest, HoldsADelayLockWhileItLives) {
    startWithLock();
    EXPECT_THAT(manager_->requests(),
                ElementsAre(QStringList({QStringLiteral("sleep"), QStringLiteral("Quorvel"),
                                         QStringLiteral("closing"), QStringLiteral("delay")})));
    workspace_.reset();
    EXPECT_TRUE(holdsLocks(0));
}

TEST_F(WorkspaceTest, LetsTheMachineSleepWhenTheWorkIsDoneAndTakesAnotherLockOnWaking) {
    startWithLock();
    isBusy_ = true;
    for (std::size_t round = 1; round <= 2; ++round) {
        manager_->announce(true);
        ASSERT_TRUE(isTold(2 * round - 1));
        test::drainEvents();
        EXPECT_EQ(manager_->heldLocks(), 1) << "the work has not ended";
        work_.reset();
        EXPECT_TRUE(holdsLocks(0));
        manager_->announce(false);
        ASSERT_TRUE(isTold(2 * round));
        EXPECT_TRUE(holdsLocks(1));
        work_.reset(); // nothing sleeps; the lock stays the workspace's
        test::drainEvents();
        EXPECT_EQ(manager_->heldLocks(), 1);
    }
    EXPECT_THAT(told_, ElementsAre("sleep", "wake", "sleep", "wake"));
}

TEST_F(WorkspaceTest, LetsTheMachineSleepAtOnceWhereNobodyWorks) {
    startWithLock();
    manager_->announce(true);
    ASSERT_TRUE(isTold(1));
    EXPECT_TRUE(holdsLocks(0));
}

TEST_F(WorkspaceTest, DoesNotLetWorkDelaySleepForEver) {
    startWithLock();
    isBusy_ = true;
    manager_->announce(true);
    ASSERT_TRUE(isTold(1));
    clock_.advance(Workspace::longestDelay - 1ms);
    EXPECT_EQ(manager_->heldLocks(), 1);
    clock_.advance(1ms);
    EXPECT_TRUE(holdsLocks(0));
    EXPECT_TRUE(work_);
}

TEST_F(WorkspaceTest, KeepsNoLockOfASleepThatIsOver) {
    startWithLock();
    isBusy_ = true;
    manager_->announce(true);
    manager_->announce(false);
    ASSERT_TRUE(isTold(2));
    ASSERT_TRUE(waitUntil([&] { return manager_->requests().size() == 2; }));
    EXPECT_TRUE(holdsLocks(1)) << "the one of now, whatever has become of the work";
}

TEST_F(WorkspaceTest, DropsALockThatComesTooLate) {
    manager_->setHabit(FakeLoginManager::Habit::hold);
    start();
    ASSERT_TRUE(waitUntil([&] { return manager_->requests().size() == 1; }));
    manager_->announce(true);
    ASSERT_TRUE(isTold(1));
    manager_->grantHeld();
    EXPECT_TRUE(holdsLocks(0));
    manager_->setHabit(FakeLoginManager::Habit::grant);
    manager_->announce(false);
    EXPECT_TRUE(holdsLocks(1));
}

TEST_F(WorkspaceTest, TellsOfSleepAlsoWithoutALock) {
    manager_->setHabit(FakeLoginManager::Habit::refuse);
    start();
    ASSERT_TRUE(waitUntil([&] { return manager_->requests().size() == 1; }));
    isBusy_ = true;
    manager_->announce(true);
    manager_->announce(false);
    ASSERT_TRUE(isTold(2));
    EXPECT_THAT(told_, ElementsAre("sleep", "wake"));
}

TEST_F(WorkspaceTest, AsksALoginManagerThatComesLaterOrAgain) {
    manager_.reset();
    start();
    test::drainEvents();
    manager_.emplace(managerBus_);
    EXPECT_TRUE(holdsLocks(1));
    manager_.emplace(managerBus_);
    EXPECT_TRUE(holdsLocks(1));
    EXPECT_THAT(told_, ElementsAre());
}

TEST_F(WorkspaceTest, WakesWhenTheLoginManagerGoesWhileTheMachineSleeps) {
    startWithLock();
    manager_->announce(true);
    ASSERT_TRUE(isTold(1));
    manager_.reset();
    ASSERT_TRUE(isTold(2));
    manager_.emplace(managerBus_);
    EXPECT_TRUE(holdsLocks(1));
    EXPECT_THAT(told_, ElementsAre("sleep", "wake"));
}

TEST_F(WorkspaceTest, NeedsNoBus) {
    const Workspace workspace({}, QDBusConnection(QStringLiteral("none")), clock_);
    test::drainEvents();
    EXPECT_FALSE(workspace.delaySleep());
}

TEST_F(WorkspaceTest, StartsAnotherInstanceThatLivesOnItsOwn) {
    start();
    EXPECT_FALSE(workspace_->openNewInstance()) << "there is no program";
    const QString program = directory_.filePath(QStringLiteral("program"));
    FileManager::writeAtomically("#!/bin/sh\necho $# >\"$0.new\"\nps -o sid= $$ >>\"$0.new\"\n"
                                 "mv \"$0.new\" \"$0.started\"\n",
                                 program);
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_TRUE(workspace_->openNewInstance());
    const QString trace = program + QStringLiteral(".started");
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(trace); }));
    const auto lines = FileManager::contents(trace)->split('\n');
    EXPECT_EQ(lines[0], "0") << "arguments";
    EXPECT_NE(lines[1].trimmed().toInt(), ::getsid(0)) << "a session of its own";
}

} // namespace
