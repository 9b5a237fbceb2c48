// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemFonts.h"

#include <QFontDatabase>
#include <QGuiApplication>

namespace platform {

QFont systemFont(int size, QFont::Weight weight) {
    QFont font = QGuiApplication::font();
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
