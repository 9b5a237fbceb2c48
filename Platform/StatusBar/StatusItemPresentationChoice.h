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

    /// Whether the desktop's panel has to find a label at its first look, be it empty, in order to
    /// show one ever.
    static bool keepsEmptyLabel(const StatusItemDesktop& desktop);
};

} // namespace platform
