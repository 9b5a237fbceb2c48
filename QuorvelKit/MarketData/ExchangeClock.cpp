// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/ExchangeClock.h"

#include <algorithm>
#include <vector>

namespace quorvel {

using platform::Date;
using platform::TimeInterval;

namespace {

constexpr std::size_t keptEvents = 31;
/// So many events whose instants lie as close together tell the time without an answer.
constexpr std::size_t enoughEvents = 5;
constexpr TimeInterval closeTogether{10};
/// Once they agree, more would only cost time.
constexpr std::chrono::milliseconds betweenEvents{200};
/// So many in a row that seem to be from the future cannot all be wrong.
constexpr int tooManyAhead = 5;
/// Smaller steps are how clocks are kept right.
constexpr TimeInterval smallestJump{1};
/// What a header that counts whole seconds leaves out on average.
constexpr TimeInterval halfASecond{0.5};

} // namespace

Date ExchangeClock::now() const {
    if (!isKnown())
        return latest_;
    return Date(sinceBoot() + (isAgreed_ ? median_ : *answered_));
}

void ExchangeClock::learn(Date date, std::chrono::seconds age, std::chrono::nanoseconds arrival) {
    forgetAfterJump();
    answered_ = (date + age + halfASecond).time_since_epoch() - TimeInterval(arrival);
}

bool ExchangeClock::admit(Quote& quote) {
    forgetAfterJump();
    if (isKnown()) {
        if (quote.timestamp - now() <= furthestAhead) {
            eventsAhead_ = 0;
        } else {
            if (++eventsAhead_ < tooManyAhead)
                return false;
            forget();
        }
    }
    take(quote.timestamp.time_since_epoch() - sinceBoot());
    if (!isKnown() || quote.timestamp - now() > furthestAhead)
        quote.timestamp = latest_;
    latest_ = std::max(latest_, quote.timestamp);
    return true;
}

void ExchangeClock::take(Offset offset) {
    if (isAgreed_ && bootTime() - lastTaken_ < betweenEvents)
        return;
    lastTaken_ = bootTime();
    events_.push_back(offset);
    if (events_.size() > keptEvents)
        events_.pop_front();
    std::vector<Offset> sorted(events_.begin(), events_.end());
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::ranges::nth_element(sorted, middle);
    median_ = *middle;
    const auto agreeing = std::ranges::count_if(events_, [this](Offset event) {
        return std::chrono::abs(event - median_) <= closeTogether;
    });
    isAgreed_ = static_cast<std::size_t>(agreeing) >= enoughEvents;
}

void ExchangeClock::note(Date timestamp) {
    latest_ = std::max(latest_, timestamp);
}

void ExchangeClock::forget() {
    answered_.reset();
    events_.clear();
    isAgreed_ = false;
    eventsAhead_ = 0;
    wall_.reset();
}

void ExchangeClock::forgetAfterJump() {
    const Offset wall = machine_.now().time_since_epoch() - sinceBoot();
    if (wall_ && std::chrono::abs(wall - *wall_) > smallestJump)
        forget();
    if (!wall_)
        wall_ = wall;
}

} // namespace quorvel
