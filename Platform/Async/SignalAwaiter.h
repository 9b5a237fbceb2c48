// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"
#include "Platform/Foundation/Clock.h"

#include <QObject>

#include <chrono>
#include <concepts>
#include <memory>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace platform {

/// The next emission of a signal, listened for from when this is made:
///
///     if (const auto arguments = co_await SignalAwaiter(socket, &Socket::received, clock, 2s))
///
/// Gives the signal's arguments; absent where the sender was destroyed first, or the time was up.
/// What listens is a member, so a task that was cancelled is never resumed. Belongs to the thread
/// of the sender, and to the coroutine that awaits it, once.
template <typename... Arguments>
class [[nodiscard]] SignalAwaiter final : public Awaiter {
public:
    template <typename Sender, typename Base>
        requires std::derived_from<Sender, Base>
    SignalAwaiter(Sender& sender, void (Base::*signal)(Arguments...)) {
        listen(sender, signal);
    }

    /// @param limit how long the emission may take, counted on `clock` from now on
    template <typename Sender, typename Base>
    SignalAwaiter(Sender& sender, void (Base::*signal)(Arguments...), Clock& clock,
                  std::chrono::milliseconds limit)
        : timer_(clock.startTimer(limit, [this] { end(); })) {
        listen(sender, signal);
    }

    bool isReady() const { return isOver_; }

    bool suspend(Suspension waiter) {
        waiter_ = waiter;
        return true;
    }

    std::optional<std::tuple<std::decay_t<Arguments>...>> take() { return std::move(emission_); }

private:
    template <typename Sender, typename Base>
    void listen(Sender& sender, void (Base::*signal)(Arguments...)) {
        QObject::connect(&sender, signal, &listener_, [this](std::decay_t<Arguments>... arguments) {
            if (isOver_)
                return;
            emission_.emplace(std::move(arguments)...);
            end();
        });
        QObject::connect(&sender, &QObject::destroyed, &listener_, [this] { end(); });
    }

    void end() {
        isOver_ = true;
        if (const Suspension waiter = std::exchange(waiter_, {}))
            waiter.resume();
    }

    std::optional<std::tuple<std::decay_t<Arguments>...>> emission_;
    bool isOver_ = false;
    Suspension waiter_;
    std::unique_ptr<ClockTimer> timer_;
    QObject listener_;
};

} // namespace platform
