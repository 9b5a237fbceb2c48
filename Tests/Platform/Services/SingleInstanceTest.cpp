// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/SingleInstance.h"

#include "Tests/Support/Bus/BusPeer.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace std::chrono_literals;
using platform::SingleInstance;
using Outcome = SingleInstance::Outcome;

namespace {

/// Starts of one program in this process. As they block its only thread, none answers another while
/// that one starts.
class Instances : public testing::Test {
protected:
    Instances() {
        for (const char* const name : {"a", "b"})
            directory_.mkdir(QString::fromLatin1(name));
    }

    std::unique_ptr<SingleInstance> make(const char* directory) {
        return make(directory, bus_.connect());
    }

    std::unique_ptr<SingleInstance> make(const char* directory, const QDBusConnection& bus) {
        return std::make_unique<SingleInstance>(
            SingleInstance::Identity{QStringLiteral("org.example.Program"), QStringLiteral("Show"),
                                     QStringLiteral("program.lock")},
            directory_.filePath(QString::fromLatin1(directory)), bus);
    }

    static Outcome claim(const std::unique_ptr<SingleInstance>& instance) {
        return instance->claim(60ms);
    }

    QString lockFile() const { return directory_.filePath(QStringLiteral("a/program.lock")); }

    QTemporaryDir temporary_;
    QDir directory_{temporary_.path()};
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
    EXPECT_EQ(claim(linked), Outcome::unanswered);
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
    ASSERT_EQ(claim(first), Outcome::first);
    EXPECT_EQ(claim(second), Outcome::unanswered);
    first->release();
    EXPECT_EQ(claim(second), Outcome::first);
    EXPECT_EQ(claim(first), Outcome::unanswered);
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
    EXPECT_EQ(claim(second), Outcome::unanswered);
    first.reset();
    EXPECT_EQ(claim(second), Outcome::first);
}

TEST_F(Instances, AreKnownByTheirNameWhereTheLocksFileWasRemoved) {
    const auto first = make("a");
    ASSERT_EQ(claim(first), Outcome::first);
    ASSERT_TRUE(QFile::remove(lockFile()));
    EXPECT_EQ(claim(make("a")), Outcome::unanswered);
}

} // namespace
