// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/FileLock.h"

#include "Platform/Foundation/FileManager.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

FileLock::State FileLock::tryTake() {
    if (descriptor_ >= 0)
        return State::held;
    // Not to be inherited: a child that lives on would hold the lock.
    constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW;
    constexpr mode_t ownerOnly = 0600;
    const int opened = ::open(QFile::encodeName(path_).constData(), flags, ownerOnly);
    if (opened < 0)
        return State::impossible;
    if (::flock(opened, LOCK_EX | LOCK_NB) != 0) {
        const bool isTaken = errno == EWOULDBLOCK;
        ::close(opened);
        return isTaken ? State::heldElsewhere : State::impossible;
    }
    descriptor_ = opened;
    return State::held;
}

void FileLock::release() {
    if (descriptor_ < 0)
        return;
    // Not by closing alone: a child that is just being started has a copy.
    ::flock(descriptor_, LOCK_UN);
    ::close(descriptor_);
    descriptor_ = -1;
}

std::optional<std::int64_t> FileLock::writtenHolder() const {
    bool isNumber = false;
    const auto holder = FileManager::contents(path_).value_or(QByteArray()).toLongLong(&isNumber);
    return isNumber ? std::optional(holder) : std::nullopt;
}

void FileLock::writeHolder() const {
    const std::string holder = std::to_string(::getpid()) + '\n';
    if (::ftruncate(descriptor_, 0) == 0)
        std::ignore = ::pwrite(descriptor_, holder.data(), holder.size(), 0);
}

} // namespace platform
