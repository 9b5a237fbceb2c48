// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

// The thread sanitizer does not see the synchronisation inside Qt's libraries. Where data crosses
// threads through them, these mark the two ends; elsewhere they are nothing.

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define QUORVEL_THREAD_SANITIZER
#endif
#endif

#ifdef QUORVEL_THREAD_SANITIZER
extern "C" {
void __tsan_acquire(void* address);
void __tsan_release(void* address);
}
#endif

namespace platform {

/// Everything done so far on this thread is seen by whoever acquires the same address later.
inline void releaseToOtherThread([[maybe_unused]] const void* address) {
#ifdef QUORVEL_THREAD_SANITIZER
    __tsan_release(const_cast<void*>(address));
#endif
}

/// The mark of what crosses through a `QFuture` or the end of a thread.
inline constexpr char throughQt = 0;

/// The other end of `releaseToOtherThread`.
inline void acquireFromOtherThread([[maybe_unused]] const void* address) {
#ifdef QUORVEL_THREAD_SANITIZER
    __tsan_acquire(const_cast<void*>(address));
#endif
}

} // namespace platform
