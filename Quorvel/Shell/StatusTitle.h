#pragma once

#include "Platform/Desktop/AttributedTitle.h"
#include "QuorvelKit/MarketModel/PriceDirection.h"
#include "QuorvelKit/Stores/PriceColorScheme.h"

#include <QString>

#include <span>

namespace quorvel {

/// What the status item says of one pair.
struct StatusTitleSegment {
    QString text;
    PriceDirection direction = PriceDirection::flat;
};

/// The settings that change how the title looks.
struct StatusTitleStyle {
    bool showsDirectionArrow = true;
    PriceColorScheme colorScheme = PriceColorScheme::redUpGreenDown;
};

/// The title of the status item: the segments' texts with two spaces between them, each followed by
/// a space and its arrow where arrows are shown. A flat direction has no arrow. Only arrows are
/// coloured, and they are 2 points smaller than the text. No segments give no runs.
platform::AttributedTitle statusTitle(std::span<const StatusTitleSegment> segments,
                                      const StatusTitleStyle& style);

} // namespace quorvel
