// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>

#include <optional>

namespace platform {

/// A global point given in the display's own pixels, as Qt counts: per screen, scaled from its
/// corner. Absent where there is no screen.
std::optional<QPoint> fromDevicePixels(QPoint point);

} // namespace platform
