// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Appearance/DynamicColor.h"

namespace platform {

QColor DynamicColor::resolved(Appearance appearance) const {
    return appearance == Appearance::dark ? dark : light;
}

} // namespace platform
