// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/PriceColors.h"

namespace quorvel {

namespace {

platform::DynamicColor green() {
    return {.light = {21, 122, 49}, .dark = {42, 199, 75}};
}

platform::DynamicColor red() {
    return {.light = {196, 30, 32}, .dark = {255, 107, 108}};
}

} // namespace

QColor brandGreen(platform::Appearance appearance) {
    return green().resolved(appearance);
}

QColor brandRed(platform::Appearance appearance) {
    return red().resolved(appearance);
}

std::optional<platform::DynamicColor> directionColor(PriceDirection direction,
                                                     PriceColorScheme scheme) {
    if (direction == PriceDirection::flat)
        return std::nullopt;
    const bool isUp = direction == PriceDirection::up;
    const bool upIsRed = scheme == PriceColorScheme::redUpGreenDown;
    return isUp == upIsRed ? red() : green();
}

std::optional<QColor> directionColor(PriceDirection direction, PriceColorScheme scheme,
                                     platform::Appearance appearance) {
    const auto color = directionColor(direction, scheme);
    return color ? std::optional(color->resolved(appearance)) : std::nullopt;
}

} // namespace quorvel
