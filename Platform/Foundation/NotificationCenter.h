// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace platform {

/// Tells those who registered of events, by the event's name.
///
/// Everything happens on the main thread, and inside the call: when `post` returns, all have been
/// told. They may register and remove observers meanwhile, and post. The center itself must not go
/// while it posts.
class NotificationCenter {
public:
    /// One registration; given out once.
    enum class Token : std::uint64_t {};

    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    /// Has `block` called at each event of this name until the registration is removed. The first
    /// call is for the first event posted after this.
    [[nodiscard]] Token addObserver(const QString& name, std::function<void()> block);

    /// Ends a registration: its block is not called any more, not even for an event that is being
    /// told of at the moment. Does nothing for one that has ended.
    void removeObserver(Token token) { observers_.erase(token); }

    /// Calls the blocks registered for this name, oldest first.
    void post(const QString& name);

private:
    struct Observer {
        QString name;
        std::function<void()> block;
    };

    std::uint64_t count_ = 0;
    /// In the order of registration. Shared with `post`, so that a block may end its own.
    std::map<Token, std::shared_ptr<const Observer>> observers_;
};

} // namespace platform
