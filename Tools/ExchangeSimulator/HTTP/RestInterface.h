// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/EventLog.h"
#include "Tools/ExchangeSimulator/ExchangeTime.h"
#include "Tools/ExchangeSimulator/HTTP/HTTPConnection.h"
#include "Tools/ExchangeSimulator/HTTP/RestOverride.h"
#include "Tools/ExchangeSimulator/HTTP/WeightCount.h"
#include "Tools/ExchangeSimulator/Market/Market.h"
#include "Tools/ExchangeSimulator/Stream/Limits.h"

#include <map>

namespace simulator {

/// The REST interface: ticker snapshots, exchange information and candles.
class RestInterface {
public:
    /// All must outlive the interface.
    RestInterface(const Market& market, const ExchangeTime& time, const Limits& limits,
                  EventLog& log)
        : market_(market), time_(time), limits_(limits), log_(log) {}

    /// Answers now, later, or never, as the overrides say.
    void handle(HTTPConnection& connection, const HTTPRequest& request);

    /// Changes the answers of one path.
    void setOverride(const QString& path, const RestOverride& change) { overrides_[path] = change; }
    void resetOverride(const QString& path) { overrides_.erase(path); }
    void resetOverrides() { overrides_.clear(); }

    /// Makes the exchange information longer by about that size; 0 leaves the true pairs alone.
    void padExchangeInfo(qsizetype bytes);

    /// How many requests came, are being answered now, and were at most at a time, and what they
    /// weighed.
    QJsonObject state() const;

private:
    class Exchange;

    std::optional<RestOverride> takeOverride(const QString& path);
    HTTPResponse usualAnswer(const HTTPRequest& request) const;
    HTTPResponse finished(HTTPResponse response, const HTTPRequest& request) const;
    HTTPResponse tickers(const HTTPRequest& request) const;
    HTTPResponse candles(const HTTPRequest& request) const;

    const Market& market_;
    const ExchangeTime& time_;
    const Limits& limits_;
    EventLog& log_;
    std::map<QString, RestOverride> overrides_;
    QByteArray madeUpEntries_;
    WeightCount weight_;
    int inFlight_ = 0;
    int mostInFlight_ = 0;
    int requestCount_ = 0;
};

} // namespace simulator
