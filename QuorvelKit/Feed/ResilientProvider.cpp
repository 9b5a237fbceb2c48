// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Feed/ResilientProvider.h"

#include "Platform/Async/SignalAwaiter.h"
#include "Platform/Async/SleepFor.h"
#include "Platform/Network/URLError.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"

#include <algorithm>
#include <utility>

namespace quorvel {

using platform::Task;
using std::chrono::nanoseconds;
using std::chrono::seconds;

namespace {

constexpr seconds watchPeriod{1};
/// What the clocks may differ by without the machine having slept.
constexpr seconds smallestSleep{2};

bool refusesThePairs(const HTTPTransportError& error) {
    return error.statusCode() == 400;
}

} // namespace

ResilientProvider::ResilientProvider(Collaborators collaborators)
    : with_(std::move(collaborators)),
      slept_(sleptSoFar()),
      sleepObserver_(with_.sleepCenter, [this] { fallAsleep(); }, [this] { wake(); }) {
    sleepObserver_.start();
    tasks_.start(followConnection());
    tasks_.start(watch());
}

// The connection.

Task<> ResilientProvider::followConnection() {
    while (const auto event = co_await with_.events.next())
        take(*event);
}

void ResilientProvider::take(const ConnectionEvent& event) {
    using Kind = ConnectionEvent::Kind;
    switch (event.kind) {
    case Kind::opened:
        isConnected_ = true;
        lostAt_.reset();
        retryDelay_ = firstRetry;
        judge();
        if (hasMissed_)
            recover();
        break;
    case Kind::lost:
        if (std::exchange(isConnected_, false) || !lostAt_) {
            lostAt_ = with_.clock.uptime();
            loss_ = {.since = with_.clock.now()};
        }
        hasMissed_ = true;
        known_.clear();
        loss_.reason = event.reason;
        if (loss_.until && *loss_.until <= with_.clock.now())
            loss_.until.reset();
        judge();
        break;
    case Kind::refused:
        loss_.status = event.status;
        loss_.until = event.until ? std::optional(dateOf(*event.until)) : std::nullopt;
        judge();
        break;
    case Kind::untraded:
        for (const Symbol& symbol : event.pairs)
            with_.status.setRefused(symbol);
        break;
    }
}

platform::Date ResilientProvider::dateOf(nanoseconds bootTime) const {
    return with_.clock.now() + (bootTime - with_.clock.bootTime());
}

Task<> ResilientProvider::watch() {
    for (;;) {
        co_await platform::sleepFor(with_.clock, watchPeriod);
        if (sleptSoFar() - slept_ >= smallestSleep)
            wake(); // of which nobody has told
        judge();
    }
}

void ResilientProvider::judge() {
    if (applied_.empty() || isAsleep_) {
        with_.status.setOutage(std::nullopt);
        return;
    }
    const auto now = with_.clock.uptime();
    if (isConnected_) {
        const auto silence = now - nanoseconds(with_.lastHeard->load(std::memory_order_relaxed));
        const bool isHeard = silence <= longestSilence;
        with_.status.setOutage(
            isHeard ? std::nullopt
                    : std::optional<FeedStatus::Outage>({.since = with_.clock.now() - silence}));
    } else if (lostAt_ && (loss_.status != 0 || now - *lostAt_ >= lossGrace)) {
        with_.status.setOutage(loss_);
    }
}

// The pairs.

Task<> ResilientProvider::updateSubscriptions(SymbolSet symbols) {
    wanted_ = std::move(symbols);
    std::erase_if(known_, [this](const Symbol& symbol) { return !wanted_.contains(symbol); });
    if (wanted_.empty()) {
        mergingTimer_.reset();
        applied_.clear();
        isConnected_ = false;
        lostAt_.reset();
        judge();
        co_await with_.provider->updateSubscriptions({});
    } else if (!mergingTimer_) {
        applySubscriptions();
    }
}

void ResilientProvider::applySubscriptions() {
    mergingTimer_.reset();
    if (isAsleep_ || wanted_ == applied_)
        return;
    applied_ = wanted_;
    tasks_.start(with_.provider->updateSubscriptions(applied_));
    mergingTimer_ = with_.clock.startTimer(mergingTime, [this] { applySubscriptions(); });
}

nanoseconds ResilientProvider::untilNextSnapshot() const {
    return fetchedAt_ ? *fetchedAt_ + mergingTime - with_.clock.uptime() : nanoseconds::zero();
}

Task<std::vector<Quote>> ResilientProvider::snapshot(std::vector<Symbol> symbols) {
    if (isAsleep_)
        co_return std::vector<Quote>();
    for (Symbol& symbol : symbols) {
        const bool isBrought = known_.contains(symbol) || underWay_.contains(symbol) ||
                               std::ranges::find(asked_, symbol) != asked_.end();
        if (!isBrought)
            asked_.push_back(std::move(symbol));
    }
    if (isNextAwaited_ || asked_.empty())
        co_return std::vector<Quote>();
    isNextAwaited_ = true;
    while (!underWay_.empty())
        co_await platform::SignalAwaiter(*this, &ResilientProvider::snapshotEnded);
    if (const auto left = untilNextSnapshot(); left > nanoseconds::zero())
        co_await platform::sleepFor(with_.clock, left);
    isNextAwaited_ = false;
    auto batch = std::exchange(asked_, {});
    // What was taken off the watchlist meanwhile, and what is not on the list, harms the others.
    std::erase_if(batch, [this](const Symbol& symbol) {
        return !wanted_.contains(symbol) || !with_.status.isListed(symbol);
    });
    if (batch.empty())
        co_return std::vector<Quote>();
    co_return co_await fetch(std::move(batch));
}

Task<std::vector<Quote>> ResilientProvider::fetch(std::vector<Symbol> symbols) {
    fetchedAt_ = with_.clock.uptime();
    underWay_.insert(symbols.begin(), symbols.end());
    const auto end = [this] {
        underWay_.clear();
        Q_EMIT snapshotEnded(QPrivateSignal());
    };
    try {
        std::vector<Quote> quotes;
        co_await fetchPart(std::move(symbols), quotes);
        for (const Quote& quote : quotes)
            known_.insert(quote.symbol);
        end();
        co_return quotes;
    } catch (const std::exception&) {
        end();
        retryLater();
        throw;
    }
}

Task<> ResilientProvider::fetchPart(std::vector<Symbol> symbols, std::vector<Quote>& quotes) {
    try {
        auto part = co_await with_.provider->snapshot(symbols);
        std::ranges::move(part, std::back_inserter(quotes));
        co_return;
    } catch (const HTTPTransportError& error) {
        if (!refusesThePairs(error))
            throw;
    }
    if (symbols.size() == 1) {
        with_.status.setRefused(symbols.front());
        co_return;
    }
    const auto middle = symbols.begin() + std::ssize(symbols) / 2;
    co_await fetchPart({symbols.begin(), middle}, quotes);
    co_await fetchPart({middle, symbols.end()}, quotes);
}

// The rest of what the exchange has.

Task<std::vector<Symbol>> ResilientProvider::availableSymbols() {
    requireAwake();
    if (!list_) {
        if (!listTask_.isRunning())
            listTask_ = platform::startTask(loadList());
        co_await platform::SignalAwaiter(*this, &ResilientProvider::listEnded, with_.clock,
                                         longestListWait);
    }
    isListOverdue_ = !list_ && listTask_.isRunning();
    if (!list_)
        throw platform::URLError(platform::URLError::Code::timedOut, {});
    co_return *list_;
}

Task<> ResilientProvider::loadList() {
    try {
        list_ = co_await with_.provider->availableSymbols();
        with_.status.setListed({list_->begin(), list_->end()});
        retryDelay_ = firstRetry;
        Q_EMIT listEnded(QPrivateSignal());
        if (std::exchange(isListOverdue_, false))
            Q_EMIT with_.status.recovered();
    } catch (const std::exception&) {
        Q_EMIT listEnded(QPrivateSignal());
        retryLater();
    }
}

Task<std::vector<Candle>> ResilientProvider::candles(Symbol symbol, ChartPeriod period) {
    requireAwake();
    return with_.provider->candles(std::move(symbol), period);
}

Task<platform::AsyncStream<Quote>> ResilientProvider::quotes() {
    return with_.provider->quotes();
}

Task<> ResilientProvider::stop() {
    sleepObserver_.stop();
    mergingTimer_.reset();
    retryTimer_.reset();
    listTask_ = {};
    tasks_.cancelAll();
    co_await with_.provider->stop();
}

// What failed.

void ResilientProvider::retryLater() {
    hasMissed_ = true;
    retryTimer_ = with_.clock.startTimer(retryDelay_, [this] { recover(); });
    retryDelay_ = std::min(2 * retryDelay_, longestRetry);
}

void ResilientProvider::recover() {
    hasMissed_ = false;
    retryTimer_.reset();
    Q_EMIT with_.status.recovered();
}

// Sleep.

nanoseconds ResilientProvider::sleptSoFar() const {
    return with_.clock.bootTime() - with_.clock.uptime();
}

void ResilientProvider::requireAwake() const {
    if (isAsleep_)
        throw platform::URLError(platform::URLError::Code::cancelled, {});
}

void ResilientProvider::fallAsleep() {
    isAsleep_ = true;
    slept_ = sleptSoFar();
    mergingTimer_.reset();
    retryTimer_.reset();
}

void ResilientProvider::wake() {
    isAsleep_ = false;
    slept_ = sleptSoFar();
    known_.clear();
    retryDelay_ = firstRetry;
    if (with_.renew)
        with_.renew();
    if (!wanted_.empty())
        tasks_.start(reconnect());
    Q_EMIT with_.status.recovered();
}

Task<> ResilientProvider::reconnect() {
    applied_.clear();
    isConnected_ = false;
    co_await with_.provider->updateSubscriptions({});
    applySubscriptions();
}

} // namespace quorvel
