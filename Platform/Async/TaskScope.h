// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"

#include <vector>

namespace platform {

/// Owns any number of started tasks and cancels those that still run when it is destroyed.
class TaskScope {
public:
    /// Starts a task that the scope owns.
    void start(Task<void> task);

    /// Cancels every task of the scope.
    void cancelAll();

    /// Whether any task of the scope has not ended.
    bool isRunning() const;

private:
    std::vector<TaskHandle> tasks_;
};

} // namespace platform
