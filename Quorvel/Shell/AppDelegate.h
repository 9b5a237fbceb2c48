// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Desktop/PlasmaWidgetWatch.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/InstalledTables.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Popover/Popover.h"
#include "Platform/Services/LoginItem.h"
#include "Platform/Services/UserNotificationCenter.h"
#include "Platform/Services/Workspace.h"
#include "Platform/StatusBar/StatusItem.h"
#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Panel/WatchlistPanel.h"
#include "Quorvel/Shell/ApplicationAppearance.h"
#include "Quorvel/Shell/QuorvelService.h"
#include "QuorvelKit/Feed/FeedStatus.h"
#include "QuorvelKit/MarketData/ConnectionEvent.h"
#include "QuorvelKit/Stores/SettingsStore.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace quorvel {

class SettingsWindow;

/// Composes the program: the model and everything on the screen. Created by main and kept until the
/// event loop has returned; main thread.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// What makes the provider that talks to the exchange; it may report of its connection.
    using ProviderFactory =
        std::function<std::unique_ptr<MarketDataProvider>(const ConnectionReports&)>;

    /// Where the program runs. What is referred to outlives the delegate.
    struct Environment {
        platform::Clock& clock;
        const platform::FileManager& files;
        platform::UserDefaults& defaults;
        QString iconDirectory; ///< for files that last as long as the run
        QString autostartDirectory = platform::LoginItem::standardDirectory();
        QDBusConnection sessionBus = QDBusConnection::sessionBus();
        QDBusConnection systemBus = QDBusConnection::systemBus();
        /// Where prices come from. Absent: the live exchange, at the addresses that the preferences
        /// name.
        ProviderFactory makeProvider = {};
    };

    explicit AppDelegate(const Environment& environment);
    ~AppDelegate() override;

    /// Shows the status item and starts the model.
    void applicationDidFinishLaunching();

    /// Opens the popover beside the status item, or closes it. Loads the candles that it will show.
    ///
    /// @param clickedAt where a panel says that the item was clicked; absent where none does
    void togglePopover(std::optional<QPoint> clickedAt);

    /// Opens the popover, or brings it to the front, for a user who started the program once more.
    void openPanel();

    /// Brings the settings window to the front in place of the popover.
    void openSettings();

    /// Stops the model in order, then emits `terminated`. Once.
    void terminate();

    /// Whether the program is to start anew once this process lets go of its place.
    bool isRelaunching() const { return isRelaunching_; }

    /// Starts it anew. After `terminated`, and once nothing keeps the new process from going on.
    void openNewInstance() const { workspace_.openNewInstance(); }

    /// Ends in order also where the application is told to quit from outside, by the session's end.
    bool eventFilter(QObject* application, QEvent* event) override;

Q_SIGNALS:
    /// Stopping has begun.
    void terminating();

    /// Everything has been stopped; the event loop may end.
    void terminated();

private:
    void setUpStatusItem();
    void setUpWidgets();
    void followWidgets();
    platform::Task<> offerPlasmaWidget();
    void setUpPopover();
    void setUpSettingsWindow();
    void chooseFromMenu(int id);
    void updateStatusItem(platform::StatusItem::Urgency urgency);
    void showPopover(std::optional<QPoint> clickedAt);
    platform::Task<> stopModel();

    Environment environment_;
    SettingsStore settings_;
    ExchangeChoice exchange_;
    PresentationChoice presentation_;
    platform::InstalledTables tables_; // before the model, which may have something to say
    platform::UserNotificationCenter notificationCenter_;
    platform::Workspace workspace_;
    FeedStatus feed_;
    AppModel model_;
    ApplicationAppearance appearance_;
    QuorvelService service_;
    platform::PlasmaWidgetWatch plasmaWidget_;
    std::unique_ptr<platform::StatusItem> statusItem_;
    std::unique_ptr<platform::Popover> popover_;
    WatchlistPanel* panel_ = nullptr; ///< the popover's
    std::unique_ptr<SettingsWindow> settingsWindow_;
    std::unique_ptr<platform::ClockTimer> stopDeadline_;
    bool isRelaunching_ = false;
    // Last, so that they end first.
    platform::TaskHandle startTask_;
    platform::TaskHandle prefetchTask_;
    platform::TaskHandle offerTask_;
    platform::TaskHandle stopTask_;
};

} // namespace quorvel
