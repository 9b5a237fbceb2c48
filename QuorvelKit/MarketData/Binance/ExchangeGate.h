// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Network/URLSession.h"
#include "QuorvelKit/MarketData/ConnectionEvent.h"
#include "QuorvelKit/MarketData/ExchangeClock.h"

#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace quorvel {

/// Stands between the program and the exchange, which counts what it is asked and bans who asks
/// too much: spaces requests by their weight, lets nothing through while the exchange has asked for
/// silence, and hears from its answers how late it is there.
///
/// Network thread. Outlives whoever waits at it.
class ExchangeGate {
public:
    /// The exchange allows a weight of 6,000 in a minute to one address. At most `burst` at once
    /// and `perSecond` after it make 4,800, and leave the rest to others behind the address.
    static constexpr int burst = 1200;
    static constexpr int perSecond = 60;

    /// By its own count, which its answers tell, nobody should ask for more.
    static constexpr int mostUsed = 4800;

    /// How long to be silent where the exchange asks for it and does not say how long.
    static constexpr std::chrono::seconds usualSilence{60};

    using Report = std::function<void(const ConnectionEvent&)>;

    /// @param report told of refusals; may be empty
    ExchangeGate(platform::Clock& clock, ExchangeClock& exchangeClock, Report report = {});

    /// Waits until the request may go out. Requests go in the order of their calls.
    /// @throws HTTPTransportError with the exchange's status while it wants silence
    platform::Task<> pass(QUrl url);

    /// Takes note of an answer, whatever its status.
    void heard(const platform::URLResponse& response);

    /// When the silence that the exchange asked for ends, by the clock's boot time; absent where it
    /// did not, or it is over.
    std::optional<std::chrono::nanoseconds> silentUntil() const;

    /// What a request counts for the exchange.
    static int weight(const QUrl& url);

private:
    void learnTime(const platform::URLResponse& response) const;
    void heedUsedWeight(const platform::URLResponse& response);
    void throwWhereSilent() const;

    platform::Clock& clock_;
    ExchangeClock& exchangeClock_;
    Report report_;
    std::chrono::nanoseconds paidUntil_{0};   ///< uptime by which what was let through is paid off
    std::chrono::nanoseconds silentUntil_{0}; ///< boot time
    int silenceStatus_ = 0;
};

} // namespace quorvel
