// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusTitle.h"

#include "Quorvel/Model/PriceColors.h"
#include "QuorvelKit/StatusBar/StatusBarPresenter.h"

namespace quorvel {

namespace {

constexpr double arrowSizeDifference = -2;

} // namespace

platform::AttributedTitle statusTitle(std::span<const StatusBarSegment> segments,
                                      const DisplaySettings& settings) {
    platform::AttributedTitle title;
    for (const StatusBarSegment& segment : segments) {
        if (!title.runs.empty())
            title.runs.push_back({StatusBarPresenter::sideBySideSeparator, std::nullopt, 0});
        title.runs.push_back({segment.text, std::nullopt, 0});
        const auto arrow = statusBarSymbol(segment.direction);
        if (!settings.showsDirectionArrow || !arrow)
            continue;
        title.runs.push_back({QStringLiteral(" "), std::nullopt, 0});
        title.runs.push_back(
            {*arrow, directionColor(segment.direction, settings.colorScheme), arrowSizeDifference});
    }
    return title;
}

} // namespace quorvel
