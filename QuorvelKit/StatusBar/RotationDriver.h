// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvel {

/// Turns time into the position of the pair that a rotating status text shows.
///
/// The position depends on how long ago the rotation began and on nothing else, so a refresh that
/// comes late, or twice, still shows the right pair.
struct RotationDriver {
    /// The position, from 0 to `itemCount` - 1; 0 when there is nothing to rotate through.
    ///
    /// @param elapsed   seconds since the rotation began; negative or not a number counts as 0
    /// @param interval  seconds that each pair stays; anything not above 0 counts as 1
    /// @param itemCount number of pairs in rotation
    ///
    /// More steps than a signed 64-bit integer holds give 0.
    static int index(double elapsed, double interval, int itemCount);
};

} // namespace quorvel
