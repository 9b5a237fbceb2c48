// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusBar/StatusItemPresentationKind.h"
#include "Platform/StatusContent/StripPosition.h"

#include <optional>

namespace platform {

/// What the user may want otherwise about how a status item is shown.
struct StatusItemOptions {
    /// Absent: what fits the desktop.
    std::optional<StatusItemPresentationKind> presentation;

    StripPosition stripPosition;

    /// The name of the screen with the strip; empty, or of one that is not there: the primary one.
    QString stripScreen = {};
};

} // namespace platform
