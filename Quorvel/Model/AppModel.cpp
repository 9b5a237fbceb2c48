// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/AppModel.h"

#include "Platform/Async/SleepFor.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/Alerts/AlertEngine.h"
#include "QuorvelKit/Alerts/FileAlertPersistence.h"
#include "QuorvelKit/StatusBar/RotationDriver.h"
#include "QuorvelKit/StatusBar/StatusBarPresenter.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"

#include <utility>

namespace quorvel {

using platform::Task;
using platform::TaskHandle;

namespace {

/// The file of a store: in its standard place, or, where that cannot be had, in the temporary one.
template <typename FilePersistence>
std::unique_ptr<FilePersistence> makePersistence(const platform::FileManager& files) {
    QString location;
    try {
        location = FilePersistence::standardLocation(files);
    } catch (const platform::FileError&) {
        location = FilePersistence::temporaryLocation(files);
    }
    return std::make_unique<FilePersistence>(location);
}

} // namespace

AppModel::AppModel(Collaborators collaborators)
    : clock_(collaborators.clock),
      workspace_(collaborators.workspace),
      feed_(collaborators.feed),
      quotes_(clock_),
      settings_(collaborators.settings),
      exchange_(collaborators.exchange),
      presentation_(collaborators.presentation),
      launchAtLogin_(std::move(collaborators.loginService)),
      notifications_(std::move(collaborators.delivering)),
      languageAtLaunch_(settings_.language()),
      watchlist_(makePersistence<FileWatchlistPersistence>(collaborators.files)),
      alerts_(makePersistence<FileAlertPersistence>(collaborators.files)),
      rotationEpoch_(clock_.now()),
      provider_(std::move(collaborators.provider)),
      candleLoader_(candles_, *provider_, clock_) {
    connect(&quotes_, &QuoteStore::lastUpdateAtChanged, this,
            [this] { lastUpdateUptime_ = clock_.uptime(); });
    connect(&feed_, &FeedStatus::recovered, this, &AppModel::catchUp);
}

AppModel::~AppModel() = default;

Task<> AppModel::start() {
    if (streamTask_)
        co_return;
    // A task of the model's own, so that `stop` can end it.
    startUpTask_ = platform::startTask(loadAndSubscribe());
    streamTask_ = platform::startTask(consumeQuotes());
    observeSleep();
    alerts_.removeOrphans(watchlist_.subscriptionSet(), watchlist_.isLoadComplete());
    watchdog_ = platform::startTask(watchStaleness());
    statusBarTicker_ = platform::startTask(tickStatusBar());
    co_await startUpTask_.finished();
}

Task<> AppModel::loadAndSubscribe() {
    co_await loadAvailableSymbols();
    co_await refreshSubscriptions();
}

void AppModel::catchUp() {
    if (streamTask_)
        refreshes_.start(loadWhatIsMissing());
}

Task<> AppModel::loadWhatIsMissing() {
    // Which may still have to fail.
    if (startUpTask_.isRunning())
        co_await startUpTask_.finished();
    if (availableSymbols_.value().empty())
        co_await loadAvailableSymbols();
    co_await refreshSubscriptions();
}

void AppModel::observeSleep() {
    sleepObserver_.emplace(
        workspace_.notificationCenter(),
        [this] { refreshes_.start(fallAsleep(workspace_.delaySleep())); },
        [this] { refreshes_.start(refreshSubscriptions()); });
    sleepObserver_->start();
}

Task<> AppModel::fallAsleep(platform::SleepAssertion) {
    quotes_.markStale(true);
    co_await provider_->updateSubscriptions({});
}

void AppModel::relaunchApplication() {
    Q_EMIT relaunchRequested();
}

Task<> AppModel::stop() {
    co_await finishDeliveries();
    startUpTask_ = {};
    watchdog_ = {};
    statusBarTicker_ = {};
    sleepObserver_.reset();
    streamTask_ = {};
    refreshes_.cancelAll();
    candleLoader_.cancelAll();
    co_await provider_->stop();
}

Task<> AppModel::finishDeliveries() {
    bool isTimeOver = false;
    TaskHandle delivery;
    const auto deadline = clock_.startTimer(longestDelivery, [&] {
        isTimeOver = true;
        delivery.cancel();
        pendingNotifications_.clear();
    });
    // Quotes go on coming, and may fire more.
    while (!isTimeOver && !pendingNotifications_.empty()) {
        delivery = std::move(pendingNotifications_.extract(pendingNotifications_.begin()).mapped());
        co_await delivery.finished();
    }
}

Task<> AppModel::loadAvailableSymbols() {
    try {
        availableSymbols_ = co_await provider_->availableSymbols();
        loadError_ = std::nullopt;
    } catch (const std::exception&) {
        loadError_ =
            platform::localized("Quorvel", "Couldn't load coin list — search is unavailable");
    }
}

Task<> AppModel::refreshSubscriptions() {
    auto symbols = watchlist_.symbols();
    co_await provider_->updateSubscriptions(watchlist_.subscriptionSet());
    if (symbols.empty())
        co_return;
    try {
        const auto snapshot = co_await provider_->snapshot(std::move(symbols));
        for (const Quote& quote : snapshot)
            handleQuote(quote);
    } catch (const std::exception&) {
        // The stream brings prices too; where it does not, the watchdog tells.
    }
}

Task<> AppModel::prefetchCandles() {
    return candleLoader_.loadAll(watchlist_.symbols(), settings_.display().chartPeriod);
}

Task<> AppModel::loadCandles(Symbol symbol) {
    return candleLoader_.load(std::move(symbol), settings_.display().chartPeriod);
}

void AppModel::addSymbol(const Symbol& symbol) {
    watchlist_.add(symbol);
    searchQuery_ = QString();
    followWatchlist();
}

void AppModel::removeSymbol(const Symbol& symbol) {
    watchlist_.remove(symbol);
    quotes_.remove(symbol);
    alerts_.removeAll(symbol);
    candleLoader_.cancel(symbol);
    candles_.invalidate(symbol);
    followWatchlist();
}

void AppModel::followWatchlist() {
    restartRotation();
    refreshes_.start(refreshSubscriptions());
}

void AppModel::togglePinned(const Symbol& symbol) {
    watchlist_.togglePinned(symbol);
    restartRotation();
}

void AppModel::restartRotation() {
    rotationEpoch_ = clock_.now();
    refreshStatusBar();
}

void AppModel::handleQuote(const Quote& quote) {
    feed_.notePrice(quote.symbol);
    const auto previous = quotes_.applyReturningPrevious(quote);
    const platform::Date now = clock_.now();
    auto fired = AlertEngine::triggeredRules(previous, quote, alerts_.rules(), now);
    if (fired.empty())
        return;
    alerts_.markTriggered(fired, now);
    const QUuid id = QUuid::createUuid();
    pendingNotifications_[id] =
        platform::startTask(deliverNotifications(id, std::move(fired), quote));
}

Task<> AppModel::deliverNotifications(QUuid id, std::vector<AlertRule> fired, Quote quote) {
    for (const AlertRule& rule : fired)
        co_await notifications_.notify(rule, quote, watchlist_.symbols());
    pendingNotifications_.erase(id);
}

Task<> AppModel::consumeQuotes() {
    auto stream = co_await provider_->quotes();
    while (const auto quote = co_await stream.next())
        handleQuote(*quote);
}

Task<> AppModel::watchStaleness() {
    for (;;) {
        co_await platform::sleepFor(clock_, watchdogPeriod);
        if (!watchlist_.items().empty() && quotes_.lastUpdateAt())
            quotes_.markStale(isOutOfDate());
    }
}

bool AppModel::isOutOfDate() const {
    return clock_.now() - *quotes_.lastUpdateAt() > stalenessThreshold ||
           clock_.uptime() - lastUpdateUptime_ > stalenessThreshold;
}

Task<> AppModel::tickStatusBar() {
    for (;;) {
        refreshStatusBar();
        co_await platform::sleepFor(clock_, tickerPeriod);
    }
}

void AppModel::refreshStatusBar() {
    const DisplaySettings& current = settings_.display();
    const platform::Date now = clock_.now();
    // A clock set back would hold the rotation at its first pair until it has caught up.
    if (lastAppliedSettings_ != current || now < rotationEpoch_) {
        lastAppliedSettings_ = current;
        rotationEpoch_ = now;
    }
    const auto symbols = watchlist_.symbols();
    const auto pinned = watchlist_.pinnedSymbols();
    const int index =
        RotationDriver::index((now - rotationEpoch_).count(), current.rotationInterval().count(),
                              StatusBarPresenter::rotationItemCount(symbols, pinned));
    statusBarSegments_ =
        StatusBarPresenter::segments(symbols, pinned, quotes_.quotes(), current, index);
}

void AppModel::setSearchQuery(const QString& query) {
    searchQuery_ = query;
}

void AppModel::setPendingAlertSymbol(const std::optional<Symbol>& symbol) {
    pendingAlertSymbol_ = symbol;
}

} // namespace quorvel
