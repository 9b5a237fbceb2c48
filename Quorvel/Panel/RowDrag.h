// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace quorvel {

/// The arithmetic of dragging one row of a list to another place: rows of one height, numbered from
/// the top. Distances are device-independent pixels.
struct RowDrag {
    std::size_t from;  ///< the row's place
    std::size_t count; ///< of rows
    int pitch;         ///< from one row to the next
    int grip;          ///< where the row is held, from its top
    int pointer;       ///< where the pointer is, from the list's top

    /// The top of the dragged row; it does not leave the list.
    int top() const;

    /// The place that the row would have if it were let go now.
    std::size_t target() const;

    /// The top of another row, which makes room.
    int topOf(std::size_t index) const;
};

} // namespace quorvel
