// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/QuorvelProcess.h"

#include "Tests/Support/WaitUntil.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcessEnvironment>

#include <csignal>
#include <stdexcept>

namespace test {

namespace {

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

} // namespace

QuorvelProcess::QuorvelProcess() : directory_(std::make_shared<QTemporaryDir>()) {
    for (const char* const part : {"config/Quorvel", "data/Quorvel", "cache", "run"})
        QDir(directory_->path()).mkpath(QString::fromLatin1(part));
    QFile::setPermissions(directory_->filePath(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

QuorvelProcess::~QuorvelProcess() {
    if (!isRunning())
        return;
    process_.kill();
    process_.waitForFinished();
}

void QuorvelProcess::setExchange(const QUrl& rest, const QUrl& stream) {
    setPreference(QStringLiteral("exchange.restURL"), rest.toString());
    setPreference(QStringLiteral("exchange.streamURL"), stream.toString());
}

QString QuorvelProcess::watchlistPath() const {
    return directory_->filePath(QStringLiteral("data/Quorvel/watchlist.json"));
}

QString QuorvelProcess::alertsPath() const {
    return directory_->filePath(QStringLiteral("data/Quorvel/alerts.json"));
}

void QuorvelProcess::writeAlerts(const QByteArray& json) const {
    write(alertsPath(), json);
}

void QuorvelProcess::writeWatchlist(const QByteArray& json) const {
    write(watchlistPath(), json);
}

void QuorvelProcess::writePreferences() const {
    QByteArray lines("[General]\n");
    for (const auto [key, value] : preferences_.asKeyValueRange())
        lines += key.toUtf8() + '=' + value.toUtf8() + '\n';
    write(directory_->filePath(QStringLiteral("config/Quorvel/Quorvel.conf")), lines);
}

void QuorvelProcess::start() {
    if (!preferences_.isEmpty())
        writePreferences();
    auto environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&](const char* name, const char* folder) {
        environment.insert(QString::fromLatin1(name),
                           directory_->filePath(QString::fromLatin1(folder)));
    };
    set("XDG_CONFIG_HOME", "config");
    set("XDG_DATA_HOME", "data");
    set("XDG_CACHE_HOME", "cache");
    set("XDG_RUNTIME_DIR", "run");
    const QString platform = QStringLiteral("QT_QPA_PLATFORM");
    if (usesDisplay_)
        environment.remove(platform);
    else
        environment.insert(platform, QStringLiteral("offscreen"));
    process_.setProcessEnvironment(environment);
    process_.start(QStringLiteral(QUORVEL_EXECUTABLE), {});
    if (!process_.waitForStarted())
        throw std::runtime_error("the program does not start");
}

void QuorvelProcess::sendSignal(int number) const {
    ::kill(static_cast<pid_t>(process_.processId()), number);
}

std::optional<int> QuorvelProcess::waitForEnd() {
    if (!waitUntil([this] { return !isRunning(); }) ||
        process_.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return process_.exitCode();
}

std::map<std::string, std::pair<std::string, QDateTime>> QuorvelProcess::files() const {
    std::map<std::string, std::pair<std::string, QDateTime>> found;
    for (const char* const part : {"config", "data"}) {
        QDirIterator each(directory_->filePath(QString::fromLatin1(part)),
                          QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (each.hasNext()) {
            const QString path = each.next();
            QFile file(path);
            const bool isFile = file.open(QIODevice::ReadOnly);
            found[path.toStdString()] = {isFile ? file.readAll().toStdString() : "",
                                         each.fileInfo().lastModified()};
        }
    }
    return found;
}

QString QuorvelProcess::itemService() const {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(process_.processId());
}

} // namespace test
