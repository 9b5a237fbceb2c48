// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/MenuEntry.h"

#include <vector>

namespace quorvel {

/// The status item's menu: the way to everything on panels that know no click.
struct StatusMenu {
    enum Action { open, settings, quit };

    /// In the order of the actions, a line above the last.
    static std::vector<platform::MenuEntry> entries();
};

} // namespace quorvel
