#include "Quorvel/Shell/StatusMenu.h"

#include "Platform/Foundation/StringTable.h"

namespace quorvel {

std::vector<platform::MenuEntry> StatusMenu::entries() {
    using platform::localized;
    return {{.id = open, .text = localized("Quorvel", "Open"), .isEnabled = false},
            {.id = settings, .text = localized("Quorvel", "Settings…"), .isEnabled = false},
            platform::MenuEntry::separator(),
            {.id = quit, .text = localized("Quorvel", "Quit")}};
}

} // namespace quorvel
