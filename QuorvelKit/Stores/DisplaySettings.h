// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/MarketModel/ChartPeriod.h"
#include "QuorvelKit/Stores/PriceColorScheme.h"
#include "QuorvelKit/Stores/StatusBarContent.h"
#include "QuorvelKit/Stores/StatusBarDisplayMode.h"

#include <cstdint>

namespace quorvel {

/// What the status item and the sparklines show, and how. The rotation interval and the limit are
/// within their ranges whatever was assigned.
class DisplaySettings {
public:
    static constexpr platform::TimeInterval defaultRotationInterval{5.0};
    static constexpr platform::TimeInterval minimumRotationInterval{1.0};
    static constexpr platform::TimeInterval maximumRotationInterval{60.0};
    static constexpr std::int64_t defaultSideBySideLimit = 3;
    static constexpr std::int64_t minimumSideBySideLimit = 1;
    static constexpr std::int64_t maximumSideBySideLimit = 5;

    /// The settings of someone who never changed any.
    DisplaySettings() = default;

    /// Clamps the interval and the limit as their setters do.
    DisplaySettings(StatusBarDisplayMode mode, StatusBarContent content,
                    PriceColorScheme colorScheme, platform::TimeInterval rotationInterval,
                    std::int64_t sideBySideLimit, ChartPeriod chartPeriod, bool showsIcon,
                    bool showsDirectionArrow);

    StatusBarDisplayMode mode = StatusBarDisplayMode::rotating;
    StatusBarContent content = StatusBarContent::both;
    PriceColorScheme colorScheme = PriceColorScheme::redUpGreenDown;
    ChartPeriod chartPeriod = ChartPeriod::day; ///< of the sparklines
    bool showsIcon = true;
    bool showsDirectionArrow = true; ///< of each segment in the status item

    /// How long each pair stays in `rotating` mode, 1 to 60 seconds.
    platform::TimeInterval rotationInterval() const { return storedRotationInterval_; }

    /// Takes the nearest interval in range; the default for one that is not finite.
    void setRotationInterval(platform::TimeInterval interval);

    /// How many pairs stand in the status bar in `sideBySide` mode at most, 1 to 5.
    std::int64_t sideBySideLimit() const { return storedSideBySideLimit_; }

    /// Takes the nearest limit in range.
    void setSideBySideLimit(std::int64_t limit);

    friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;

private:
    platform::TimeInterval storedRotationInterval_ = defaultRotationInterval;
    std::int64_t storedSideBySideLimit_ = defaultSideBySideLimit;
};

} // namespace quorvel
