#include "Tests/Support/PrivateBus.h"

#include <QDBusError>
#include <QFile>
#include <QUuid>

namespace test {

PrivateBus::PrivateBus() {
    daemon_.setStandardErrorFile(QProcess::nullDevice());
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--config-file=") + writeConfiguration(),
                   QStringLiteral("--print-address"), QStringLiteral("--nofork")});
    while (!daemon_.canReadLine()) {
        if (!daemon_.waitForReadyRead(10'000))
            qFatal("dbus-daemon does not start: %s", qPrintable(daemon_.errorString()));
    }
    address_ = QString::fromLocal8Bit(daemon_.readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toLocal8Bit());
}

PrivateBus::~PrivateBus() {
    for (const QString& name : connections_)
        QDBusConnection::disconnectFromBus(name);
    stop();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void PrivateBus::stop() {
    if (daemon_.state() == QProcess::NotRunning)
        return;
    daemon_.terminate();
    if (!daemon_.waitForFinished(5'000))
        daemon_.kill();
    daemon_.waitForFinished();
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
