// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/AttributedTitle.h"
#include "QuorvelKit/StatusBar/StatusBarSegment.h"
#include "QuorvelKit/Stores/DisplaySettings.h"

#include <span>

namespace quorvel {

/// The title of the status item: the segments' texts with two spaces between them, each followed by
/// a space and its arrow where arrows are shown. A flat direction has no arrow. Only arrows are
/// coloured, and they are 2 points smaller than the text. No segments give no runs. Made of the
/// segments and not of their joined text, which has no place left for arrows.
platform::AttributedTitle statusTitle(std::span<const StatusBarSegment> segments,
                                      const DisplaySettings& settings);

} // namespace quorvel
