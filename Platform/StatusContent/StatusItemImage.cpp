// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StatusItemImage.h"

#include <algorithm>

namespace platform {

namespace {

/// The rendering that loses least when brought to `size`. There must be one.
const QImage& bestSource(const std::vector<QImage>& renderings, int size) {
    // Those large enough come before those too small; among either, the nearest comes first.
    return *std::ranges::min_element(renderings, {}, [size](const QImage& image) {
        const int excess = image.width() - size;
        return std::pair(excess < 0, std::abs(excess));
    });
}

} // namespace

QImage StatusItemImage::atSize(int size) const {
    if (isShown && !renderings.empty())
        return bestSource(renderings, size)
            .scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage transparent(size, size, QImage::Format_ARGB32);
    transparent.fill(Qt::transparent);
    return transparent;
}

} // namespace platform
