// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/AttributedTitle.h"
#include "Platform/StatusContent/StatusItemImage.h"

namespace platform {

/// Everything that a status item shows at one moment.
struct StatusItemContent {
    StatusItemImage image;
    AttributedTitle title;
    QString toolTip;

    bool operator==(const StatusItemContent&) const = default;
};

} // namespace platform
