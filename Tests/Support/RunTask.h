// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Tests/Support/WaitUntil.h"

#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>

namespace test {

/// A task that has been started, and what became of it.
template <typename T>
class Running {
public:
    explicit Running(platform::Task<T> task)
        : handle_(platform::startTask(follow(std::move(task)))) {}
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    bool isRunning() const { return handle_.isRunning(); }
    void cancel() { handle_.cancel(); }

    /// Runs the event loop until the task has ended. Gives its result or throws its error;
    /// std::runtime_error where it does not end in time.
    T result() {
        if (!waitUntil([this] { return !isRunning(); }))
            throw std::runtime_error("the task did not end in time");
        if (error_)
            std::rethrow_exception(error_);
        if constexpr (!std::is_void_v<T>)
            return std::move(value_.value());
    }

private:
    platform::Task<> follow(platform::Task<T> task) {
        try {
            if constexpr (std::is_void_v<T>)
                co_await std::move(task);
            else
                value_.emplace(co_await std::move(task));
        } catch (...) {
            error_ = std::current_exception();
        }
    }

    std::optional<std::conditional_t<std::is_void_v<T>, bool, T>> value_;
    std::exception_ptr error_;
    platform::TaskHandle handle_;
};

/// Runs a task to its end on this thread's event loop.
template <typename T>
T runTask(platform::Task<T> task) {
    return Running<T>(std::move(task)).result();
}

/// The error of that type with which a task ends; absent where it ends well. Any other passes on.
template <typename Error, typename T>
std::optional<Error> errorOf(platform::Task<T> task) {
    try {
        runTask(std::move(task));
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace test
