// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemColors.h"

#include "Platform/Appearance/DynamicColor.h"

#include <QPalette>

namespace platform {

namespace {

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

/// What `over` looks like on `under`, opaque.
QColor blended(const QColor& over, double alpha, const QColor& under) {
    const auto mix = [alpha](int top, int bottom) {
        return qRound(alpha * top + (1 - alpha) * bottom);
    };
    return {mix(over.red(), under.red()), mix(over.green(), under.green()),
            mix(over.blue(), under.blue())};
}

} // namespace

SystemColors SystemColors::of(const QPalette& palette) {
    const QColor label = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const bool isDark = appearanceOf(palette) == Appearance::dark;
    return {
        .label = label,
        .secondaryLabel = withAlpha(label, 0.74),
        .tertiaryLabel = withAlpha(label, 0.63),
        .background = window,
        .formBackground = isDark ? window : blended(label, 0.045, window),
        .card = palette.color(QPalette::Active, QPalette::Base),
        .field = withAlpha(label, isDark ? 0.09 : 0.065),
        .outline = withAlpha(label, isDark ? 0.38 : 0.47),
        .separator = withAlpha(label, isDark ? 0.16 : 0.13),
        .hover = withAlpha(label, 0.06),
        .pressed = withAlpha(label, 0.12),
        .accent = palette.color(QPalette::Active, QPalette::Highlight),
        .orange = isDark ? QColor(255, 179, 64) : QColor(168, 78, 0),
        .red = isDark ? QColor(255, 107, 108) : QColor(196, 30, 32),
    };
}

Appearance appearanceOf(const QPalette& palette) {
    const int text = qGray(palette.color(QPalette::Active, QPalette::WindowText).rgb());
    const int window = qGray(palette.color(QPalette::Active, QPalette::Window).rgb());
    return text > window ? Appearance::dark : Appearance::light;
}

QPalette systemPalette(Appearance appearance, const QPalette& desktop) {
    const auto color = [appearance](QColor light, QColor dark) {
        return DynamicColor{light, dark}.resolved(appearance);
    };
    const QColor window = color({251, 251, 252}, {36, 36, 40});
    const QColor text = color({20, 20, 23}, {245, 245, 247});
    const QColor button = color({240, 240, 243}, {58, 58, 63});
    QPalette palette(button, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, color({255, 255, 255}, {46, 46, 50}));
    palette.setColor(QPalette::AlternateBase, color({246, 246, 248}, {52, 52, 57}));
    palette.setColor(QPalette::ToolTipBase, color({255, 255, 255}, {52, 52, 57}));
    palette.setColor(QPalette::PlaceholderText, withAlpha(text, 0.65));
    palette.setColor(QPalette::Highlight, desktop.color(QPalette::Active, QPalette::Highlight));
    palette.setColor(QPalette::HighlightedText,
                     desktop.color(QPalette::Active, QPalette::HighlightedText));
    palette.setColor(QPalette::Link, desktop.color(QPalette::Active, QPalette::Highlight));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, blended(text, 0.45, window));
    return palette;
}

} // namespace platform
