#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <optional>

namespace test {

/// The program in a process and a profile of its own. Killed with this object if it still runs.
class QuorvelProcess {
public:
    QuorvelProcess();
    QuorvelProcess(const QuorvelProcess&) = delete;
    QuorvelProcess& operator=(const QuorvelProcess&) = delete;
    ~QuorvelProcess();

    /// A line of the preferences file. Before `start`.
    void setPreference(const QString& key, const QString& value) { preferences_[key] = value; }

    /// The exchange that the preferences name.
    void setExchange(const QUrl& rest, const QUrl& stream);

    /// The bytes of the watchlist file. Before `start`.
    void writeWatchlist(const QByteArray& json) const;

    /// The bytes of the alerts file. Before `start`.
    void writeAlerts(const QByteArray& json) const;

    QString watchlistPath() const;
    QString alertsPath() const;

    /// Starts the program on the session bus that the environment names, without a display.
    void start();

    bool isRunning() const { return process_.state() != QProcess::NotRunning; }

    void sendSignal(int number) const;

    /// The exit status once the program has ended by itself; absent when it crashed or does not end
    /// within ten seconds. Lets the event loop run.
    std::optional<int> waitForEnd();

    /// The well-known name under which its status item is on the bus.
    QString itemService() const;

private:
    void writePreferences() const;

    QTemporaryDir directory_;
    QMap<QString, QString> preferences_;
    QProcess process_;
};

} // namespace test
