// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/LiveSession.h"
#include "Tests/Support/WaitUntil.h"

#include <QDBusConnectionInterface>

#include <gmock/gmock.h>

#include <csignal>

using namespace std::chrono_literals;
using test::QuorvelProcess;
using test::waitUntil;
using testing::HasSubstr;

namespace {

class SecondStart : public test::LiveSession {
protected:
    /// Starts the program once more in the first one's profile. Its exit status, and how long it
    /// took.
    std::pair<std::optional<int>, std::chrono::milliseconds> startAgain() {
        QElapsedTimer timer;
        timer.start();
        second_.start();
        const auto status = second_.waitForEnd();
        return {status, std::chrono::milliseconds(timer.elapsed())};
    }

    /// The processes that can be called from a second start.
    std::vector<qint64> listeners() const {
        std::vector<qint64> processes;
        for (const QString& name : panelBus_.interface()->registeredServiceNames().value()) {
            if (name.startsWith(QStringLiteral("org.quorvel.Quorvel.")))
                processes.push_back(panelBus_.interface()->servicePid(name).value());
        }
        return processes;
    }

    QuorvelProcess second_{quorvel_.profile()};
};

TEST_F(SecondStart, OpensThePanelOfTheFirstAndEnds) {
    start();
    const auto files = quorvel_.files();
    EXPECT_THAT(listeners(), testing::ElementsAre(quorvel_.processId()));
    EXPECT_EQ(requestCount(u"/api/v3/klines"), 0);
    const auto [status, duration] = startAgain();
    EXPECT_EQ(status, 0);
    EXPECT_LT(duration, 1s);
    EXPECT_EQ(second_.messages(), "");
    // What the panel does first, and what shows from outside.
    EXPECT_TRUE(waitUntil([this] { return requestCount(u"/api/v3/klines") == 3; }));
    EXPECT_EQ(quorvel_.files(), files);
    EXPECT_TRUE(quorvel_.isRunning());
}

TEST_F(SecondStart, ReportsAFirstThatDoesNotAnswer) {
    start();
    quorvel_.sendSignal(SIGSTOP);
    const auto files = quorvel_.files();
    const auto [status, duration] = startAgain();
    EXPECT_EQ(status, 1);
    EXPECT_GE(duration, 2s);
    EXPECT_LT(duration, 3s);
    EXPECT_THAT(second_.messages(), HasSubstr(std::to_string(quorvel_.processId())));
    EXPECT_EQ(quorvel_.files(), files);
    quorvel_.sendSignal(SIGCONT);
    EXPECT_TRUE(showsPrices());
}

TEST_F(SecondStart, ReportsAFirstInAnotherSession) {
    start();
    const test::PrivateBus otherSession;
    const auto [status, duration] = startAgain();
    EXPECT_EQ(status, 1);
    EXPECT_THAT(second_.messages(), HasSubstr(std::to_string(quorvel_.processId())));
    EXPECT_TRUE(quorvel_.isRunning());
}

TEST_F(SecondStart, TakesOverFromAFirstThatDied) {
    start();
    quorvel_.sendSignal(SIGKILL);
    EXPECT_EQ(quorvel_.waitForEnd(), std::nullopt);
    quorvel_.start();
    EXPECT_TRUE(waitUntil([this] { return isRegistered(); }));
    EXPECT_THAT(listeners(), testing::ElementsAre(quorvel_.processId()));
}

TEST_F(SecondStart, LeavesOneOfSeveralAtTheSameInstant) {
    QuorvelProcess third(quorvel_.profile());
    quorvel_.start();
    second_.start();
    third.start();
    const auto running = [&] {
        return quorvel_.isRunning() + second_.isRunning() + third.isRunning();
    };
    EXPECT_TRUE(waitUntil([&] { return running() == 1; }));
    for (QuorvelProcess* const process : {&quorvel_, &second_, &third}) {
        if (process->isRunning())
            EXPECT_THAT(listeners(), testing::ElementsAre(process->processId()));
        else
            EXPECT_EQ(process->waitForEnd(), 0);
    }
}

TEST_F(SecondStart, RunsInAnotherProfile) {
    start();
    QuorvelProcess other;
    other.setExchange(simulator_.restURL(), simulator_.streamURL());
    other.start();
    EXPECT_TRUE(waitUntil([&] { return watcher_->registered().contains(other.itemService()); }));
    EXPECT_EQ(listeners().size(), 2U);
    EXPECT_TRUE(quorvel_.isRunning());
}

} // namespace
