// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/AppearanceMode.h"

#include "Platform/Foundation/StringTable.h"

namespace quorvel {

QString label(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::system:
        break;
    case AppearanceMode::light:
        return platform::localized("QuorvelKit", "Light");
    case AppearanceMode::dark:
        return platform::localized("QuorvelKit", "Dark");
    }
    return platform::localized("QuorvelKit", "Follow system");
}

} // namespace quorvel
