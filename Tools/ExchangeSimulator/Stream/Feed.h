// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/ExchangeTime.h"
#include "Tools/ExchangeSimulator/Market/Market.h"
#include "Tools/ExchangeSimulator/Market/Scenario.h"
#include "Tools/ExchangeSimulator/Stream/Limits.h"
#include "Tools/ExchangeSimulator/Stream/StreamHub.h"

#include <QObject>
#include <QTimer>

namespace simulator {

/// Lets time pass in the market and tells subscribers what changed.
class Feed final : public QObject {
    Q_OBJECT

public:
    /// All must outlive the feed.
    Feed(Market& market, StreamHub& hub, const ExchangeTime& time, const Limits& limits);

    /// Whether prices walk by themselves.
    bool isWalking() const { return walking_; }
    void setWalking(bool walking) { walking_ = walking; }

    /// Has the scenario's pushes happen in time.
    void play(const Scenario& scenario);

    /// Changes the market as `Market::push` does and tells subscribers at once. `time` is the
    /// event's in milliseconds, the current one when absent.
    void push(const QString& symbol, const std::optional<QByteArray>& price,
              const std::optional<QByteArray>& change, std::optional<qint64> time);

    void limitsChanged() { timer_.start(limits_.tickerInterval); }

private:
    void tick();
    void publish(const Pair& pair, qint64 time);
    void startClock(const std::vector<Scenario::TimedPush>& pushes);

    Market& market_;
    StreamHub& hub_;
    const ExchangeTime& time_;
    const Limits& limits_;
    QTimer timer_;
    bool walking_ = true;
};

} // namespace simulator
