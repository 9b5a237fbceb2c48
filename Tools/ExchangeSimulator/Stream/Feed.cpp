// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/Feed.h"

namespace simulator {

Feed::Feed(Market& market, StreamHub& hub, const ExchangeTime& time, const Limits& limits)
    : market_(market), hub_(hub), time_(time), limits_(limits) {
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &Feed::tick);
    limitsChanged();
}

void Feed::play(const Scenario& scenario) {
    if (!scenario.fromFirstConnection)
        return startClock(scenario.pushes);
    const auto start = [this, pushes = scenario.pushes] { startClock(pushes); };
    connect(&hub_, &StreamHub::opened, this, start, Qt::SingleShotConnection);
}

void Feed::startClock(const std::vector<Scenario::TimedPush>& pushes) {
    for (const Scenario::TimedPush& p : pushes)
        QTimer::singleShot(p.at, Qt::PreciseTimer, this,
                           [this, p] { push(p.symbol, p.price, p.change, std::nullopt); });
}

void Feed::push(const QString& symbol, const std::optional<QByteArray>& price,
                const std::optional<QByteArray>& change, std::optional<qint64> time) {
    publish(market_.push(symbol, price, change), time.value_or(time_.now()));
}

void Feed::tick() {
    if (walking_)
        market_.step();
    const qint64 now = time_.now();
    for (const Pair& pair : market_.pairs()) {
        if (pair.changed)
            publish(pair, now);
    }
}

void Feed::publish(const Pair& pair, qint64 time) {
    if (hub_.connectionCount() > 0)
        hub_.publish(pair.streamName(), pair.tickerEvent(time));
    market_.markSent(pair);
}

} // namespace simulator
