// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <csignal>
#include <sys/resource.h>

namespace test {

/// Lets no file of this process grow beyond a size while it lives: what a full disk looks like.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : signalBefore_(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limited{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, signalBefore_);
    }

private:
    rlimit before_{};
    sighandler_t signalBefore_;
};

} // namespace test
