// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

#include <vector>

namespace platform {

/// The square image of a status item, rendered at the sizes that panels ask for.
struct StatusItemImage {
    /// Square renderings, each of another size.
    std::vector<QImage> renderings;

    /// Whether the user wants to see the image. A presentation that cannot do without one shows a
    /// transparent image of the same size instead.
    bool isShown = true;

    /// The image at `size` x `size` pixels: the rendering of that size, else the next larger one
    /// (or the largest) scaled; fully transparent when not shown or when there is no rendering.
    QImage atSize(int size) const;

    bool operator==(const StatusItemImage&) const = default;
};

} // namespace platform
