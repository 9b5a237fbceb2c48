// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Shell/AppDelegate.h"
#include "Tests/Quorvel/Application/WindowUser.h"
#include "Tests/Support/Bus/BusPeer.h"
#include "Tests/Support/Bus/FakeLoginManager.h"
#include "Tests/Support/Bus/FakeNotificationService.h"
#include "Tests/Support/Bus/FakeStatusNotifierWatcher.h"
#include "Tests/Support/Bus/PrivateBus.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/ScriptedProvider.h"

#include <QTemporaryDir>

#include <chrono>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace test {

/// The whole program as main composes it, on a desktop of its own: real files and buses, a panel, a
/// notification service and a login manager that are fakes, prices as the test wants them, and a
/// clock that the test moves.
class ComposedApplication {
public:
    ComposedApplication();
    ComposedApplication(const ComposedApplication&) = delete;
    ComposedApplication& operator=(const ComposedApplication&) = delete;
    ~ComposedApplication();

    /// What earlier runs left behind; before `launch`.
    void haveWatchlist(std::initializer_list<const char*> bases);
    void havePreferences(const QByteArray& lines);

    /// Starts the program, and waits for the panel to show its item. @param pairs that can be
    /// watched; the list stays out where empty
    void launch(std::initializer_list<const char*> pairs = {});

    /// The exchange answers with its pairs.
    void deliverPairs(std::initializer_list<const char*> bases);

    /// The stream brings a price and the change in percent.
    void quote(const char* base, const char* price, const char* change = "1");

    /// The exchange's connection tells what became of it; the other side is heard but for a loss.
    void report(const quorvel::ConnectionEvent& event);

    void pass(std::chrono::nanoseconds time);

    /// What the user does to the item in the panel; its entries by their texts.
    void clickItem();
    void chooseFromItemMenu(const QString& entry);

    /// The text beside the item's icon; empty where there is none.
    std::string label();

    /// A property of the run's item of that number; empty where there is none.
    QString itemProperty(const char* name, int ordinal);

    /// The icon as panels that read files show it.
    QImage icon();

    /// What the item's tooltip tells below its first line.
    QString toolTipBody();

    /// Whether the item says that prices are not live.
    bool isOutageShown() { return !toolTipBody().isEmpty(); }

    /// Windows that are to be seen; throws where one is not.
    bool isPanelOpen() const { return findWindow("Quorvel", false) != nullptr; }
    WindowUser panel() const;
    bool isSettingsOpen() const { return findWindow("Quorvel Settings", false) != nullptr; }
    WindowUser settings() const;
    FakeStatusNotifierWatcher& watcher() { return *watcher_; }
    bool isStripShown() const { return findWindow("Quorvel", true) != nullptr; }
    WindowUser strip() const;
    QWidget& row(const char* base) const { return panel().control(pairName(base)); }

    /// Opens them as the user does.
    WindowUser openPanel();
    WindowUser openSettings();

    /// Another program's window comes to the front.
    void clickElsewhere();

    /// The program is told to quit by the session.
    void endSession();
    bool hasEnded() const { return hasEnded_; }

    std::vector<std::string> savedPairs() const;
    QByteArray savedAlerts() const;
    QString preference(const char* key) const;
    QByteArray fileText(const char* name) const {
        return platform::FileManager::contents(path(name)).value_or(QByteArray());
    }

    quorvel::AppDelegate& delegate() { return *delegate_; }
    ScriptedProvider& exchange() { return *provider_; }
    FakeNotificationService& notifications() { return *notifications_; }
    PrivateBus& bus() { return bus_; }
    FakeLoginManager& loginManager() { return *loginManager_; }
    QString path(const char* name) const { return directory_.filePath(QString::fromUtf8(name)); }

private:
    static QString pairName(const char* base) {
        return QString::fromLatin1("%1USDT").arg(QString::fromUtf8(base));
    }
    QWidget* findWindow(const char* title, bool isStrip) const;
    QVariantMap itemProperties(int ordinal = 1);
    QVariantList callMenu(const char* member, const QVariantList& arguments);
    void comeFromElsewhere();
    /// Lets what is due happen.
    void settle();

    QPalette desktopPalette_;
    QTemporaryDir directory_;
    ManualClock clock_;
    PrivateBus bus_;
    platform::FileManager files_{path("share"), path("tmp")};
    QDBusConnection programsBus_ = bus_.connect();
    QDBusConnection panelsBus_ = bus_.connect();
    BusPeer panelPeer_{panelsBus_};
    std::unique_ptr<FakeStatusNotifierWatcher> watcher_;
    std::unique_ptr<FakeNotificationService> notifications_;
    std::unique_ptr<FakeLoginManager> loginManager_;
    std::unique_ptr<platform::UserDefaults> defaults_;
    quorvel::ConnectionReports reports_;
    ScriptedProvider* provider_ = nullptr; ///< the model's
    std::unique_ptr<quorvel::AppDelegate> delegate_;
    QWidget otherProgram_;
    bool hasEnded_ = false;
};

} // namespace test
