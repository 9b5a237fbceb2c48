// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// Which subscriptions a connection has asked for and not been answered about, to tell what a
/// refusal is of.
class CommandLedger {
public:
    /// Takes note of a command that is sent. Those that do not subscribe are never told of.
    void sent(std::string_view command);

    /// The stream names of the subscription that a frame refuses; absent where it refuses none. A
    /// refusal that does not say which is taken for one of the oldest, empty where there is none.
    std::optional<std::vector<std::string>> refused(QByteArrayView frame);

    /// Forgets what was sent: there is another connection.
    void clear() { open_.clear(); }

private:
    std::map<std::int64_t, std::vector<std::string>> open_; ///< stream names by command, by age
};

} // namespace quorvel
