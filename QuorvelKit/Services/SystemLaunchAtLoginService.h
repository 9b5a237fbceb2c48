// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Services/LoginItem.h"
#include "QuorvelKit/Services/LaunchAtLoginManaging.h"

#include <utility>

namespace quorvel {

/// Launch at login by the program's login item.
class SystemLaunchAtLoginService final : public LaunchAtLoginManaging {
public:
    explicit SystemLaunchAtLoginService(platform::LoginItem item) : item_(std::move(item)) {}

    bool isEnabled() const override { return item_.isEnabled(); }

    /// @throws platform::FileError
    void setEnabled(bool enabled) override { item_.setEnabled(enabled); }

private:
    platform::LoginItem item_;
};

} // namespace quorvel
