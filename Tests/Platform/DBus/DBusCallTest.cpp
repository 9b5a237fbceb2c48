// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/DBus/DBusCall.h"

#include "Platform/DBus/ServiceError.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"

#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

using namespace platform;
using namespace std::chrono_literals;

namespace {

/// Another program on the bus that never answers by itself.
class Peer : public QDBusVirtualObject {
public:
    explicit Peer(const QDBusConnection& bus) : bus_(bus) {
        bus_.registerVirtualObject(QStringLiteral("/peer"), this);
    }
    ~Peer() override { bus_.unregisterObject(QStringLiteral("/peer")); }

    QDBusMessage method() const {
        return QDBusMessage::createMethodCall(bus_.baseService(), QStringLiteral("/peer"),
                                              QStringLiteral("com.example.Peer"),
                                              QStringLiteral("Ask"));
    }
    QString connectionName() const { return bus_.name(); }
    bool isAsked() const { return call_.has_value(); }
    void answer(int value) { bus_.send(takeCall().createReply(value)); }
    void refuse(const QString& error) { bus_.send(takeCall().createErrorReply(error, QString())); }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        call_ = message;
        return true;
    }
    QString introspect(const QString&) const override { return {}; }

private:
    QDBusMessage takeCall() { return std::exchange(call_, {}).value(); }

    QDBusConnection bus_;
    std::optional<QDBusMessage> call_;
};

class DBusCallTest : public testing::Test {
protected:
    Task<int> ask(QDBusMessage message) {
        const QDBusMessage answer = co_await DBusCall(client_, message, clock_, 3s);
        co_return answer.arguments().value(0).toInt();
    }

    /// Asks the peer, and waits until the question is there.
    void askPeer() {
        asking_.emplace(ask(peer_->method()));
        ASSERT_TRUE(test::waitUntil([&] { return peer_->isAsked(); }));
    }

    void expectError(ServiceError::Code code) {
        try {
            asking_->result();
            ADD_FAILURE() << "no error";
        } catch (const ServiceError& error) {
            EXPECT_EQ(error.code(), code) << error.what();
            EXPECT_FALSE(error.localizedDescription().isEmpty());
        }
    }

    test::ManualClock clock_;
    test::PrivateBus bus_;
    std::unique_ptr<Peer> peer_ = std::make_unique<Peer>(bus_.connect());
    QDBusConnection client_ = bus_.connect();
    std::optional<test::Running<int>> asking_;
};

TEST_F(DBusCallTest, GivesAnAnswerThatComesJustInTimeAndStopsItsTimer) {
    askPeer();
    clock_.advance(2999ms);
    EXPECT_TRUE(asking_->isRunning());
    peer_->answer(7);
    EXPECT_EQ(asking_->result(), 7);
    EXPECT_EQ(clock_.timerCount(), 0U);
}

TEST_F(DBusCallTest, FailsWhenTheTimeIsUpAndDropsALateAnswer) {
    askPeer();
    clock_.advance(3s);
    EXPECT_FALSE(asking_->isRunning());
    expectError(ServiceError::Code::unanswered);
    peer_->answer(7);
    askPeer();
    peer_->answer(8);
    EXPECT_EQ(asking_->result(), 8);
}

TEST_F(DBusCallTest, CountsTheTimeFromTheCallNotFromTheWait) {
    auto call = std::make_unique<DBusCall>(client_, peer_->method(), clock_, 3s);
    EXPECT_FALSE(call->isReady());
    clock_.advance(3s);
    EXPECT_TRUE(call->isReady());
    EXPECT_THROW(call->take(), ServiceError);
}

TEST_F(DBusCallTest, NamesTheKindOfError) {
    using enum ServiceError::Code;
    const auto standard = [](const char* name) {
        return QStringLiteral("org.freedesktop.DBus.Error.") + QLatin1StringView(name);
    };
    const std::vector<std::pair<QString, ServiceError::Code>> cases{
        {standard("ServiceUnknown"), unavailable},
        {standard("NameHasNoOwner"), unavailable},
        {standard("Spawn.ChildExited"), unavailable},
        {standard("NoReply"), unanswered},
        {standard("UnknownMethod"), refused},
        {QStringLiteral("com.example.Error.Busy"), refused},
    };
    for (const auto& [name, code] : cases) {
        SCOPED_TRACE(qPrintable(name));
        askPeer();
        peer_->refuse(name);
        expectError(code);
    }
}

TEST_F(DBusCallTest, FailsWhereNobodyIsAsked) {
    const auto elsewhere = QDBusMessage::createMethodCall(
        QStringLiteral("com.example.Absent"), QStringLiteral("/peer"),
        QStringLiteral("com.example.Peer"), QStringLiteral("Ask"));
    asking_.emplace(ask(elsewhere));
    expectError(ServiceError::Code::unavailable);

    client_ = QDBusConnection(QStringLiteral("never connected"));
    asking_.emplace(ask(peer_->method()));
    expectError(ServiceError::Code::unavailable);
}

TEST_F(DBusCallTest, FailsWhenThePeerGoesWithoutAnAnswer) {
    askPeer();
    const QString connection = peer_->connectionName();
    peer_.reset(); // closed with the last that holds it
    QDBusConnection::disconnectFromBus(connection);
    expectError(ServiceError::Code::unanswered);
}

TEST_F(DBusCallTest, FailsWhenTheBusGoes) {
    askPeer();
    bus_.stop();
    expectError(ServiceError::Code::unavailable);
    asking_.emplace(ask(peer_->method()));
    expectError(ServiceError::Code::unavailable);
}

} // namespace
