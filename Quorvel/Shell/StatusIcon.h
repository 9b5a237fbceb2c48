// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemImage.h"

namespace quorvel {

/// The picture of the status item: three candlesticks in their own colours on a transparent square.
/// They do not follow the colour scheme of prices.
struct StatusIcon {
    /// Width and height of the drawing in points.
    static constexpr double side = 14.0;

    /// The icon, filling `pixelSize` x `pixelSize` pixels, antialiased.
    ///
    /// @param devicePixelRatio pixels per point that the image claims to have; it changes nothing
    ///                         about the pixels
    static QImage image(int pixelSize, double devicePixelRatio = 1.0);

    /// The icon at the sizes that panels ask for.
    static platform::StatusItemImage statusItemImage(bool isShown);

    /// The icon crossed out, which says that prices are not live.
    static platform::StatusItemImage crossedImage();
};

} // namespace quorvel
