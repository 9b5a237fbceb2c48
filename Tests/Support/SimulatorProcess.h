// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Support/ChildProcess.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QUrl>

#include <chrono>
#include <optional>

namespace test {

/// An exchange simulator in a process of its own, started with prices that stand still. Ends with
/// its owner, and with the test's process.
///
/// Every call blocks until it is done, 10 seconds at most, and does not run the caller's event
/// loop: a client under test on the same thread sees what happened only when the test lets it.
/// Calls throw std::runtime_error when the simulator does not do what it is told.
class SimulatorProcess {
public:
    /// Starts it and waits until it listens.
    SimulatorProcess();
    ~SimulatorProcess();
    Q_DISABLE_COPY_MOVE(SimulatorProcess)

    quint16 port() const { return port_; }
    /// The base of the REST interface, without a path.
    QUrl restURL() const;
    /// The combined stream's endpoint, without a query.
    QUrl streamURL() const;

    /// Makes the control call `name`, such as "push", and gives its answer.
    QJsonObject control(const QString& name, const QJsonObject& parameters = {}) const;
    /// The same with the parameters as JSON.
    QJsonObject control(const char* name, const QByteArray& parameters) const;

    /// The events numbered above `number`.
    QJsonArray log(qint64 number = 0) const;

    /// The details of the events of that kind numbered above `number`.
    QList<QJsonObject> details(const QString& kind, qint64 number = 0) const;

    /// Waits until there are `count` events of that kind or the time is over, and gives the details
    /// of those there are.
    QList<QJsonObject>
    waitForDetails(const QString& kind, qsizetype count = 1,
                   std::chrono::milliseconds timeout = std::chrono::seconds(5)) const;

    QJsonObject state() const { return control(QStringLiteral("state")); }

    /// How many stream connections are open.
    qsizetype connectionCount() const { return state()[u"connectionCount"].toInt(); }

    /// The code with which the latest stream connection was closed, waiting for the first of them;
    /// absent where there is none or it went without.
    std::optional<int> closeCode() const;

    /// Ends it by SIGKILL.
    void kill();

private:
    ChildProcess process_;
    quint16 port_ = 0;
};

} // namespace test
