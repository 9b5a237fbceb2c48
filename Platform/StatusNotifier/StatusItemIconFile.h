// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QImage;

namespace platform {

/// Image files for panels that show an icon only when they are given its path.
struct StatusItemIconFile {
    /// The path of a PNG file in `directory` that holds `image`, written if it is not there yet;
    /// empty when it cannot be written.
    ///
    /// The file's name begins with `prefix` and depends on what the image looks like: a panel keeps
    /// what it once loaded from a path, so another image has to have another path.
    static QString pathOf(const QImage& image, const QString& directory, const QString& prefix);
};

} // namespace platform
