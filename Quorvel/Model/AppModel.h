// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Async/TaskScope.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Services/Workspace.h"
#include "Quorvel/Model/CandleLoader.h"
#include "Quorvel/Model/ExchangeChoice.h"
#include "Quorvel/Model/PresentationChoice.h"
#include "QuorvelKit/Alerts/AlertStore.h"
#include "QuorvelKit/Alerts/NotificationCoordinator.h"
#include "QuorvelKit/Feed/FeedStatus.h"
#include "QuorvelKit/MarketData/MarketDataProvider.h"
#include "QuorvelKit/Services/LaunchAtLoginController.h"
#include "QuorvelKit/Services/SleepWakeObserver.h"
#include "QuorvelKit/StatusBar/StatusBarSegment.h"
#include "QuorvelKit/Stores/CandleCache.h"
#include "QuorvelKit/Stores/QuoteStore.h"
#include "QuorvelKit/Stores/SettingsStore.h"
#include "QuorvelKit/Stores/WatchlistStore.h"

#include <QObject>
#include <QProperty>
#include <QString>
#include <QUuid>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// Wires the library's parts together: owns the stores and the provider for the whole run, starts
/// and stops the live pipeline, and holds what the views share. Created by the delegate; main
/// thread.
///
/// A property is announced only when its value changes.
class AppModel : public QObject {
    Q_OBJECT

public:
    /// How often the age of the quotes is checked.
    static constexpr platform::TimeInterval watchdogPeriod{5};
    /// Quotes that are older count as stale.
    static constexpr platform::TimeInterval stalenessThreshold{15};
    /// How often the status bar's texts are computed.
    static constexpr platform::TimeInterval tickerPeriod{1};

    /// How long `stop` waits for notifications that are being delivered, all of them together.
    static constexpr std::chrono::seconds longestDelivery{2};

    /// What the model works with. What is referred to outlives it.
    struct Collaborators {
        std::unique_ptr<MarketDataProvider> provider;
        FeedStatus& feed;
        SettingsStore& settings;
        ExchangeChoice& exchange;
        PresentationChoice& presentation;
        std::unique_ptr<NotificationDelivering> delivering;
        std::unique_ptr<LaunchAtLoginManaging> loginService;
        platform::Workspace& workspace;
        const platform::FileManager& files;
        platform::Clock& clock;
    };

    /// Loads watchlist and alert rules: from their standard place, or, where that cannot be had,
    /// from the temporary directory. Starts nothing.
    explicit AppModel(Collaborators collaborators);
    ~AppModel() override;

    /// The time that everything here goes by.
    platform::Date now() const { return clock_.now(); }
    platform::Clock& clock() { return clock_; }

    FeedStatus& feed() { return feed_; }
    QuoteStore& quotes() { return quotes_; }
    CandleCache& candles() { return candles_; }
    WatchlistStore& watchlist() { return watchlist_; }
    SettingsStore& settings() { return settings_; }
    ExchangeChoice& exchange() { return exchange_; }
    PresentationChoice& presentation() { return presentation_; }
    LaunchAtLoginController& launchAtLogin() { return launchAtLogin_; }
    AlertStore& alerts() { return alerts_; }
    NotificationCoordinator& notifications() { return notifications_; }

    /// The language that the texts are in: a change of the setting shows at the next launch.
    AppLanguage languageAtLaunch() const { return languageAtLaunch_; }

    /// Every pair that can be watched; empty until loaded.
    const std::vector<Symbol>& availableSymbols() const { return availableSymbols_; }

    /// What to tell the user about the list of pairs; absent when nothing is wrong.
    const std::optional<QString>& loadError() const { return loadError_; }

    /// What the panel's search field holds.
    const QString& searchQuery() const { return searchQuery_; }
    void setSearchQuery(const QString& query);

    /// The pair that the user is about to add an alert for, until the alerts section has taken it
    /// over; absent otherwise.
    const std::optional<Symbol>& pendingAlertSymbol() const { return pendingAlertSymbol_; }
    void setPendingAlertSymbol(const std::optional<Symbol>& symbol);

    /// What the status bar shows now.
    const std::vector<StatusBarSegment>& statusBarSegments() const { return statusBarSegments_; }

    /// Starts the pipeline, loads the list of pairs, subscribes to the watchlist's pairs and takes
    /// a first snapshot of them. Once, until `stop`.
    platform::Task<> start();

