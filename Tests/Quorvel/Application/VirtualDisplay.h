// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Support/ChildProcess.h"

#include <QByteArray>

namespace test {

/// An X display of a test's own, in memory: 1280 by 800, and open to processes of other users. The
/// environment names it while it lives.
class VirtualDisplay {
public:
    /// @throws std::runtime_error where it does not start
    VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;
    ~VirtualDisplay();

private:
    ChildProcess server_;
    QByteArray displayBefore_;
};

} // namespace test
