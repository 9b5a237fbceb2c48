// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/RowDrag.h"

#include <algorithm>

namespace quorvel {

int RowDrag::top() const {
    return std::clamp(pointer - grip, 0, (static_cast<int>(count) - 1) * pitch);
}

std::size_t RowDrag::target() const {
    return static_cast<std::size_t>((top() + pitch / 2) / pitch);
}

int RowDrag::topOf(std::size_t index) const {
    const std::size_t to = target();
    if (index > from && index <= to)
        --index;
    else if (index < from && index >= to)
        ++index;
    return static_cast<int>(index) * pitch;
}

} // namespace quorvel
