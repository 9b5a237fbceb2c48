#include "Quorvel/Model/AppModel.h"

#include "Platform/Async/SleepFor.h"
#include "Platform/Foundation/StringTable.h"
#include "QuorvelKit/StatusBar/RotationDriver.h"
#include "QuorvelKit/StatusBar/StatusBarPresenter.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"

#include <utility>

namespace quorvel {

using platform::Task;

namespace {

std::unique_ptr<WatchlistPersistence> makeWatchlistPersistence(const platform::FileManager& files) {
    QString location;
    try {
        location = FileWatchlistPersistence::standardLocation(files);
    } catch (const platform::FileError&) {
        location = FileWatchlistPersistence::temporaryLocation(files);
    }
    return std::make_unique<FileWatchlistPersistence>(location);
}

} // namespace

AppModel::AppModel(std::unique_ptr<MarketDataProvider> provider, SettingsStore& settings,
                   const platform::FileManager& files, platform::Clock& clock)
    : clock_(clock),
      quotes_(clock),
      settings_(settings),
      watchlist_(makeWatchlistPersistence(files)),
      rotationEpoch_(clock.now()),
      provider_(std::move(provider)) {
    connect(&quotes_, &QuoteStore::lastUpdateAtChanged, this,
            [this] { lastUpdateUptime_ = clock_.uptime(); });
}

AppModel::~AppModel() = default;

Task<> AppModel::start() {
    if (streamTask_)
        co_return;
    // A task of the model's own, so that `stop` can end it.
    startUpTask_ = platform::startTask(loadAndSubscribe());
    streamTask_ = platform::startTask(consumeQuotes());
    watchdog_ = platform::startTask(watchStaleness());
    statusBarTicker_ = platform::startTask(tickStatusBar());
    co_await startUpTask_.finished();
}

Task<> AppModel::loadAndSubscribe() {
    co_await loadAvailableSymbols();
    co_await refreshSubscriptions();
}

Task<> AppModel::stop() {
    startUpTask_ = {};
    watchdog_ = {};
    statusBarTicker_ = {};
    streamTask_ = {};
    co_await provider_->stop();
}

Task<> AppModel::loadAvailableSymbols() {
    try {
        setAvailableSymbols(co_await provider_->availableSymbols());
        setLoadError(std::nullopt);
    } catch (const std::exception&) {
        setLoadError(
            platform::localized("Quorvel", "Couldn't load coin list — search is unavailable"));
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

void AppModel::handleQuote(const Quote& quote) {
    quotes_.apply(quote);
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
    setStatusBarSegments(
        StatusBarPresenter::segments(symbols, pinned, quotes_.quotes(), current, index));
}

void AppModel::setAvailableSymbols(std::vector<Symbol> symbols) {
    if (availableSymbols_ == symbols)
        return;
    availableSymbols_ = std::move(symbols);
    Q_EMIT availableSymbolsChanged();
}

void AppModel::setLoadError(std::optional<QString> error) {
    if (loadError_ == error)
        return;
    loadError_ = std::move(error);
    Q_EMIT loadErrorChanged();
}

void AppModel::setStatusBarSegments(std::vector<StatusBarSegment> segments) {
    if (statusBarSegments_ == segments)
        return;
    statusBarSegments_ = std::move(segments);
    Q_EMIT statusBarSegmentsChanged();
}

} // namespace quorvel
