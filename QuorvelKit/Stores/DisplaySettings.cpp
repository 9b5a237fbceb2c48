// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/DisplaySettings.h"

#include <algorithm>
#include <cmath>

namespace quorvel {

DisplaySettings::DisplaySettings(StatusBarDisplayMode mode, StatusBarContent content,
                                 PriceColorScheme colorScheme,
                                 platform::TimeInterval rotationInterval,
                                 std::int64_t sideBySideLimit, ChartPeriod chartPeriod,
                                 bool showsIcon, bool showsDirectionArrow)
    : mode(mode),
      content(content),
      colorScheme(colorScheme),
      chartPeriod(chartPeriod),
      showsIcon(showsIcon),
      showsDirectionArrow(showsDirectionArrow) {
    setRotationInterval(rotationInterval);
    setSideBySideLimit(sideBySideLimit);
}

void DisplaySettings::setRotationInterval(platform::TimeInterval interval) {
    storedRotationInterval_ =
        std::isfinite(interval.count())
            ? std::clamp(interval, minimumRotationInterval, maximumRotationInterval)
            : defaultRotationInterval;
}

void DisplaySettings::setSideBySideLimit(std::int64_t limit) {
    storedSideBySideLimit_ = std::clamp(limit, minimumSideBySideLimit, maximumSideBySideLimit);
}

} // namespace quorvel
