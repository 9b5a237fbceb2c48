// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

// Run at configure time: ends with 0 when objects inside co_await expressions are destroyed exactly
// once, in the shapes that a faulty compiler gets wrong.
#include <coroutine>
#include <exception>
#include <utility>

namespace {

int alive = 0;

struct Counted {
    Counted() { ++alive; }
    Counted(const Counted&) { ++alive; }
    Counted(Counted&&) noexcept { ++alive; }
    Counted& operator=(const Counted&) = default;
    Counted& operator=(Counted&&) = default;
    ~Counted() { --alive; }
};

struct Job {
    struct promise_type {
        Job get_return_object() { return {}; }
        std::suspend_never initial_suspend() noexcept { return {}; }
        std::suspend_never final_suspend() noexcept { return {}; }
        void return_void() {}
        void unhandled_exception() { std::terminate(); }
    };
};

struct Awaitable {
    Counted held;
    bool await_ready() const { return false; }
    bool await_suspend(std::coroutine_handle<>) const { return false; }
    void await_resume() const {}
};

struct Aggregate {
    Counted first;
    int second = 0;
};

Awaitable take(Aggregate aggregate) {
    return Awaitable{std::move(aggregate.first)};
}

template <typename Function>
Awaitable call(Function function) {
    return Awaitable{function()};
}

Job aggregateArgument() {
    co_await take({Counted(), 1});
}

Job aggregateAwaitable() {
    co_await Awaitable{Counted()};
}

Job capturingLambda() {
    const Counted captured;
    co_await call([captured] { return captured; });
}

Job conditional(bool first) {
    co_await take(first ? Aggregate{Counted(), 1} : Aggregate{Counted(), 2});
}

} // namespace

int main() {
    aggregateArgument();
    aggregateAwaitable();
    capturingLambda();
    conditional(true);
    conditional(false);
    return alive == 0 ? 0 : 1;
}
