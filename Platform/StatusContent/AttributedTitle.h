// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/DynamicColor.h"

#include <QString>

#include <optional>
#include <vector>

namespace platform {

/// The text of a status item, in runs that may differ in colour and size. A presentation that draws
/// with one colour uses the plain text.
struct AttributedTitle {
    /// Consecutive characters that look the same.
    struct Run {
        QString text;

        /// Absent: the colour that the panel writes labels in.
        std::optional<DynamicColor> color;

        /// Points added to the size that the panel writes labels in.
        double sizeDifference = 0;

        bool operator==(const Run&) const = default;
    };

    std::vector<Run> runs;

    /// The texts of all runs, one after the other; empty when there is nothing to show.
    QString plainText() const;

    bool operator==(const AttributedTitle&) const = default;
};

} // namespace platform
