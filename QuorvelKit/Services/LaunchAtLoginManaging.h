// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvel {

/// Has the program started when the user logs in, or not.
class LaunchAtLoginManaging {
public:
    LaunchAtLoginManaging() = default;
    LaunchAtLoginManaging(const LaunchAtLoginManaging&) = delete;
    LaunchAtLoginManaging& operator=(const LaunchAtLoginManaging&) = delete;
    virtual ~LaunchAtLoginManaging() = default;

    /// How it is now.
    virtual bool isEnabled() const = 0;

    /// @throws std::exception where it cannot be changed
    virtual void setEnabled(bool enabled) = 0;
};

} // namespace quorvel
