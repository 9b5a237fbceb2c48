#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileManager.h"
#include "QuorvelKit/MarketData/MarketDataProvider.h"
#include "QuorvelKit/StatusBar/StatusBarSegment.h"
#include "QuorvelKit/Stores/QuoteStore.h"
#include "QuorvelKit/Stores/SettingsStore.h"
#include "QuorvelKit/Stores/WatchlistStore.h"

#include <QObject>
#include <QString>

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

    /// Loads the watchlist: from its standard place, or, where that cannot be had, from the
    /// temporary directory. Starts nothing. `settings` and `clock` must outlive the model.
    AppModel(std::unique_ptr<MarketDataProvider> provider, SettingsStore& settings,
             const platform::FileManager& files, platform::Clock& clock);
    ~AppModel() override;

    QuoteStore& quotes() { return quotes_; }
    WatchlistStore& watchlist() { return watchlist_; }
    SettingsStore& settings() { return settings_; }

    /// Every pair that can be watched; empty until loaded.
    const std::vector<Symbol>& availableSymbols() const { return availableSymbols_; }

    /// What to tell the user about the list of pairs; absent when nothing is wrong.
    const std::optional<QString>& loadError() const { return loadError_; }

    /// What the status bar shows now.
    const std::vector<StatusBarSegment>& statusBarSegments() const { return statusBarSegments_; }

    /// Starts the pipeline, loads the list of pairs, subscribes to the watchlist's pairs and takes
    /// a first snapshot of them. Once, until `stop`.
    platform::Task<> start();

    /// Ends what `start` began, and `start` itself where it is still under way; the stream's
    /// connection has been closed in order when it returns.
    platform::Task<> stop();

    platform::Task<> loadAvailableSymbols();

    /// Tells the stream which pairs the watchlist has, and takes a snapshot of them.
    platform::Task<> refreshSubscriptions();

    /// Stores one quote, from the stream or a snapshot.
    void handleQuote(const Quote& quote);

    /// Computes the status bar's texts from the stores, the settings and the time.
    void refreshStatusBar();

Q_SIGNALS:
    void availableSymbolsChanged();
    void loadErrorChanged();
    void statusBarSegmentsChanged();

private:
    platform::Task<> loadAndSubscribe();
    platform::Task<> consumeQuotes();
    platform::Task<> watchStaleness();
    platform::Task<> tickStatusBar();
    bool isOutOfDate() const;
    void setAvailableSymbols(std::vector<Symbol> symbols);
    void setLoadError(std::optional<QString> error);
    void setStatusBarSegments(std::vector<StatusBarSegment> segments);

    platform::Clock& clock_;
    QuoteStore quotes_;
    SettingsStore& settings_;
    WatchlistStore watchlist_;
    std::vector<Symbol> availableSymbols_;
    std::optional<QString> loadError_;
    std::vector<StatusBarSegment> statusBarSegments_;
    platform::Date rotationEpoch_;
    std::optional<DisplaySettings> lastAppliedSettings_;
    /// The uptime at the last accepted quote: the wall clock may be set back.
    std::chrono::nanoseconds lastUpdateUptime_{0};
    std::unique_ptr<MarketDataProvider> provider_;
    // Last, so that they end first: their frames use the members above.
    platform::TaskHandle streamTask_;
    platform::TaskHandle watchdog_;
    platform::TaskHandle statusBarTicker_;
    platform::TaskHandle startUpTask_;
};

} // namespace quorvel
