#pragma once

#include "Platform/Desktop/MenuEntry.h"

#include <vector>

namespace quorvel {

/// The status item's menu: the way to everything on panels that know no click.
struct StatusMenu {
    enum Action { open, settings, quit };

    /// Open and Settings… are disabled as long as there is no window behind them.
    static std::vector<platform::MenuEntry> entries();
};

} // namespace quorvel
