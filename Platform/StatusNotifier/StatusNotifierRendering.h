// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemContent.h"
#include "Platform/StatusNotifier/StatusNotifierState.h"

namespace platform {

/// What an item on the bus says of itself to show its content. Panels differ in what they show.
class StatusNotifierRendering {
public:
    virtual ~StatusNotifierRendering() = default;

    /// @param isForNewPanel whether the panel has just come up, and what was made for another one
    ///                      may not be there any more
    virtual StatusNotifierState render(const StatusItemContent& content, bool isForNewPanel) = 0;
};

} // namespace platform
