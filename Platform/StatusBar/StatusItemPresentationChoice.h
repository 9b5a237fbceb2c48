// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Desktop/StatusItemDesktop.h"
#include "Platform/StatusBar/StatusItemPresentationKind.h"

#include <optional>

namespace platform {

/// Which presentation makes a status item's text readable on a desktop. Pure.
struct StatusItemPresentationChoice {
    /// @param preferred what the user asks for; absent: whatever fits. A wish that would leave the
    ///                  item invisible, such as a label without a panel, gives way to what fits.
    static StatusItemPresentationKind of(std::optional<StatusItemPresentationKind> preferred,
                                         const StatusItemDesktop& desktop);

    /// Why what a kind shows would not be seen; absent where it would be, as far as is known.
    enum class Obstacle {
        noPanel,     ///< nothing here shows status items
        noText,      ///< the panel writes no text beside an icon
        squareIcons, ///< the panel shows a wide picture cut or shrunk to a square
        noTray,      ///< nothing here takes windows into a tray
        noPlacement, ///< windows cannot be placed here
    };
    static std::optional<Obstacle> obstacle(StatusItemPresentationKind kind,
                                            const StatusItemDesktop& desktop);

    /// Whether it is known what the desktop's panel makes of an item's text. True without a panel.
    static bool isPanelKnown(const StatusItemDesktop& desktop);

    /// Whether the desktop's panel has to find a label at its first look, be it empty, in order to
    /// show one ever.
    static bool keepsEmptyLabel(const StatusItemDesktop& desktop);
};

} // namespace platform
