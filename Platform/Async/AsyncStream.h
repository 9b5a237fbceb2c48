// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/StreamBell.h"

#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

template <typename T>
class AsyncStream;

namespace detail {

/// What the two ends of a stream share.
template <typename T>
struct StreamState {
    std::mutex mutex;
    std::vector<T> queue;
    bool isFinished = false;
    bool isAbandoned = false;
    StreamBell* bell = nullptr; ///< set while the consumer waits and has not been woken
};

/// Finishes the stream when the last writer goes.
template <typename T>
class WriterGuard {
public:
    explicit WriterGuard(std::shared_ptr<StreamState<T>> state) : state_(std::move(state)) {}
    WriterGuard(const WriterGuard&) = delete;
    WriterGuard& operator=(const WriterGuard&) = delete;
    ~WriterGuard() { finish(); }

    bool push(T item) {
        const std::scoped_lock lock(state_->mutex);
        if (state_->isFinished || state_->isAbandoned)
            return false;
        state_->queue.push_back(std::move(item));
        wake();
        return true;
    }

    void finish() {
        const std::scoped_lock lock(state_->mutex);
        state_->isFinished = true;
        wake();
    }

private:
    void wake() {
        if (StreamBell* const bell = std::exchange(state_->bell, nullptr))
            bell->ring();
    }

    std::shared_ptr<StreamState<T>> state_;
};

} // namespace detail

/// The producing end of a stream. Copies share one stream and may be used on any thread; the stream
/// finishes when `finish` is called or the last copy is gone.
template <typename T>
class AsyncStreamWriter {
public:
    /// A writer of nothing: `push` gives false.
    AsyncStreamWriter() = default;

    /// Adds an item to the end of the queue, which has no limit. False, and the item is dropped,
    /// when the stream has been finished or its consumer is gone.
    bool push(T item) const { return guard_ && guard_->push(std::move(item)); }

    /// Ends the stream. The consumer still gets what is queued.
    void finish() const {
        if (guard_)
            guard_->finish();
    }

    explicit operator bool() const { return guard_ != nullptr; }

private:
    friend class AsyncStream<T>;
    explicit AsyncStreamWriter(std::shared_ptr<detail::StreamState<T>> state)
        : guard_(std::make_shared<detail::WriterGuard<T>>(std::move(state))) {}

    std::shared_ptr<detail::WriterGuard<T>> guard_;
};

/// A queue without limit from writers on any thread to one consumer, first in, first out.
///
/// A wake-up is posted only when the consumer waits, and it then takes everything that is queued at
/// once; after 4 ms without a pause it gives way to the event loop. May be made on one thread and
/// consumed on another; the consumer is whoever awaits `next` first.
template <typename T>
class AsyncStream {
public:
    /// Waits for an item. Made by `AsyncStream::next`.
    class [[nodiscard]] Next : public Awaiter {
    public:
        explicit Next(AsyncStream& stream) : stream_(stream) {}
        ~Next() {
            if (isWaiting_)
                stream_.stopWaiting();
        }
        bool isReady() { return stream_.isReady(); }
        bool suspend(Suspension consumer) { return isWaiting_ = stream_.wait(consumer); }
        std::optional<T> take() {
            isWaiting_ = false;
            return stream_.take();
        }

    private:
        AsyncStream& stream_;
        bool isWaiting_ = false;
    };

    /// A new stream and its first writer.
    static std::pair<AsyncStream, AsyncStreamWriter<T>> make() {
        auto state = std::make_shared<detail::StreamState<T>>();
        AsyncStreamWriter<T> writer(state);
        return {AsyncStream(std::move(state)), std::move(writer)};
    }

    AsyncStream(AsyncStream&&) noexcept = default;
    AsyncStream& operator=(AsyncStream&&) = delete;
    ~AsyncStream() {
        if (!state_)
            return;
        const std::scoped_lock lock(state_->mutex);
        state_->isAbandoned = true;
        state_->bell = nullptr;
    }

    /// The next item; absent once the stream has finished and all items are taken.
    Next next() { return Next(*this); }

private:
    explicit AsyncStream(std::shared_ptr<detail::StreamState<T>> state)
        : state_(std::move(state)) {}

    bool hasItem() const { return position_ < batch_.size(); }

    /// The bell belongs to the consumer's thread, which is known only once it asks for an item.
    StreamBell& bell() {
        if (!bell_)
            bell_ = std::make_unique<StreamBell>();
        return *bell_;
    }

    bool isReady() {
        if (!hasItem() && takeBatch())
            return true;
        return hasItem() && !bell().isTurnOver();
    }

    /// Takes the whole queue; true when there is none and there will be none.
    bool takeBatch() {
        batch_.clear();
        position_ = 0;
        const std::scoped_lock lock(state_->mutex);
        std::swap(batch_, state_->queue);
        return batch_.empty() && state_->isFinished;
    }

    bool wait(Suspension consumer) {
        bell().wait(consumer);
        if (hasItem()) { // only gives way
            bell().ring();
            return true;
        }
        const std::scoped_lock lock(state_->mutex);
        if (state_->queue.empty() && !state_->isFinished)
            state_->bell = &bell();
        else
            bell().ring();
        return true;
    }

    void stopWaiting() {
        bell().stopWaiting();
        const std::scoped_lock lock(state_->mutex);
        state_->bell = nullptr;
    }

    std::optional<T> take() {
        if (!hasItem())
            takeBatch();
        if (!hasItem())
            return std::nullopt;
        return std::move(batch_[position_++]);
    }

    std::shared_ptr<detail::StreamState<T>> state_;
    std::unique_ptr<StreamBell> bell_;
    std::vector<T> batch_;
    std::size_t position_ = 0;
};

} // namespace platform
