// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QPalette>

#include <optional>

namespace platform {

/// The colours that views are drawn in, all taken from one palette, so that a view follows the
/// application's appearance by asking anew when its palette changes.
///
/// Each of the three strengths of text keeps a contrast of at least 4.5 to 1 on the background. In
/// a palette of high contrast there is one strength of text, and every control has an edge.
struct SystemColors {
    QColor label;          ///< text that matters
    QColor secondaryLabel; ///< text beside it
    QColor tertiaryLabel;  ///< the faintest text
    QColor background;     ///< of windows and popovers
    QColor formBackground; ///< of a window whose content lies on cards
    QColor card;           ///< of such a card
    QColor field;          ///< of a place to type in
    QColor outline;        ///< the edge of a control, with a contrast of at least 3 to 1
    QColor separator;      ///< hairlines, opaque enough to be seen on the background
    QColor hover;          ///< laid over the background below the pointer
    QColor pressed;        ///< laid over the background of what is held down
    QColor knob;           ///< of a switch that is off, on `outline`
    /// Around every control that has a fill; absent where the fill says enough.
    std::optional<QColor> edge;
    QColor accent; ///< focus marks, from the desktop's selection colour
    QColor orange; ///< text of a warning
    QColor red;    ///< text of an error

    static SystemColors of(const QPalette& palette);
};

/// Whether text in this palette is darker than what it stands on, or lighter.
Appearance appearanceOf(const QPalette& palette);

/// Whether this is a palette of high contrast: of text and ground one is black, the other white.
bool isHighContrast(const QPalette& palette);

/// What the desktop asks of programs, besides being light or dark.
struct DesktopWishes {
    std::optional<QColor> accent; ///< absent: the selection colour of the desktop's palette
    bool wantsHighContrast = false;

    bool operator==(const DesktopWishes&) const = default;
};

/// The application's palette for an appearance.
///
/// @param desktop the desktop's own palette, which lends its selection colour
QPalette systemPalette(Appearance appearance, const QPalette& desktop,
                       const DesktopWishes& wishes = {});

} // namespace platform
