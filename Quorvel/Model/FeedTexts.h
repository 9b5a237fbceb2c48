// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/Feed/FeedStatus.h"

#include <QString>

namespace quorvel {

/// What the feed's status is in words, in the interface language.
struct FeedTexts {
    /// A time of today as the user's clock shows it, of another day with the day before it.
    static QString time(platform::Date date, platform::Date now);

    /// Since when there is no connection.
    static QString headline(const FeedStatus::Outage& outage, platform::Date now);

    /// Why, and what can be done; empty where that is not known.
    static QString cause(const FeedStatus::Outage& outage);

    /// Why, as far as that is known, what can be done, and when it is tried again.
    static QString reason(const FeedStatus::Outage& outage, platform::Date now);

    /// Both, one below the other.
    static QString notice(const FeedStatus::Outage& outage, platform::Date now);

    /// What is to be known of a pair's price besides its number: when it came, and what is wrong
    /// with it; empty before the first.
    static QString price(const FeedStatus& feed, const Symbol& symbol, platform::Date now);
};

} // namespace quorvel
