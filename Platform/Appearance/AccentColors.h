// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

class QPalette;

namespace platform {

/// The colours of what is switched on or chosen: the desktop's accent, darkened where white marks
/// on it would not be seen well.
struct AccentColors {
    QColor fill;
    QColor mark; ///< text and signs on `fill`, with a contrast of at least 4.5 to 1

    static AccentColors of(const QPalette& palette);
};

} // namespace platform
