// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/DynamicColor.h"
#include "QuorvelKit/MarketModel/PriceDirection.h"
#include "QuorvelKit/Stores/PriceColorScheme.h"

#include <optional>

namespace quorvel {

/// The application's green, readable on a surface of the given appearance.
QColor brandGreen(platform::Appearance appearance);

/// The application's red, readable on a surface of the given appearance.
QColor brandRed(platform::Appearance appearance);

/// The colour of a price that moved in `direction`, for places that are painted later; absent for
/// `flat`, which is written in the colour of the text around it.
std::optional<platform::DynamicColor> directionColor(PriceDirection direction,
                                                     PriceColorScheme scheme);

/// The same colour on a surface of the given appearance.
std::optional<QColor> directionColor(PriceDirection direction, PriceColorScheme scheme,
                                     platform::Appearance appearance);

} // namespace quorvel
