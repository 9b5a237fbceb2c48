// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <cstddef>

namespace simulator {

/// What all stream connections have in common beside the limits.
struct StreamTerms {
    QStringList refusedStreams;      ///< a subscription of any of them is refused
    std::ptrdiff_t mostMessages = 0; ///< that one of them sent within a second
};

} // namespace simulator
