// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Async/TaskScope.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "QuorvelKit/Feed/FeedStatus.h"
#include "QuorvelKit/MarketData/ConnectionEvent.h"
#include "QuorvelKit/MarketData/MarketDataProvider.h"
#include "QuorvelKit/Services/SleepWakeObserver.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

namespace quorvel {

/// Stands in front of the provider that talks to the exchange, and makes it what people need on the
/// networks that they have: changes in quick succession become one, what failed is asked for again,
/// one pair that the exchange does not know harms itself only, and nothing connects while the
/// machine sleeps. What is known of the connection goes into the feed's status.
///
/// Main thread.
class ResilientProvider final : public QObject, public MarketDataProvider {
    Q_OBJECT

public:
    /// Changes of the pairs within this time become one.
    static constexpr std::chrono::milliseconds mergingTime{300};

    /// How long anybody waits for the list of pairs; it may still come later.
    static constexpr std::chrono::seconds longestListWait{15};

    /// A connection that has not been heard from for so long is not live.
    static constexpr std::chrono::seconds longestSilence{20};

    /// A loss that is mended within this time is not told.
    static constexpr std::chrono::seconds lossGrace{5};

    /// What failed without a loss of the connection is tried again after this time, and after twice
    /// as long each time it fails once more, up to the longest.
    static constexpr std::chrono::seconds firstRetry{10};
    static constexpr std::chrono::seconds longestRetry{300};

    struct Collaborators {
        std::unique_ptr<MarketDataProvider> provider;
        /// Called when the machine has slept. May be empty.
        std::function<void()> renew;
        /// What the provider's network thread reports.
        platform::AsyncStream<ConnectionEvent> events;
        std::shared_ptr<const std::atomic<std::int64_t>> lastHeard;
        /// Where sleep and wake are posted.
        platform::NotificationCenter& sleepCenter;
        platform::Clock& clock;
        FeedStatus& status;
    };

    explicit ResilientProvider(Collaborators collaborators);

    /// The quotes of those pairs that are not known since the connection was lost last, and nothing
    /// where another call that waits brings them.
    platform::Task<std::vector<Quote>> snapshot(std::vector<Symbol> symbols) override;

    platform::Task<std::vector<Symbol>> availableSymbols() override;
    platform::Task<std::vector<Candle>> candles(Symbol symbol, ChartPeriod period) override;
    platform::Task<platform::AsyncStream<Quote>> quotes() override;

    /// Returns before the change has been made, unless no pair is left.
    platform::Task<> updateSubscriptions(SymbolSet symbols) override;

    platform::Task<> stop() override;

Q_SIGNALS:
    void listEnded(QPrivateSignal);
    void snapshotEnded(QPrivateSignal);

private:
    using nanoseconds = std::chrono::nanoseconds;

    platform::Task<> followConnection();
    void take(const ConnectionEvent& event);
    platform::Task<> watch();
    void judge();
    platform::Date dateOf(nanoseconds bootTime) const;

    void applySubscriptions();
    platform::Task<> reconnect();
    nanoseconds untilNextSnapshot() const;
    platform::Task<> loadList();
    platform::Task<std::vector<Quote>> fetch(std::vector<Symbol> symbols);
    platform::Task<> fetchPart(std::vector<Symbol> symbols, std::vector<Quote>& quotes);

    void retryLater();
    void recover();
    void fallAsleep();
    void wake();
    nanoseconds sleptSoFar() const;
    void requireAwake() const;

    Collaborators with_;
    SymbolSet wanted_;
    SymbolSet applied_;
    std::unique_ptr<platform::ClockTimer> mergingTimer_;
    std::optional<std::vector<Symbol>> list_;
    std::unordered_set<Symbol> known_;     ///< have a price since the connection was lost last
    std::vector<Symbol> asked_;            ///< for the next snapshot, each once
    std::unordered_set<Symbol> underWay_;  ///< asked for by the present one
    std::optional<nanoseconds> fetchedAt_; ///< uptime
    bool isNextAwaited_ = false;
    bool isListOverdue_ = false; ///< somebody has given up waiting for it
    bool isAsleep_ = false;
    nanoseconds slept_{0}; ///< as far as it has been noticed
    bool isConnected_ = false;
    bool hasMissed_ = false;            ///< something failed, or quotes were lost
    std::optional<nanoseconds> lostAt_; ///< uptime
    FeedStatus::Outage loss_;           ///< while not connected
    std::chrono::seconds retryDelay_ = firstRetry;
    std::unique_ptr<platform::ClockTimer> retryTimer_;
    SleepWakeObserver sleepObserver_;
    platform::TaskHandle listTask_;
    platform::TaskScope tasks_;
};

} // namespace quorvel
