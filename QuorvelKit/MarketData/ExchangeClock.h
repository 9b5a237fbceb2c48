// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"
#include "QuorvelKit/MarketModel/Quote.h"

#include <deque>
#include <optional>

namespace quorvel {

/// The exchange's time, learned from its answers and its events: on people's machines clocks are
/// off by minutes, or by the hours of a time zone, and quotes are ordered by their instants.
///
/// It counts on from what was learned by a clock that goes on while the machine sleeps. As long as
/// nothing has been learned it stands at the latest instant that it has seen: on the word of this
/// machine's clock alone nothing is refused.
///
/// Belongs to the thread on which answers and events arrive.
class ExchangeClock final : public platform::Clock {
public:
    /// An event that claims to be from further ahead is not believed.
    static constexpr platform::TimeInterval furthestAhead{60};

    /// @param machine must outlive this clock
    explicit ExchangeClock(platform::Clock& machine) : machine_(machine) {}

    platform::Date now() const override;
    std::chrono::nanoseconds uptime() const override { return machine_.uptime(); }
    std::chrono::nanoseconds bootTime() const override { return machine_.bootTime(); }
    std::unique_ptr<platform::ClockTimer>
    startTimer(std::chrono::milliseconds delay, std::move_only_function<void()> expired) override {
        return machine_.startTimer(delay, std::move(expired));
    }

    /// What an answer says about the time.
    /// @param date by the second, as its header has it
    /// @param age what the answer spent in caches before
    /// @param arrival the boot time at which the header came
    void learn(platform::Date date, std::chrono::seconds age, std::chrono::nanoseconds arrival);

    /// Orders a quote that has just come from the stream after those before it. False where it is
    /// to be dropped: it claims to be from the future.
    ///
    /// While the exchange's time is not known, every quote counts, and takes the instant of the
    /// latest one before it: an instant that nobody can judge must not outlast the true ones.
    bool admit(Quote& quote);

    /// Sees the instants of a snapshot, which the quotes after it must not fall behind.
    void note(platform::Date timestamp);

    /// Learns the time anew: after the machine has slept, or the connection was another.
    void forget();

private:
    /// What has to be added to the boot time.
    using Offset = platform::TimeInterval;

    void forgetAfterJump();
    void take(Offset offset);
    bool isKnown() const { return answered_ || isAgreed_; }
    platform::TimeInterval sinceBoot() const { return machine_.bootTime(); }

    platform::Clock& machine_;
    std::optional<Offset> answered_;                   ///< from an answer, to the second
    std::deque<Offset> events_;                        ///< from events, oldest first
    std::chrono::nanoseconds lastTaken_{0};            ///< the boot time of the latest of these
    Offset median_{0};                                 ///< of these
    bool isAgreed_ = false;                            ///< whether enough events agree
    int eventsAhead_ = 0;                              ///< in a row
    platform::Date latest_{platform::TimeInterval(0)}; ///< of the instants given out
    std::optional<Offset> wall_; ///< of this machine's clock when something was learned first
};

} // namespace quorvel