    /// Ends what `start` began, and `start` itself where it is still under way. Notifications under
    /// way are delivered first; the stream's connection has been closed in order when it returns.
    platform::Task<> stop();

    platform::Task<> loadAvailableSymbols();

    /// Tells the stream which pairs the watchlist has, and takes a snapshot of them.
    platform::Task<> refreshSubscriptions();

    /// Asks once more for what could not be had. Does nothing before `start` and after `stop`.
    void catchUp();

    /// Puts a pair on the watchlist, clears the search and begins the rotation anew.
    void addSymbol(const Symbol& symbol);

    /// Takes a pair off the watchlist, together with its quote, its alert rules and its candles.
    void removeSymbol(const Symbol& symbol);

    /// Pins a pair of the watchlist to the status bar, or unpins it, and begins the rotation anew.
    void togglePinned(const Symbol& symbol);

    /// Loads the candles of every pair on the watchlist for the chart's period, only a few at a
    /// time, and returns once each load has ended, well or not.
    platform::Task<> prefetchCandles();

    /// Loads the pair's candles for the chart's period unless there are fresh ones. A failure
    /// leaves what there is.
    platform::Task<> loadCandles(Symbol symbol);

    /// Asks for a new instance of the program in place of this one, which takes on the chosen
    /// language. This one stops first.
    void relaunchApplication();

    /// Stores one quote, from the stream or a snapshot, and fires the alerts that it crosses.
    void handleQuote(const Quote& quote);

    /// Computes the status bar's texts from the stores, the settings and the time.
    void refreshStatusBar();

Q_SIGNALS:
    void availableSymbolsChanged();
    void loadErrorChanged();
    void searchQueryChanged();
    void pendingAlertSymbolChanged();
    void statusBarSegmentsChanged();
    /// The program is to end and to start anew.
    void relaunchRequested();

private:
    platform::Task<> loadAndSubscribe();
    platform::Task<> loadWhatIsMissing();
    void observeSleep();
    /// Drops the stream; `assertion` delays sleep until that is done.
    platform::Task<> fallAsleep(platform::SleepAssertion assertion);
    platform::Task<> consumeQuotes();
    platform::Task<> watchStaleness();
    platform::Task<> tickStatusBar();
    /// Delivers what one quote fired, in order, then forgets itself.
    platform::Task<> deliverNotifications(QUuid id, std::vector<AlertRule> fired, Quote quote);
    platform::Task<> finishDeliveries();
    bool isOutOfDate() const;
    void restartRotation();
    /// What follows a change of the watchlist's pairs.
    void followWatchlist();

    platform::Clock& clock_;
    platform::Workspace& workspace_;
    FeedStatus& feed_;
    QuoteStore quotes_;
    CandleCache candles_;
    SettingsStore& settings_;
    ExchangeChoice& exchange_;
    PresentationChoice& presentation_;
    LaunchAtLoginController launchAtLogin_;
    NotificationCoordinator notifications_;
    AppLanguage languageAtLaunch_;
    WatchlistStore watchlist_;
    AlertStore alerts_;
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, std::vector<Symbol>, availableSymbols_,
                               &AppModel::availableSymbolsChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, std::optional<QString>, loadError_,
                               &AppModel::loadErrorChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, QString, searchQuery_, &AppModel::searchQueryChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, std::optional<Symbol>, pendingAlertSymbol_,
                               &AppModel::pendingAlertSymbolChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, std::vector<StatusBarSegment>, statusBarSegments_,
                               &AppModel::statusBarSegmentsChanged)
    platform::Date rotationEpoch_;
    std::optional<DisplaySettings> lastAppliedSettings_;
    /// The uptime at the last accepted quote: the wall clock may be set back.
    std::chrono::nanoseconds lastUpdateUptime_{0};
    std::unique_ptr<MarketDataProvider> provider_;
    CandleLoader candleLoader_;
    // Last, so that they end first: their frames use the members above.
    platform::TaskHandle streamTask_;
    std::optional<SleepWakeObserver> sleepObserver_;
    platform::TaskHandle watchdog_;
    platform::TaskHandle statusBarTicker_;
    platform::TaskScope refreshes_;
    /// Deliveries under way, one per quote that fired.
    std::map<QUuid, platform::TaskHandle> pendingNotifications_;
    platform::TaskHandle startUpTask_;
};

} // namespace quorvel
