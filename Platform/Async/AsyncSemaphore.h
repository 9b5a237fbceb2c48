// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFuture>
#include <QPromise>

#include <cstddef>
#include <deque>
#include <utility>

namespace platform {

/// Lets only so many tasks do something at a time; the others wait, and go on in the order in which
/// they came. Belongs to one thread, and outlives its permits.
class AsyncSemaphore {
public:
    /// The right to go on. Given back when it is destroyed, to the one that has waited longest.
    class [[nodiscard]] Permit {
    public:
        Permit(Permit&& other) noexcept : semaphore_(std::exchange(other.semaphore_, nullptr)) {}
        Permit& operator=(Permit&& other) noexcept {
            std::swap(semaphore_, other.semaphore_);
            return *this;
        }
        ~Permit() {
            if (semaphore_)
                semaphore_->release();
        }

    private:
        friend AsyncSemaphore;
        explicit Permit(AsyncSemaphore& semaphore) : semaphore_(&semaphore) {}

        AsyncSemaphore* semaphore_;
    };

    /// @param permits how many there are, at least 1
    explicit AsyncSemaphore(std::size_t permits) : free_(permits) {}
    AsyncSemaphore(const AsyncSemaphore&) = delete;
    AsyncSemaphore& operator=(const AsyncSemaphore&) = delete;

    /// A permit as soon as there is one. Who gives up waiting leaves the queue, and a permit that
    /// has come meanwhile goes on to the next.
    QFuture<Permit> acquire();

private:
    void release();

    std::size_t free_;
    std::deque<QPromise<Permit>> waiting_;
};

} // namespace platform
