// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusNotifier/StatusNotifierTypes.h"

#include <QString>

#include <optional>

namespace platform {

/// What a status item says of itself on the bus and may change.
struct StatusNotifierState {
    /// Absent: the item has no label, and says so by not having the property.
    std::optional<QString> label;

    /// The text that a panel should keep room for, so that neighbours do not jump at each price.
    QString labelGuide;

    QString toolTip;
    QString toolTipBody; ///< below it; empty where there is none

    /// The absolute path of an image file; empty when there is none.
    QString iconName;

    IconPixmapList iconPixmaps;

    QString widgetHint; ///< for the program's own widgets

    bool isPassive = false; ///< panels may put it away

    bool operator==(const StatusNotifierState&) const = default;
};

} // namespace platform
