#pragma once

#include "Platform/Desktop/StatusItemPresentationKind.h"
#include "Platform/Desktop/StripPosition.h"

#include <optional>

namespace platform {

/// What the user may want otherwise about how a status item is shown.
struct StatusItemOptions {
    /// Absent: what fits the desktop.
    std::optional<StatusItemPresentationKind> presentation;

    StripPosition stripPosition;
};

} // namespace platform
