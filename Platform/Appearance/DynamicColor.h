// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QColor>

namespace platform {

/// A colour that differs with the appearance of the surface it is drawn on. It is resolved where it
/// is painted, because a panel may be dark while the windows are light.
struct DynamicColor {
    QColor light;
    QColor dark;

    /// The colour to paint with on a surface of the given appearance.
    QColor resolved(Appearance appearance) const;

    bool operator==(const DynamicColor&) const = default;
};

} // namespace platform
