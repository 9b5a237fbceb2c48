// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMargins>
#include <QPixmap>
#include <QRect>

class QPainter;

namespace platform {

struct SystemColors;

/// The card that a popover's content lies on: rounded corners and a soft shadow where the display
/// blends windows, else a plain rectangle; a hairline around it in either case.
class PopoverFrame {
public:
    static constexpr int cornerRadius = 12;

    /// What the frame takes around the card.
    static QMargins margins(bool isComposited);

    /// Paints what of the frame lies in `exposed`, for a window of the size of `window`.
    void paint(QPainter& painter, const QRect& window, const QRect& exposed,
               const SystemColors& colors, bool isComposited);

private:
    void paintShadow(QPainter& painter, const QRect& window);

    QPixmap shadow_; ///< of a small card, stretched to the size wanted
};

} // namespace platform
