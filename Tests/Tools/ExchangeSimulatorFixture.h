// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Support/SimulatorProcess.h"
#include "Tests/Tools/RawClient.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <memory>

namespace test {

inline QJsonObject object(const QByteArray& json) {
    return QJsonDocument::fromJson(json).object();
}
inline QJsonArray array(const QByteArray& json) {
    return QJsonDocument::fromJson(json).array();
}
inline QString text(const QJsonValue& value) {
    return value.toString();
}

/// A simulator of its own for each test, and short ways to talk to it.
class ExchangeSimulatorTest : public testing::Test {
protected:
    /// The target of the stream that most tests open.
    inline static const QByteArray bitcoinStream = "/stream?streams=btcusdt@ticker";

    QJsonObject control(const char* name, const QByteArray& json = "{}") {
        return simulator.control(name, json);
    }
    RawClient::Answer get(const QByteArray& target) {
        return RawClient(simulator.port()).get(target);
    }
    QList<QJsonObject> logged(const char* kind, qsizetype count = 1) {
        return simulator.waitForDetails(QString::fromLatin1(kind), count);
    }
    /// A client with its handshake behind it.
    std::unique_ptr<RawClient> stream(const QByteArray& target = bitcoinStream) {
        auto client = std::make_unique<RawClient>(simulator.port());
        EXPECT_TRUE(client->handshake(target).startsWith("HTTP/1.1 101 "));
        return client;
    }

    /// The next frame that the client gets; the test fails where none comes.
    static RawClient::Frame next(RawClient& client) {
        const std::optional<RawClient::Frame> frame = client.nextFrame();
        EXPECT_TRUE(frame);
        return frame.value_or(RawClient::Frame());
    }
    /// The event that the next frame carries.
    static QJsonObject nextEvent(RawClient& client) {
        return object(next(client).payload)[u"data"].toObject();
    }

    SimulatorProcess simulator;
};

} // namespace test
