// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemFonts.h"

#include <QFontDatabase>

namespace platform {

QFont systemFont(int size, QFont::Weight weight) {
    // Only what is set here is the font's own: a widget goes on taking the family from the desktop.
    QFont font;
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

QFont monospacedSystemFont(int size) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(size);
    return font;
}

} // namespace platform
