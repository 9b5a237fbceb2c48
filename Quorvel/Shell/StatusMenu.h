#pragma once

#include "Platform/StatusBar/MenuEntry.h"

#include <vector>

namespace quorvel {

/// The status item's menu: the way to everything on panels that know no click.
struct StatusMenu {
    enum Action { open, settings, quit };

    /// In the order of the actions, a line above the last.
    static std::vector<platform::MenuEntry> entries();
};

} // namespace quorvel
