// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/AsyncStream.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

/// What became of the connection to the exchange, as it is told from the network thread.
struct ConnectionEvent {
    enum class Kind {
        opened,   ///< the stream is there
        lost,     ///< the stream ended, or could not be had
        refused,  ///< the exchange answered that it does not serve: see `status`
        untraded, ///< it does not stream `pairs`
    };

    Kind kind = Kind::opened;
    QString reason = {}; ///< of a loss, for people
    int status = 0;      ///< the HTTP status of a refusal
    /// When it may be asked again, by the clock's boot time; absent where that is not said.
    std::optional<std::chrono::nanoseconds> until = {};
    std::vector<Symbol> pairs = {};
};

/// Where the network thread leaves what others want to know of the connection. Copies share it.
struct ConnectionReports {
    platform::AsyncStreamWriter<ConnectionEvent> events = {};
    /// The clock's uptime in nanoseconds when the other side last showed that it is there.
    std::shared_ptr<std::atomic<std::int64_t>> lastHeard =
        std::make_shared<std::atomic<std::int64_t>>();
};

} // namespace quorvel
