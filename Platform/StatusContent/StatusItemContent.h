// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/AttributedTitle.h"
#include "Platform/StatusContent/StatusItemImage.h"

#include <QString>

#include <optional>

namespace platform {

/// Everything that a status item shows at one moment.
struct StatusItemContent {
    StatusItemImage image = {};
    AttributedTitle title = {};
    QString toolTip = {};
    /// What is wrong with what the item shows, which is then drawn faintly; absent where nothing
    /// is.
    std::optional<QString> notice = {};
    /// What the program's own widgets have to know besides; they get at nothing but the item.
    QString widgetHint = {};

    bool operator==(const StatusItemContent&) const = default;
};

} // namespace platform
