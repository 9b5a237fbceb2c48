// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/SystemColors.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/DynamicColor.h"

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
    SystemColors colors{
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
        .knob = Qt::white,
        .edge = std::nullopt,
        .accent = palette.color(QPalette::Active, QPalette::Highlight),
        .orange = isDark ? QColor(255, 179, 64) : QColor(168, 78, 0),
        .red = isDark ? QColor(255, 107, 108) : QColor(196, 30, 32),
    };
    if (isHighContrast(palette)) {
        colors.secondaryLabel = colors.tertiaryLabel = label;
        colors.outline = colors.separator = label;
        colors.formBackground = colors.field = colors.knob = window;
        colors.hover = withAlpha(label, 0.2);
        colors.pressed = withAlpha(label, 0.35);
        colors.edge = label;
    }
    return colors;
}

bool isHighContrast(const QPalette& palette) {
    const QRgb text = palette.color(QPalette::Active, QPalette::WindowText).rgb();
    const QRgb window = palette.color(QPalette::Active, QPalette::Window).rgb();
    constexpr QRgb black = qRgb(0, 0, 0);
    constexpr QRgb white = qRgb(255, 255, 255);
    return (text == black && window == white) || (text == white && window == black);
}

Appearance appearanceOf(const QPalette& palette) {
    const int text = qGray(palette.color(QPalette::Active, QPalette::WindowText).rgb());
    const int window = qGray(palette.color(QPalette::Active, QPalette::Window).rgb());
    return text > window ? Appearance::dark : Appearance::light;
}

QPalette systemPalette(Appearance appearance, const QPalette& desktop,
                       const DesktopWishes& wishes) {
    const bool isHigh = wishes.wantsHighContrast;
    const auto color = [appearance](QColor light, QColor dark) {
        return DynamicColor{light, dark}.resolved(appearance);
    };
    const QColor extreme = color(Qt::white, Qt::black);
    const QColor window = isHigh ? extreme : color({251, 251, 252}, {36, 36, 40});
    const QColor text = isHigh ? color(Qt::black, Qt::white) : color({20, 20, 23}, {245, 245, 247});
    const QColor button = isHigh ? extreme : color({240, 240, 243}, {58, 58, 63});
    const QColor card = isHigh ? extreme : color({255, 255, 255}, {46, 46, 50});
    const QColor accent =
        wishes.accent.value_or(desktop.color(QPalette::Active, QPalette::Highlight));
    QPalette palette(button, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, card);
    palette.setColor(QPalette::AlternateBase,
                     isHigh ? extreme : color({246, 246, 248}, {52, 52, 57}));
    palette.setColor(QPalette::ToolTipBase,
                     isHigh ? extreme : color({255, 255, 255}, {52, 52, 57}));
    palette.setColor(QPalette::PlaceholderText, isHigh ? text : withAlpha(text, 0.65));
    // Selected text is drawn as text on the accent is.
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText,
                     wishes.accent ? AccentColors::of(palette).mark
                                   : desktop.color(QPalette::Active, QPalette::HighlightedText));
    palette.setColor(QPalette::Link, accent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, blended(text, 0.45, window));
    return palette;
}

} // namespace platform
