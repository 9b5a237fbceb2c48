// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/SimulatorProcess.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QThread>

#include <stdexcept>

namespace test {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 10s;
constexpr int patienceMs = patience.count();

QByteArray request(const QString& name, const QJsonObject& parameters) {
    const QByteArray body = QJsonDocument(parameters).toJson(QJsonDocument::Compact);
    return "POST /control/" + name.toUtf8() +
           " HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

/// The body of the answer to one request on a connection of its own.
QByteArray exchange(quint16 port, const QByteArray& bytes) {
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    if (!socket.waitForConnected(patienceMs))
        throw std::runtime_error("simulator: " + socket.errorString().toStdString());
    socket.write(bytes);
    QByteArray answer;
    while (socket.waitForReadyRead(patienceMs))
        answer += socket.readAll();
    const qsizetype headEnd = answer.indexOf("\r\n\r\n");
    if (!answer.startsWith("HTTP/1.1 200 ") || headEnd < 0)
        throw std::runtime_error("simulator answered: " + answer.left(1000).toStdString());
    return answer.mid(headEnd + 4);
}

} // namespace

SimulatorProcess::SimulatorProcess() {
    process_.start({QUORVEL_SIMULATOR, "--quiet"});
    static const QRegularExpression address(
        QStringLiteral("^listening on http://127\\.0\\.0\\.1:(\\d+)$"));
    const QString line = QString::fromStdString(process_.readLine(patience));
    const QRegularExpressionMatch match = address.match(line);
    if (!match.hasMatch())
        throw std::runtime_error("the simulator did not start: " + line.toStdString());
    port_ = match.captured(1).toUShort();
}

SimulatorProcess::~SimulatorProcess() {
    kill();
}

QUrl SimulatorProcess::restURL() const {
    return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(port_));
}

QUrl SimulatorProcess::streamURL() const {
    return QUrl(QStringLiteral("ws://127.0.0.1:%1/stream").arg(port_));
}

QJsonObject SimulatorProcess::control(const QString& name, const QJsonObject& parameters) const {
    return QJsonDocument::fromJson(exchange(port_, request(name, parameters))).object();
}

QJsonObject SimulatorProcess::control(const char* name, const QByteArray& parameters) const {
    const QJsonDocument document = QJsonDocument::fromJson(parameters);
    if (!document.isObject())
        throw std::logic_error("not a JSON object: " + parameters.toStdString());
    return control(QString::fromUtf8(name), document.object());
}

QJsonArray SimulatorProcess::log(qint64 number) const {
    const QByteArray body =
        exchange(port_, request(QStringLiteral("log"), {{QStringLiteral("since"), number}}));
    return QJsonDocument::fromJson(body).array();
}

QList<QJsonObject> SimulatorProcess::details(const QString& kind, qint64 number) const {
    QList<QJsonObject> found;
    for (const auto event : log(number)) {
        if (event[QLatin1String("kind")].toString() == kind)
            found.append(event[QLatin1String("detail")].toObject());
    }
    return found;
}

QList<QJsonObject> SimulatorProcess::waitForDetails(const QString& kind, qsizetype count,
                                                    std::chrono::milliseconds timeout) const {
    const auto end = std::chrono::steady_clock::now() + timeout;
    QList<QJsonObject> found = details(kind);
    while (found.size() < count && std::chrono::steady_clock::now() < end) {
        QThread::msleep(10);
        found = details(kind);
    }
    return found;
}

std::optional<int> SimulatorProcess::closeCode() const {
    const auto closed = waitForDetails(QStringLiteral("streamClosed"));
    if (closed.isEmpty() || !closed.last()[u"code"].isDouble())
        return std::nullopt;
    return closed.last()[u"code"].toInt();
}

void SimulatorProcess::kill() {
    process_.kill();
}

} // namespace test
