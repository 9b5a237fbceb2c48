// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/AccentColors.h"

#include <QPalette>

#include <cmath>

namespace platform {

namespace {

constexpr double wantedContrast = 4.5;

double linear(float share) {
    const auto channel = static_cast<double>(share);
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance, as contrast is reckoned with.
double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrastToWhite(const QColor& color) {
    return 1.05 / (luminance(color) + 0.05);
}

} // namespace

AccentColors AccentColors::of(const QPalette& palette) {
    QColor fill = palette.color(QPalette::Active, QPalette::Highlight);
    // On a yellow, say, white would need so much darkening that brown is left.
    constexpr double brightest = 2;
    if (contrastToWhite(fill) < brightest)
        return {fill, Qt::black};
    constexpr int step = 104; // percent
    while (contrastToWhite(fill) < wantedContrast)
        fill = fill.darker(step);
    return {fill, Qt::white};
}

} // namespace platform
