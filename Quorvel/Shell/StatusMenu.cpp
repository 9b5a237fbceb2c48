// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Shell/StatusMenu.h"

#include "Platform/Foundation/StringTable.h"

namespace quorvel {

std::vector<platform::MenuEntry> StatusMenu::entries() {
    using platform::localized;
    return {{.id = open, .text = localized("Quorvel", "Open")},
            {.id = settings, .text = localized("Quorvel", "Settings…")},
            platform::MenuEntry::separator(),
            {.id = quit, .text = localized("Quorvel", "Quit")}};
}

} // namespace quorvel
