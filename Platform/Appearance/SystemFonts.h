// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>

namespace platform {

/// The desktop's own font at a size in device-independent pixels, whatever size the desktop gave
/// it.
QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

/// The desktop's fixed-width font, for figures that change in place. @param size as above
QFont monospacedSystemFont(int size);

} // namespace platform
