// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Bus/PrivateBus.h"

#include <QDBusError>
#include <QFile>
#include <QUuid>

namespace test {

PrivateBus::PrivateBus() {
    // The shell keeps the daemon's remarks on its limits out of the test's output.
    daemon_.start({"sh", "-c", R"(exec dbus-daemon "$@" 2>/dev/null)", "dbus-daemon",
                   "--config-file=" + writeConfiguration().toStdString(), "--print-address",
                   "--nofork"});
    address_ = QString::fromStdString(daemon_.readLine(std::chrono::seconds(10)));
    if (address_.isEmpty())
        qFatal("dbus-daemon does not start");
    qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toLocal8Bit());
}

PrivateBus::~PrivateBus() {
    for (const QString& name : connections_)
        QDBusConnection::disconnectFromBus(name);
    stop();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void PrivateBus::stop() {
    daemon_.kill();
}

QDBusConnection PrivateBus::connect() {
    connections_.append(QUuid::createUuid().toString());
    const auto connection = QDBusConnection::connectToBus(address_, connections_.back());
    if (!connection.isConnected())
        qFatal("Cannot connect to the bus: %s", qPrintable(connection.lastError().message()));
    return connection;
}

QString PrivateBus::writeConfiguration() const {
    QFile file(directory_.filePath(QStringLiteral("bus.conf")));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("Cannot write the configuration of the bus");
    file.write("<busconfig><type>session</type><listen>unix:dir=");
    file.write(directory_.path().toLocal8Bit());
    file.write(R"(</listen><policy context="default"><allow send_destination="*"/>)"
               R"(<allow receive_sender="*"/><allow own="*"/></policy></busconfig>)");
    return file.fileName();
}

} // namespace test
