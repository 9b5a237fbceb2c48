// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace platform {

/// A lock on a file that one process at a time can hold, on one machine or, where the file system
/// knows of locks, on several. The system frees it when the process ends, however that ends. The
/// file itself stays.
class FileLock {
public:
    enum class State {
        held,          ///< by this object
        heldElsewhere, ///< by another one, in this process or another
        impossible,    ///< the file cannot be opened, or its file system knows no locks
    };

    /// Touches nothing yet. @param path the file; made where it is missing, not so its directory
    explicit FileLock(QString path) : path_(std::move(path)) {}
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock() { release(); }

    /// Takes the lock if it is free. Does not wait.
    State tryTake();

    /// Does nothing where it is not held.
    void release();

    /// Writes into the file which process has it, for people to read. The lock must be held; that
    /// the text cannot be written changes nothing about it.
    void writeHolder() const;

    /// The process that was written last; absent where that is unknown.
    std::optional<std::int64_t> writtenHolder() const;

private:
    QString path_;
    int descriptor_ = -1;
};

} // namespace platform
