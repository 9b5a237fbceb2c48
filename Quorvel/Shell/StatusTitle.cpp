#include "Quorvel/Shell/StatusTitle.h"

#include "Quorvel/Model/PriceColors.h"

namespace quorvel {

namespace {

constexpr double arrowSizeDifference = -2;

QString arrowOf(PriceDirection direction) {
    return direction == PriceDirection::up ? QStringLiteral("\u25B2") : QStringLiteral("\u25BC");
}

} // namespace

platform::AttributedTitle statusTitle(std::span<const StatusTitleSegment> segments,
                                      const StatusTitleStyle& style) {
    platform::AttributedTitle title;
    for (const StatusTitleSegment& segment : segments) {
        if (!title.runs.empty())
            title.runs.push_back({QStringLiteral("  "), std::nullopt, 0});
        title.runs.push_back({segment.text, std::nullopt, 0});
        if (!style.showsDirectionArrow || segment.direction == PriceDirection::flat)
            continue;
        title.runs.push_back({QStringLiteral(" "), std::nullopt, 0});
        title.runs.push_back({arrowOf(segment.direction),
                              directionColor(segment.direction, style.colorScheme),
                              arrowSizeDifference});
    }
    return title;
}

} // namespace quorvel
