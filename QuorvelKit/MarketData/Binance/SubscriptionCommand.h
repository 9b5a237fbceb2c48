// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/RawValue.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QString>
#include <QUrl>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// Makes the texts that tell the exchange which pairs to stream. Nothing here does any input or
/// output.
struct SubscriptionCommand {
    enum class Method { subscribe, unsubscribe };

    /// What has to be subscribed and unsubscribed.
    struct Difference {
        SymbolSet toAdd;
        SymbolSet toRemove;

        friend bool operator==(const Difference&, const Difference&) = default;
    };

    /// The exchange cuts off whoever sends more than five messages a second, answers to its pings
    /// included. Three commands leave room for those, and for what a slow network delivers
    /// together.
    static constexpr std::chrono::milliseconds spacing{350};

    /// The exchange's combined-stream endpoint, without a query.
    static QString host();

    /// The name of a pair's 24-hour ticker stream, in lower case, UTF-8.
    static std::string streamName(const Symbol& symbol);

    /// The address of a combined stream that is subscribed to the given pairs from the start, the
    /// same whatever order the set was built in. Stream names stay as they are, except that what
    /// may not stand in a query is percent-encoded.
    /// @param endpoint combined-stream endpoint; its query, if any, is replaced
    /// @returns nothing for an empty set or an endpoint that is no valid address
    static std::optional<QUrl> connectURL(const SymbolSet& symbols,
                                          const QUrl& endpoint = QUrl(host()));

    /// The text frame of one command, UTF-8, without white space, stream names in order.
    static std::string controlMessage(Method method, const SymbolSet& symbols, std::int64_t id);

    /// What leads from `current` to `target`.
    static Difference diff(const SymbolSet& current, const SymbolSet& target);
};

template <>
inline constexpr auto rawValues<SubscriptionCommand::Method> =
    std::to_array<std::string_view>({"SUBSCRIBE", "UNSUBSCRIBE"});

} // namespace quorvel
