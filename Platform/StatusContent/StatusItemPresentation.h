// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemContent.h"

#include <QRect>

#include <optional>

namespace platform {

/// One way of bringing a status item before the user's eyes. Panels differ too much for a single
/// one.
///
/// Owned by the `StatusItem`, on the GUI thread; it hears of the user by its `StatusItemEvents`.
class StatusItemPresentation {
public:
    virtual ~StatusItemPresentation() = default;

    /// Shows `content` in place of what was shown before. The item appears with the first call.
    virtual void setContent(const StatusItemContent& content) = 0;

    /// Where the item is on the screen, in global device-independent coordinates. Absent where only
    /// the panel knows, and while the item is not there.
    virtual std::optional<QRect> frame() const { return std::nullopt; }
};

} // namespace platform
