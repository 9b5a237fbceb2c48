// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/Compositing.h"

#include "Platform/Desktop/X11.h"

namespace platform {

bool isDisplayComposited() {
    // A compositor owns the selection of that name while it runs.
    return !x11::connection() || x11::selectionOwner("_NET_WM_CM_S0") != 0;
}

} // namespace platform
