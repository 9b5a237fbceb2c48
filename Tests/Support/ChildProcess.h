// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace test {

/// A process whose standard output is read from a pipe. Killed with this object, and by the system
/// with the test's own process.
///
/// Blocks where it waits, and runs no event loop. Started by posix_spawn: the thread sanitizer
/// cannot follow the way in which QProcess starts one.
class ChildProcess {
public:
    ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() { kill(); }

    /// Starts `command`, its first word the program, in place of the process before.
    /// @throws std::runtime_error where that fails
    void start(std::vector<std::string> command);

    /// What was printed up to the first line feed, without it; less where the time is over or the
    /// process ends.
    std::string readLine(std::chrono::milliseconds patience) const;

    void sendSignal(int number) const;

    /// Waits for the end. The exit status; absent where the time is over, and negative, the
    /// signal's number, where a signal ended it.
    std::optional<int> waitForEnd(std::chrono::milliseconds patience);

    /// Ends it at once, if it runs.
    void kill();

private:
    void closeOutput();

    pid_t pid_ = -1;
    int output_ = -1;
};

} // namespace test
