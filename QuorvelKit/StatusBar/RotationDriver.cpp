// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/StatusBar/RotationDriver.h"

#include <cstdint>

namespace quorvel {

int RotationDriver::index(double elapsed, double interval, int itemCount) {
    if (itemCount < 1)
        return 0;
    // Written so that a NaN takes the substitute as well.
    const double time = elapsed >= 0 ? elapsed : 0;
    const double step = interval > 0 ? interval : 1;
    const double steps = time / step;
    constexpr double firstTooLarge = 9223372036854775808.0; // 2^63
    if (!(steps < firstTooLarge))
        return 0;
    return static_cast<int>(static_cast<std::int64_t>(steps) % itemCount);
}

} // namespace quorvel
