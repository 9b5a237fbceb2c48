// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace test {

/// The program in a process of its own, and the profile that it runs in. Killed with this object if
/// it still runs.
class QuorvelProcess {
public:
    /// With a profile of its own.
    QuorvelProcess();

    /// In the profile of another one. What it prints as errors is kept for `messages`.
    explicit QuorvelProcess(std::shared_ptr<QTemporaryDir> profile)
        : directory_(std::move(profile)) {}

    QuorvelProcess(const QuorvelProcess&) = delete;
    QuorvelProcess& operator=(const QuorvelProcess&) = delete;
    ~QuorvelProcess();

    /// A line of the preferences file. Before `start`, which leaves the file alone where there is
    /// none.
    void setPreference(const QString& key, const QString& value) { preferences_[key] = value; }

    /// The exchange that the preferences name.
    void setExchange(const QUrl& rest, const QUrl& stream);

    /// The bytes of the watchlist file. Before `start`.
    void writeWatchlist(const QByteArray& json) const;

    /// The bytes of the alerts file. Before `start`.
    void writeAlerts(const QByteArray& json) const;

    QString watchlistPath() const;
    QString alertsPath() const;

    /// Shows it on the display that the environment names, in the way it finds itself. Before
    /// `start`.
    void useDisplay() { usesDisplay_ = true; }

    /// Starts the program on the session bus that the environment names, without a display unless
    /// told to use one.
    void start();

    bool isRunning() const { return process_.state() != QProcess::NotRunning; }

    void sendSignal(int number) const;

    /// The exit status once the program has ended by itself; absent when it crashed or does not end
    /// within ten seconds. Lets the event loop run.
    std::optional<int> waitForEnd();

    /// What it has printed as errors; empty where the profile is its own.
    std::string messages() { return process_.readAllStandardError().toStdString(); }

    /// The directory of its files.
    const std::shared_ptr<QTemporaryDir>& profile() const { return directory_; }

    qint64 processId() const { return process_.processId(); }

    /// Every file of the profile but those that go with the session: the path, then the content and
    /// when it was last changed.
    std::map<std::string, std::pair<std::string, QDateTime>> files() const;

    /// The well-known name under which its status item is on the bus.
    QString itemService() const;

private:
    void writePreferences() const;

    std::shared_ptr<QTemporaryDir> directory_;
    QMap<QString, QString> preferences_;
    bool usesDisplay_ = false;
    QProcess process_;
};

} // namespace test
