// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/TaskScope.h"

#include <algorithm>

namespace platform {

void TaskScope::start(Task<void> task) {
    std::erase_if(tasks_, [](const TaskHandle& handle) { return !handle.isRunning(); });
    tasks_.push_back(startTask(std::move(task)));
}

void TaskScope::cancelAll() {
    // Moved out first: frames that end may start tasks in this scope.
    const auto cancelled = std::exchange(tasks_, {});
}

bool TaskScope::isRunning() const {
    return std::ranges::any_of(tasks_, &TaskHandle::isRunning);
}

} // namespace platform
